#include "grid/choice_list.h"

namespace partwright::grid {

namespace {

/// Calls use(line) for each entry that is not empty until it returns false.
template <typename Use>
void eachEntry(QStringView choices, Use use) {
    for (qsizetype start = 0; start < choices.size();) {
        qsizetype end = choices.indexOf(u'\n', start);
        if (end < 0)
            end = choices.size();
        if (end > start && !use(choices.sliced(start, end - start)))
            return;
        start = end + 1;
    }
}

QStringView nameOf(QStringView entry) {
    const qsizetype tab = entry.indexOf(u'\t');
    return tab < 0 ? entry : entry.first(tab);
}

} // namespace

std::vector<Choice> splitChoices(const QString& choices) {
    std::vector<Choice> result;
    eachEntry(choices, [&](QStringView entry) {
        const QStringView name = nameOf(entry);
        result.push_back({name.toString(), entry.sliced(name.size()).trimmed().toString()});
        return true;
    });
    return result;
}

int findInChoiceList(const QString& choices, QStringView text, ChoiceMatch match) {
    int found = -1;
    int position = 0;
    eachEntry(choices, [&](QStringView entry) {
        const QStringView name = nameOf(entry);
        const bool fits =
            match == ChoiceMatch::Exact ? name == text : name.startsWith(text, Qt::CaseInsensitive);
        if (fits)
            found = position;
        ++position;
        return !fits;
    });
    return found;
}

} // namespace partwright::grid
