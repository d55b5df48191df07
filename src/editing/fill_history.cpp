#include "editing/fill_history.h"

#include <functional>
#include <utility>

namespace partwright {

namespace {

/// Records kept over all steps; the oldest steps give way, the last one never does.
constexpr std::size_t maximumRecords = 400'000;

void mix(std::uint64_t& mark, std::size_t value) {
    mark ^= value + 0x9E3779B97F4A7C15ULL + (mark << 6U) + (mark >> 2U);
}

/// Tells two states of a record apart without keeping both.
template <class Record>
std::uint64_t markOf(const Record& record) {
    std::uint64_t mark = 0;
    const std::hash<std::wstring> hash;
    for (const std::wstring* text : {&record.PartNum, &record.CatNum, &record.Description,
                                     &record.Notes, &record.Manufacturer})
        mix(mark, hash(*text));
    for (const std::int32_t number : {record.group, record.family, record.type})
        mix(mark, static_cast<std::size_t>(static_cast<std::uint32_t>(number)));
    for (const std::wstring& text : record.LPar)
        mix(mark, hash(text));
    return mark;
}

} // namespace

template <class Record>
FillSummary FillHistory<Record>::add(const Definitions<Record>& definitions,
                                     std::wstring_view command, FillReport<Record> report,
                                     const Library& library) {
    Step step;
    step.summary.command = command;
    for (std::size_t i = 0; i < report.changed.size(); ++i) {
        const auto now = library.find(report.changed[i]);
        if (now == library.end() || now->second == report.before[i])
            continue;
        const ChangeCount count =
            countOf(changeBetween(definitions, report.before[i], now->second));
        step.summary.parts += count.all() == 0 ? 0 : 1;
        step.summary.texts.filled += count.filled;
        step.summary.texts.replaced += count.replaced;
        step.summary.texts.emptied += count.emptied;
        step.records.push_back(
            {std::move(report.changed[i]), std::move(report.before[i]), markOf(now->second)});
    }
    const FillSummary done = step.summary;
    if (!step.records.empty()) {
        steps_.push_back(std::move(step));
        dropOldSteps();
    }
    return done;
}

template <class Record>
void FillHistory<Record>::dropOldSteps() {
    std::size_t kept = 0;
    for (const Step& step : steps_)
        kept += step.records.size();
    while (kept > maximumRecords && steps_.size() > 1) {
        kept -= steps_.front().records.size();
        steps_.pop_front();
    }
}

template <class Record>
const FillSummary* FillHistory<Record>::last() const {
    return steps_.empty() ? nullptr : &steps_.back().summary;
}

template <class Record>
std::vector<FilledRecord> FillHistory<Record>::changes(const Definitions<Record>& definitions,
                                                       const Library& library) const {
    std::vector<FilledRecord> result;
    if (steps_.empty())
        return result;
    for (const Earlier& earlier : steps_.back().records) {
        const auto now = library.find(earlier.key);
        if (now != library.end())
            result.push_back({changeBetween(definitions, earlier.before, now->second),
                              markOf(now->second) != earlier.mark});
    }
    return result;
}

template <class Record>
TakenBack FillHistory<Record>::takeBack(Library& library) {
    TakenBack result;
    if (steps_.empty())
        return result;
    Step step = std::move(steps_.back());
    steps_.pop_back();
    result.command = step.summary.command;
    for (Earlier& earlier : step.records) {
        const auto now = library.find(earlier.key);
        if (now == library.end() || markOf(now->second) != earlier.mark) {
            ++result.kept;
            continue;
        }
        now->second = std::move(earlier.before);
        ++result.restored;
    }
    return result;
}

template class FillHistory<SdtaComponent>;
template class FillHistory<AsrComponent>;

} // namespace partwright
