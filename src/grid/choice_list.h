#pragma once

// The list of a drop-down cell: entries separated by line feeds, each a name, or a name, a tab and
// a text that explains it. The name is what a cell keeps.

#include <QString>
#include <QStringView>
#include <vector>

namespace partwright::grid {

struct Choice {
    QString name;
    QString remark;
};

[[nodiscard]] std::vector<Choice> splitChoices(const QString& choices);

enum class ChoiceMatch {
    /// The name, character by character.
    Exact,
    /// The start of a name, in any case.
    Start,
};

/// Position of the first entry that fits, counting from 0; -1 when there is none.
[[nodiscard]] int findInChoiceList(const QString& choices, QStringView text, ChoiceMatch match);

} // namespace partwright::grid
