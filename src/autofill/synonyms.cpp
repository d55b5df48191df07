#include "autofill/synonyms.h"

#include "autofill/synonym_pattern.h"
#include "core/cell_text.h"
#include "core/text.h"

#include <algorithm>
#include <unordered_map>

namespace partwright {

namespace {

constexpr std::wstring_view columns[] = {L"Find", L"Replace"};
constexpr std::wstring_view fileName = L"DescrSynonyms.csv";
/// A number behind one of these is no value of its own.
constexpr std::wstring_view bindsNumbers = L"-+\u00B1~@.#*<>^";

/// Where a match may begin: not inside of a word.
bool begins(std::wstring_view folded, std::size_t at) {
    const wchar_t c = folded[at];
    if (at == 0 || (!isSynonymWord(c) && c != L'.'))
        return true;
    const wchar_t before = folded[at - 1];
    const bool number = isDigit(c) || c == L'.';
    return !isSynonymWord(before) && before != L'.' &&
           !(number && bindsNumbers.find(before) != std::wstring_view::npos);
}

wchar_t characterAt(std::wstring_view text, std::size_t at) {
    return at < text.size() ? text[at] : L'\0';
}

wchar_t behindBlanks(std::wstring_view text, std::size_t at) {
    while (characterAt(text, at) == L' ')
        ++at;
    return characterAt(text, at);
}

void separate(std::wstring& target) {
    if (target.back() != L' ')
        target += L' ';
}

} // namespace

struct SynonymTable::Entries {
    struct Candidate {
        std::size_t pattern = 0;
        CharacterMask next;
    };

    std::vector<SynonymPattern> patterns;
    /// By first character, in file order.
    std::unordered_map<wchar_t, std::vector<Candidate>> byFirst;

    void add(SynonymPattern pattern) {
        const std::size_t index = patterns.size();
        for (const auto& opening : pattern.openings())
            for (const wchar_t c : firstCharacters(opening.first)) {
                auto& candidates = byFirst[c];
                if (!candidates.empty() && candidates.back().pattern == index)
                    candidates.back().next.add(opening.next);
                else
                    candidates.push_back({index, opening.next});
            }
        patterns.push_back(std::move(pattern));
    }

    /// All characters beyond ASCII share one list.
    static constexpr wchar_t beyondAscii = 128;
    static std::vector<wchar_t> firstCharacters(const CharacterMask& mask) {
        std::vector<wchar_t> result;
        for (wchar_t c = 0; c <= beyondAscii; ++c)
            if (mask.holds(c))
                result.push_back(c);
        return result;
    }

    const SynonymPattern* find(const SynonymText& text, std::size_t at, SynonymMatch& match) const {
        const wchar_t c = text.folded[at];
        const auto list =
            byFirst.find(static_cast<wchar_t>(std::min(static_cast<char32_t>(c), char32_t{128})));
        if (list == byFirst.end())
            return nullptr;
        std::optional<SynonymNumber> number;
        std::size_t integerEnd = at;
        if (isDigit(c) || c == L'.') {
            number = readSynonymNumber(text.folded, at);
            while (integerEnd < text.folded.size() && isDigit(text.folded[integerEnd]))
                ++integerEnd;
        }
        const wchar_t next = characterAt(text.folded, at + 1);
        const wchar_t behindNumber = behindBlanks(text.folded, number ? number->end : at);
        const wchar_t behindInteger = behindBlanks(text.folded, integerEnd);
        for (const Candidate& candidate : list->second) {
            const SynonymPattern& pattern = patterns[candidate.pattern];
            const auto lead = pattern.lead();
            const wchar_t asked = lead == SynonymPattern::Lead::Number    ? behindNumber
                                  : lead == SynonymPattern::Lead::Integer ? behindInteger
                                                                          : next;
            if (candidate.next.holds(asked) && pattern.match(text, at, number, match))
                return &pattern;
        }
        return nullptr;
    }
};

SynonymTable::SynonymTable() : entries_(std::make_shared<Entries>()) {}

SynonymTable::SynonymTable(const RuleTable& table) {
    auto entries = std::make_shared<Entries>();
    for (const RuleRow& row : table.rows) {
        const std::wstring find = row.text(L"Find");
        if (find.empty())
            continue;
        if (auto pattern = SynonymPattern::read(find, row.text(L"Replace")))
            entries->add(std::move(*pattern));
        else
            faultyLines_.push_back(row.line);
    }
    entries_ = std::move(entries);
}

std::size_t SynonymTable::size() const {
    return entries_->patterns.size();
}

std::wstring SynonymTable::rewrite(std::wstring_view text) const {
    if (entries_->patterns.empty() || text.empty() || text == cell::shownNoValue)
        return std::wstring(text);
    const SynonymText prepared(text);
    std::wstring result;
    result.reserve(text.size() + text.size() / 4 + 1);
    // Keywords count where they touch a separator, and some values not in the first place.
    result = L' ';
    SynonymMatch match;
    std::size_t behindMatch = 0;
    for (std::size_t at = 0; at < text.size();) {
        const bool blank = prepared.folded[at] == L' ';
        const SynonymPattern* pattern = nullptr;
        if (!blank && (at == behindMatch || begins(prepared.folded, at)))
            pattern = entries_->find(prepared, at, match);
        if (pattern == nullptr) {
            result += blank ? L' ' : text[at];
            ++at;
            continue;
        }
        separate(result);
        pattern->appendReplacement(prepared, at, match, result);
        at = match.end;
        behindMatch = at;
        if (at < text.size() && prepared.folded[at] != L' ')
            separate(result);
    }
    return result;
}

RuleTableForm synonymForm() {
    return {.columns = columns, .comments = true};
}

LoadResult LoadSynonyms(const CPartwrightPlugInApp& app, SynonymTable& synonyms) {
    const std::wstring path = app.programFolder + std::wstring(fileName);
    const RuleTable table = readRuleTable(path, synonymForm());
    synonyms = SynonymTable(table);
    return resultOf(table, path);
}

} // namespace partwright
