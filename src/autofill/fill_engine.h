#pragma once

// The auto-fill engine of a run: its compiled tables, its rule files, and what the pages and the
// command line ask of it. Every text is first rewritten by the synonyms; the stored description
// stays as it is.
//
//   FillEngine engine(app);
//   engine.load();
//   engine.classify(L"R1,R2", L"RES 4K7 1% 0603")  ->  group 10, type 27
//
// Classifications are remembered, so that no refresh classifies the same text twice.

#include "autofill/classifier.h"
#include "autofill/compiled_tables.h"
#include "autofill/fill_commands.h"
#include "autofill/group_library.h"
#include "autofill/param_rules.h"
#include "autofill/synonyms.h"
#include "autofill/type_keywords.h"
#include "core/application.h"
#include "core/library_kind.h"
#include "core/ports/progress.h"

#include <cstdint>
#include <memory>
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

    /// Steps once for each text that is read; borrowed. Without it
    /// the work is silent.
    void setProgress(Progress& progress) { progress_ = &progress; }
    /// A caller's own walk over many texts is done.
    void finishWork();

    /// Looks at the rule files that are not there yet. To be run again when the application's group
    /// list was read again. A file that cannot be opened is told of here; what is slow to read and
    /// prepare waits for the first text, so that a start with nothing to classify does not wait
    /// for it.
    [[nodiscard]] std::vector<LoadResult> load();

    /// Tables that filling rests on and that gave nothing: not there, empty, or without a header
    /// that is known. The group library, which is read now if it was not yet, stands among them.
    [[nodiscard]] std::vector<std::wstring> missingTables();
    [[nodiscard]] bool hasGroupLibrary();

    /// Group and type of an SDTA record, by the words of its description and its designators.
    [[nodiscard]] Classification classify(std::wstring_view designators,
                                          std::wstring_view description);
    /// Group and type of an Analyses record whose SDTA group is known.
    [[nodiscard]] Classification classifyForAnalyses(std::int32_t sdtaGroup,
                                                     std::wstring_view description);

    /// Classification, refined by the values, and the values themselves; no defaults.
    template <class Record>
    [[nodiscard]] FilledPart fill(std::wstring_view designators,
                                  std::wstring_view description) const;

    /// The same for a decoded description: without designators the words alone decide, and
    /// designators without words decide nothing. An empty description leads to nothing at all.
    template <class Record>
    [[nodiscard]] FilledPart fillByWords(std::wstring_view designators,
                                         std::wstring_view description) const;

    /// The description of a part number as it stands. The group library is read at first use; what
    /// it has to say is among the messages.
    [[nodiscard]] PartDescription describe(std::wstring_view partNumber);

    [[nodiscard]] const FillTables& tables() const { return work().tables; }

    /// How many answers of classify and classifyForAnalyses were worked out, not remembered.
    [[nodiscard]] std::size_t workedOut() const { return workedOut_; }

    /// The two commands over a library (fill_commands.h).
    FillReport<SdtaComponent> runGroupLibrary(const PartSelection& selection, SdtaLibrary& library);
    FillReport<AsrComponent> runGroupLibrary(const PartSelection& selection, AsrLibrary& library);
    FillReport<SdtaComponent> parseDescriptions(const PartSelection& selection,
                                                SdtaLibrary& library);
    FillReport<AsrComponent> parseDescriptions(const PartSelection& selection, AsrLibrary& library);

private:
    /// The rules that are compiled into the program, and who works with them.
    struct Work {
        explicit Work(const FillEngine& engine);
        FillTables tables;
        ParamFiller filler;
        FillTools tools;
    };

    [[nodiscard]] const Work& work() const;
    [[nodiscard]] const SynonymTable& synonyms() const;
    [[nodiscard]] std::wstring rewritten(std::wstring_view text) const;
    [[nodiscard]] const Classifier& classifier() const;
    /// Texts to show, if reading the group library gave any.
    std::vector<std::wstring> needGroupLibrary();
    /// Group and type from a text that is rewritten already.
    [[nodiscard]] Classification classified(std::int32_t group, std::wstring_view text) const;
    [[nodiscard]] Classification convertedToAnalyses(std::int32_t sdtaGroup,
                                                     std::wstring_view text) const;
    template <class Record>
    [[nodiscard]] FilledPart filled(std::int32_t group, std::wstring_view text) const;

    CPartwrightPlugInApp& app_;
    Progress* progress_ = nullptr;
    /// Files as they were read, until the first text asks for what they say.
    TextFile keywordFile_;
    TextFile synonymFile_;
    TextFile prefixFile_;
    mutable std::unique_ptr<const Work> work_;
    mutable std::optional<TypeKeywords> keywords_;
    mutable std::optional<SynonymTable> synonyms_;
    mutable std::optional<Classifier> classifier_;
    GroupLibrary groupLibrary_;
    bool groupLibraryLoaded_ = false;
    /// Designators and description, joined, to classification; for Analyses the SDTA group and the
    /// description.
    std::unordered_map<std::wstring, Classification> known_;
    std::unordered_map<std::wstring, Classification> knownForAnalyses_;
    std::size_t workedOut_ = 0;
    std::map<std::int32_t, GroupRule> preparedRules_;
};

} // namespace partwright
