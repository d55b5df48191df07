#include "validation/choice_list.h"

namespace partwright {

void ChoiceList::add(std::wstring_view name, std::wstring_view description) {
    choices_.push_back({std::wstring(name), std::wstring(description)});
}

std::size_t ChoiceList::position(std::wstring_view name) const {
    for (std::size_t i = 0; i < choices_.size(); ++i)
        if (choices_[i].name == name)
            return i + 1;
    return 0;
}

std::wstring ChoiceList::text() const {
    std::wstring lines;
    for (const Choice& choice : choices_) {
        lines += choice.name;
        lines += L'\t';
        lines += gap_;
        lines += choice.description;
        lines += L'\n';
    }
    return lines;
}

} // namespace partwright
