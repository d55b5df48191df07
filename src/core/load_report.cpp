#include "core/load_report.h"

#include <algorithm>

namespace partwright {

LoadFate fateOf(LoadCause cause) {
    switch (cause) {
    case LoadCause::TooLong:
    case LoadCause::OtherKind:
    case LoadCause::NoLink:
        return LoadFate::Kept;
    case LoadCause::Board:
    case LoadCause::ForeignBytes:
    case LoadCause::Backslash:
    case LoadCause::BehindEnd:
        return LoadFate::Told;
    case LoadCause::Malformed:
    case LoadCause::NoPartNumber:
    case LoadCause::Repeated:
    case LoadCause::CaseTwin:
    case LoadCause::UnknownGroup:
    case LoadCause::UnknownType:
    case LoadCause::WrongCellCount:
    case LoadCause::OtherHeader:
    case LoadCause::NoHeader:
    case LoadCause::RefusedField:
    case LoadCause::Colour:
    case LoadCause::FirstLine:
    case LoadCause::Torn:
    case LoadCause::NoEnd:
    case LoadCause::ZeroBytes:
        break;
    }
    return LoadFate::Dropped;
}

void LoadReport::add(LoadEntry entry) {
    ++count_;
    const LoadFate fate = fateOf(entry.cause);
    drops_ += fate == LoadFate::Dropped ? 1 : 0;
    losses_ += fate != LoadFate::Told || entry.cause == LoadCause::Board ? 1 : 0;
    entries_.push_back(std::move(entry));
    if (entries_.size() == 2 * maximumEntries)
        close();
}

void LoadReport::close() {
    std::stable_sort(entries_.begin(), entries_.end(),
                     [](const LoadEntry& a, const LoadEntry& b) { return a.line < b.line; });
    entries_.resize(std::min(entries_.size(), maximumEntries));
}

void LoadReport::fileWritten(const std::set<std::wstring>& superseded) {
    std::erase_if(keptLines, [&](const KeptLine& line) { return superseded.contains(line.part); });
    const std::vector<LoadEntry> before = std::exchange(entries_, {});
    count_ = drops_ = losses_ = 0;
    dropsAllowed = false;
    for (LoadEntry entry : before)
        if (fateOf(entry.cause) == LoadFate::Kept && !superseded.contains(entry.part)) {
            entry.line = 0;
            add(std::move(entry));
        }
}

void LoadReport::setFault(LibraryFault found, std::wstring text) {
    if (fault != LibraryFault::None)
        return; // the first one is the gravest
    fault = found;
    faultText = std::move(text);
}

} // namespace partwright
