#include "editing/row_deletion.h"

#include "core/messages.h"

namespace partwright {

std::vector<std::size_t> confirmDeletion(const std::vector<std::wstring_view>& parts,
                                         const PartSelection& projectParts, Prompt& prompt) {
    if (parts.empty()) {
        prompt.tell(message::selectRowsForDeleting, PromptIcon::None);
        return {};
    }
    std::vector<std::size_t> deletable;
    for (std::size_t i = 0; i < parts.size(); ++i)
        if (projectParts.find(parts[i]) == projectParts.end())
            deletable.push_back(i);
    const std::size_t blocked = parts.size() - deletable.size();
    std::wstring text = message::selectedForDeletion(parts.size());
    if (deletable.empty()) {
        text += message::allBlocked(parts.size());
        prompt.tell(text, PromptIcon::None);
        return {};
    }
    if (blocked > 0)
        text += message::partlyDeletable(blocked, deletable.size());
    text += message::deleteQuestion;
    if (!prompt.ask(message::caption, text))
        deletable.clear();
    return deletable;
}

} // namespace partwright
