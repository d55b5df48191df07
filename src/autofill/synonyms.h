#pragma once

// Rewrites a description into the words and units that the other tables read. The stored text of a
// part is never changed; what is rewritten is only what classification and filling look at.
//
//   Find,Replace,Note
//   <n> {KOHMS|KOHM},<1>kohm,             "4,7 kOhms"      ->  "4.7kohm"
//   [CAP|CAPACITOR]<i>P<d>,<1>.<2>pF,     "CAP 4p7"        ->  "CAP 4.7pF"
//   BZX84C<i>V<i>*,<0> ZENER <1>.<2>V,    "BZX84C5V1"      ->  "BZX84C5V1 ZENER 5.1V"
//
// At each place of the text the first entry in file order that matches there is applied, and the
// reading goes on behind it: replaced text is not read again. Where none matches, the table of
// prefixes (part_prefixes.h) is asked whether a known part number begins. A place begins a match
// when it does not continue a word, and a number also not behind one of - + ± ~ @ . # * < > ^;
// right behind a match everything begins. A match must not end inside of a word or a number. A
// replacement stands alone between blanks.
//
// In Find, letters match in any case, and so do the look-alikes of some signs (micro, ohm, degree,
// dashes, blanks). A blank stands for no blank or some. Further:
//   <n>      a number: digits with "." or a decimal ",", or thousands with ","
//   <i> <d>  digits; one digit
//   <b>      at least one blank
//   {A|B|}   the first of these that fits, here possibly nothing
//   \m       exactly this character
//   *        at the end: the rest of a part number; the whole must hold a digit
//   [A|B]    in front: some of these words must stand in the text, [!A|B]: none of them; $UPPER,
//            $LOWER and $NOBLANK stand for a text without small letters, capitals or blanks
// In Replace, <1> is the first of the numbers and digits matched, <0> the whole match as it stands
// and <u> the same as it was compared. The rewritten text begins with a blank, so that its first
// word stands between separators like all others; an empty text and "-" stay as they are.

#include "autofill/part_prefixes.h"
#include "core/project_paths.h"
#include "library/load_result.h"
#include "library/rule_table.h"

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace partwright {

class SynonymTable {
public:
    SynonymTable();
    explicit SynonymTable(const RuleTable& table, PartPrefixes prefixes = {});

    /// An empty table gives the text as it stands.
    [[nodiscard]] std::wstring rewrite(std::wstring_view text) const;

    /// Lines of the file whose entry cannot be read; they match nothing.
    [[nodiscard]] const std::vector<std::size_t>& faultyLines() const { return faultyLines_; }
    [[nodiscard]] std::size_t size() const;
    [[nodiscard]] const PartPrefixes& prefixes() const { return prefixes_; }

    /// An entry that is never applied, since another one stands before it and always matches first.
    struct HiddenEntry {
        std::size_t line = 0;
        std::size_t behind = 0;
    };
    /// Found by trying each entry on texts that it was written for, in several surroundings.
    [[nodiscard]] std::vector<HiddenEntry> hiddenEntries() const;

private:
    struct Entries;
    std::shared_ptr<const Entries> entries_;
    PartPrefixes prefixes_;
    std::vector<std::size_t> faultyLines_;
};

/// A rewritten text without the blank in front: expressions of groups must match the whole text,
/// and one that begins with a word would never do.
[[nodiscard]] inline std::wstring_view forGroups(std::wstring_view rewritten) {
    return rewritten.substr(rewritten.starts_with(L' ') ? 1 : 0);
}

/// The columns that are read.
[[nodiscard]] RuleTableForm synonymForm();

[[nodiscard]] std::wstring synonymPath(const ProjectPaths& paths);

/// From "DescrSynonyms.csv" and "PartPrefixes.csv" beside the program; what is not there is empty.
LoadResult LoadSynonyms(const ProjectPaths& paths, SynonymTable& synonyms);

} // namespace partwright
