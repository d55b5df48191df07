#pragma once

// When is a record completed? It has a part number, a group and a type, and every applicable
// parameter of its group is filled; "N/A" and "-1" count as filled. On the way an empty value of a
// parameter that does not apply to the type becomes "N/A".
//
// CompletionRules prepares the property rows of every pair of group and type once; it borrows the
// definitions and is valid until they are loaded again.
//
//   const CompletionRules<SdtaComponent> rules(app.sdta);
//   for (auto& [key, record] : library)
//       rules.update(record);

#include "core/definitions.h"
#include "core/vocabulary.h"

#include <cstdint>
#include <vector>

namespace partwright {

template <class Record>
class CompletionRules {
public:
    using Row = typename Kind<Record>::Row;

    explicit CompletionRules(const Definitions<Record>& definitions);
    /// For records of one group only.
    CompletionRules(const Definitions<Record>& definitions, std::int32_t onlyGroup);

    void update(Record& record) const;

    /// The property row of a pair, null when there is none; any numbers may be asked for.
    [[nodiscard]] const Row* row(std::int32_t group, std::int32_t type) const;

private:
    struct Group {
        Names columns;
        bool unused = false;
        const LevelColumns* rapid = nullptr;
        const LevelColumns* asr = nullptr;
        /// By type position; the last entry serves every position out of range.
        std::vector<const Row*> rows;
    };
    [[nodiscard]] static Group prepare(const Definitions<Record>& definitions, std::int32_t number);
    [[nodiscard]] const Group& group(std::int32_t number) const;

    /// The groups from number `first_` on; the last entry serves every number out of range.
    std::vector<Group> groups_;
    std::int32_t first_ = 0;
};

template <>
void CompletionRules<SdtaComponent>::update(SdtaComponent& record) const;
template <>
void CompletionRules<AsrComponent>::update(AsrComponent& record) const;
extern template class CompletionRules<SdtaComponent>;
extern template class CompletionRules<AsrComponent>;

/// For one record alone; run it after every change of a record.
template <class Record>
void UpdateCompletion(const Definitions<Record>& definitions, Record& record) {
    CompletionRules<Record>(definitions, record.group).update(record);
}

} // namespace partwright
