#pragma once

// The type of a part inside its group, from the words of its description. In this order:
//
// 1. Direct keys: a text that stands between separators (blank, "," and the text's ends) settles
//    group and type at once; the first of the table wins.
// 2. Keywords of the group: the longest first, then by type, then as listed. One that touches a
//    separator on at least one side counts, unless the type's tests refuse the description.
// 3. The default type of the group.
//
// Tables are prepared once. A description is walked along the keywords in one pass, and the tests
// of a type are only made when one of its keywords was found.

#include "autofill/character_trie.h"
#include "autofill/rule_language.h"
#include "autofill/type_keywords.h"
#include "autofill/value_normaliser.h"
#include "core/classifier_tables.h"

#include <cstdint>
#include <map>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

namespace partwright {

class TypeDetector {
public:
    TypeDetector(const ClassifierTables& tables, const TypeKeywords& keywords,
                 const UnitTable& units);

    /// `type` is set, to 0 when nothing speaks for one; a direct key sets `group` as well.
    void DetectType(std::int32_t family, std::int32_t& group, std::wstring_view description,
                    std::int32_t& type) const;

private:
    /// What a type demands besides its keyword: a polarity, or a value within bounds.
    struct Test {
        std::optional<ValueCondition> value;
        std::wstring polarityKind;
        std::wstring polarity;

        [[nodiscard]] bool holds(const ScannedText& text, std::int32_t family,
                                 std::int32_t group) const;
    };
    struct Group {
        /// Values are indices into `words`.
        CharacterTrie forward;
        CharacterTrie backward;
        /// The places in the order of trial that a word has: it can serve several types.
        std::vector<std::vector<std::uint32_t>> words;
        /// Type by place in the order of trial.
        std::vector<std::int32_t> typeOfRank;
        std::map<std::int32_t, Test> tests;
        std::int32_t defaultType = 0;
    };
    using GroupKey = std::pair<std::int32_t, std::int32_t>;

    void prepareKeywords(Group& group,
                         const std::map<std::int32_t, std::vector<std::wstring>>& types,
                         std::size_t maximumLength);
    static void prepareTests(Group& group, const std::vector<TypeExclusion>& entries,
                             const UnitTable& units);
    [[nodiscard]] const DirectKey* directKey(std::int32_t family, std::wstring_view text) const;
    [[nodiscard]] static std::vector<std::uint32_t> ranksIn(const Group& group,
                                                            std::wstring_view text);
    [[nodiscard]] static std::int32_t typeByKeyword(const Group& group, const GroupKey& key,
                                                    std::wstring_view text);

    struct DirectKeys {
        CharacterTrie trie;
        std::vector<DirectKey> rows;
    };
    std::map<std::int32_t, DirectKeys> directKeys_;
    /// By family and group.
    std::map<GroupKey, Group> groups_;
};

} // namespace partwright
