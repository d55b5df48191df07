#pragma once

// The drop-down list of a cell: names, each with a text beside it. A grid shows two columns and the
// cell holds the name alone; as one text it is a line an entry, name and text apart by a tab and
// a gap of blanks.
//
//   ChoiceList at;
//   at.add(L"A", L"Ts is given for Ambient");
//   at.text()  ->  "A\t     Ts is given for Ambient\n"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace partwright {

class ChoiceList {
public:
    /// `gap` stands between the tab and the description of a line.
    explicit ChoiceList(std::wstring_view gap = L"     ") : gap_(gap) {}

    struct Choice {
        std::wstring name;
        std::wstring description;
    };

    void add(std::wstring_view name, std::wstring_view description);

    [[nodiscard]] const std::vector<Choice>& choices() const { return choices_; }
    [[nodiscard]] bool empty() const { return choices_.empty(); }
    /// Place of a name, from 1; 0 when it is not an entry.
    [[nodiscard]] std::size_t position(std::wstring_view name) const;
    [[nodiscard]] bool holds(std::wstring_view name) const { return position(name) != 0; }
    [[nodiscard]] std::wstring text() const;

private:
    std::wstring gap_;
    std::vector<Choice> choices_;
};

} // namespace partwright
