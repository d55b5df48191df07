#include "autofill/defaults.h"

#include "autofill/param_rules.h"
#include "core/library_kind.h"
#include "core/text.h"

#include <algorithm>

namespace partwright {

namespace {

bool isLetterAt(std::wstring_view text, std::size_t at) {
    return at < text.size() && text[at] >= L'A' && text[at] <= L'Z';
}

/// Both in capitals.
bool holdsWord(std::wstring_view text, std::wstring_view word) {
    for (auto at = text.find(word); at != std::wstring_view::npos; at = text.find(word, at + 1))
        if ((at == 0 || !isLetterAt(text, at - 1)) && !isLetterAt(text, at + word.size()))
            return true;
    return false;
}

bool holdsAny(std::wstring_view text, std::wstring_view words) {
    const auto pieces = split(words, L'|');
    return std::any_of(pieces.begin(), pieces.end(), [text](std::wstring_view word) {
        return !word.empty() && holdsWord(text, word);
    });
}

/// A row's record keeps the words that it needs as its description, those that it yields to as its
/// notes.
template <class Record>
bool isMeant(const Record& row, std::wstring_view told) {
    if (row.Description.empty() && row.Notes.empty())
        return true;
    const std::wstring text = upperCase(told);
    return (row.Description.empty() || holdsAny(text, row.Description)) &&
           !holdsAny(text, row.Notes);
}

template <class Record>
bool fillEmpty(const Definitions<Record>& definitions, Record& record, std::wstring_view told) {
    const auto& table = definitions.defaultLPar;
    const auto row = table.find(GroupAndType(record.group, record.type));
    if (row == table.end())
        return false;
    if (!isMeant(row->second, told))
        return false;
    bool changed = false;
    for (std::size_t i = 0; i < Kind<Record>::maximumColumns; ++i) {
        const std::wstring& value = row->second.LPar[i];
        if (!record.LPar[i].empty() || value.empty())
            continue;
        record.LPar[i] = value;
        changed = true;
    }
    return changed;
}

} // namespace

bool ApplySdtaDefaults(const Definitions<SdtaComponent>& definitions, SdtaComponent& record) {
    const bool changed = fillEmpty(definitions, record, {});
    applyCodeNames(ColumnsOfSdtaGroup(record.group), record.group, record.LPar);
    return changed;
}

bool ApplyAsrDefaults(const Definitions<AsrComponent>& definitions, AsrComponent& record,
                      std::wstring_view told) {
    return fillEmpty(definitions, record, told);
}

} // namespace partwright
