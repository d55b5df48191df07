#pragma once

// The auto-fill engine of a run: its compiled tables, its rule files, and what the pages and the
// command line ask of it. Every text is first rewritten by the synonyms; the stored description
// stays as it is.
//
//   FillEngine engine(app);
//   engine.load(prompt);
//   engine.classify(L"R1,R2", L"RES 4K7 1% 0603")  ->  group 10, type 27
//
// Classifications are remembered, so that no refresh classifies the same text twice.

#include "autofill/classifier.h"
#include "autofill/compiled_tables.h"
#include "autofill/group_library.h"
#include "autofill/param_rules.h"
#include "autofill/synonyms.h"
#include "autofill/type_keywords.h"
#include "core/application.h"
#include "core/library_kind.h"
#include "core/ports/prompt.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace partwright {

struct Classification {
    std::int32_t group = 0;
    std::int32_t type = 0;
};

/// A part as its description tells it.
struct FilledPart {
    Classification found;
    /// Values by slot.
    std::vector<std::wstring> cells;
    std::wstring notes;
};

class FillEngine {
public:
    explicit FillEngine(CPartwrightPlugInApp& app);

    /// Reads the rule files that are not there yet and prepares the classification for the
    /// application's group list. To be run again when that list was read again.
    void load(Prompt& prompt);

    /// Group and type of an SDTA record, by the words of its description and its designators.
    [[nodiscard]] Classification classify(std::wstring_view designators,
                                          std::wstring_view description);
    /// Group and type of an Analyses record whose SDTA group is known.
    [[nodiscard]] Classification classifyForAnalyses(std::int32_t sdtaGroup,
                                                     std::wstring_view description) const;

    /// Classification, refined by the values, and the values themselves; no defaults.
    template <class Record>
    [[nodiscard]] FilledPart fill(std::wstring_view designators, std::wstring_view description);

    /// Loads the group library at first use.
    [[nodiscard]] PartDescription describe(std::wstring_view partNumber, Prompt& prompt);

    /// The two commands over the records of a library whose key is in the selection; the part
    /// numbers of those gone through, in key order.
    template <class Record>
    std::vector<std::wstring> runGroupLibrary(const PartSelection& selection,
                                              typename Kind<Record>::Library& library,
                                              Prompt& prompt);
    template <class Record>
    std::vector<std::wstring> parseDescriptions(const PartSelection& selection,
                                                typename Kind<Record>::Library& library);

private:
    CPartwrightPlugInApp& app_;
    FillTables tables_;
    ParamFiller filler_;
    TypeKeywords keywords_;
    Synonyms synonyms_;
    std::optional<Classifier> classifier_;
    GroupLibrary groupLibrary_;
    bool groupLibraryLoaded_ = false;
    /// Designators and description, joined, to classification.
    std::unordered_map<std::wstring, Classification> known_;
};

} // namespace partwright
