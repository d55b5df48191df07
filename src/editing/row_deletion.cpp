#include "editing/row_deletion.h"

#include "core/messages.h"

namespace partwright {

Deletion deletionOf(const std::vector<std::wstring_view>& parts,
                    const PartSelection& projectParts) {
    Deletion deletion;
    if (parts.empty()) {
        deletion.text = message::selectRowsForDeleting;
        return deletion;
    }
    for (std::size_t i = 0; i < parts.size(); ++i)
        if (projectParts.find(parts[i]) == projectParts.end())
            deletion.deletable.push_back(i);
    const std::size_t left = deletion.deletable.size();
    const std::size_t blocked = parts.size() - left;
    deletion.text = message::selectedForDeletion(parts.size());
    if (left == 0) {
        deletion.text += message::allBlocked(parts.size());
        return deletion;
    }
    if (blocked > 0)
        deletion.text += message::partlyDeletable(blocked, left);
    deletion.text += message::deleteQuestion;
    return deletion;
}

} // namespace partwright
