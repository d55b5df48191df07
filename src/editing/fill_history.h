#pragma once

// What the auto-fill commands did to a library since the window opened, and the way back. Each
// command that changed something is one step; the last step is taken back first.
//
//   FillHistory<SdtaComponent> history;
//   history.add(fillCommand::groupLibrary, std::move(report), library);
//   history.last()->parts         // 12
//   history.takeBack(library)                 // those twelve are as they were
//
// Taking back never drops later work: a record that was changed or deleted after the command stays
// as it is, and the result says how many did.

#include "autofill/fill_commands.h"
#include "core/definitions.h"
#include "core/library_kind.h"
#include "maintenance/record_changes.h"

#include <cstddef>
#include <cstdint>
#include <deque>
#include <string>
#include <string_view>
#include <vector>

namespace partwright {

/// The commands by the captions of their buttons.
namespace fillCommand {
inline constexpr std::wstring_view groupLibrary = L"Group Library";
inline constexpr std::wstring_view descriptionParsing = L"Description Parsing";
} // namespace fillCommand

/// One command in numbers.
struct FillSummary {
    std::wstring_view command;
    /// Records with a text that changed, notes aside.
    std::size_t parts = 0;
    ChangeCount texts;
};

struct TakenBack {
    std::wstring_view command;
    std::size_t restored = 0;
    /// Changed or deleted since; left alone.
    std::size_t kept = 0;
};

/// A record that a command changed.
struct FilledRecord {
    RecordChange change;
    /// Somebody changed the record after the command; `change` shows the difference to now.
    bool changedSince = false;
};

template <class Record>
class FillHistory {
public:
    using Library = typename Kind<Record>::Library;

    /// A step over `library` as the command left it; what it did. Without a change there is no
    /// step.
    FillSummary add(const Definitions<Record>& definitions, std::wstring_view command,
                    FillReport<Record> report, const Library& library);

    /// The last step; null when there is nothing to take back.
    [[nodiscard]] const FillSummary* last() const;
    /// The records of the last step that are still there, in key order.
    [[nodiscard]] std::vector<FilledRecord> changes(const Definitions<Record>& definitions,
                                                    const Library& library) const;
    TakenBack takeBack(Library& library);

private:
    struct Earlier {
        std::wstring key;
        Record before;
        /// Of the record as the command left it.
        std::uint64_t mark = 0;
    };
    struct Step {
        FillSummary summary;
        std::vector<Earlier> records;
    };

    void dropOldSteps();

    std::deque<Step> steps_;
};

extern template class FillHistory<SdtaComponent>;
extern template class FillHistory<AsrComponent>;

} // namespace partwright
