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

std::wstring inSmallLetters(std::wstring text) {
    for (wchar_t& c : text)
        if (c >= L'A' && c <= L'Z')
            c = static_cast<wchar_t>(c - L'A' + L'a');
    return text;
}

/// What may stand behind a sample: the words that the entry asks for, capitals and small letters
/// together, and one more word.
std::vector<std::wstring> surroundings(const SynonymPattern& pattern,
                                       const std::vector<std::wstring>& more) {
    std::wstring wanted;
    for (const auto& words : pattern.wantedWords())
        if (const auto word = std::find_if(words.begin(), words.end(),
                                           [](const auto& text) { return text.front() != L'$'; });
            word != words.end())
            wanted += L"," + *word;
    std::vector<std::wstring> result = {wanted, wanted + L", Zz", wanted + L",Zz"};
    for (const std::wstring& word : more)
        if (!word.empty() && word.front() != L'$')
            result.push_back(wanted + L"," + word);
    return result;
}

} // namespace

struct SynonymTable::Entries {
    struct Candidate {
        std::size_t pattern = 0;
        CharacterMask next;
    };

    std::vector<SynonymPattern> patterns;
    /// Of each pattern, in the file.
    std::vector<std::size_t> lines;
    /// By first character, in file order.
    std::unordered_map<wchar_t, std::vector<Candidate>> byFirst;

    void add(SynonymPattern pattern, std::size_t line) {
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
        lines.push_back(line);
    }

    /// Indices of all that match at the beginning of a text.
    [[nodiscard]] std::vector<std::size_t> allAtBegin(std::wstring_view text) const {
        const SynonymText prepared(text);
        const auto number = readSynonymNumber(prepared.folded, 0);
        std::vector<std::size_t> matching;
        SynonymMatch match;
        const auto list = byFirst.find(static_cast<wchar_t>(
            std::min(static_cast<char32_t>(prepared.folded.front()), char32_t{beyondAscii})));
        if (list != byFirst.end())
            for (const Candidate& candidate : list->second)
                if (patterns[candidate.pattern].match(prepared, 0, number, match))
                    matching.push_back(candidate.pattern);
        return matching;
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

    /// The entry of those matching there that is applied, and whether `index` is among them.
    struct Trial {
        std::size_t applied = 0;
        bool matches = false;
    };
    [[nodiscard]] Trial tryOn(std::wstring_view text, std::size_t index) const {
        const auto matching = allAtBegin(text);
        const bool matches = std::find(matching.begin(), matching.end(), index) != matching.end();
        return {matches ? matching.front() : 0, matches};
    }

    /// The entry that takes each text which the entry of `index` was written for; none when one
    /// text at least is left to it, or it matches none at all.
    [[nodiscard]] std::optional<std::size_t> alwaysBefore(std::size_t index) const {
        constexpr std::size_t mostSamples = 300;
        constexpr int mostRounds = 5;
        const auto samples = patterns[index].samples(mostSamples);
        std::optional<std::size_t> before;
        std::vector<std::wstring> more;
        for (int round = 0; round < mostRounds && (round == 0 || before); ++round) {
            // Words that keep the entry in front from matching may let this one through.
            if (before)
                for (std::wstring& word : patterns[*before].forbiddenWords())
                    more.push_back(std::move(word));
            for (const std::wstring& behind : surroundings(patterns[index], more))
                for (const std::wstring& sample : samples)
                    for (const std::wstring& text :
                         {sample + behind, inSmallLetters(sample) + behind,
                          inSmallLetters(sample + behind)}) {
                        const Trial trial = tryOn(text, index);
                        if (trial.matches && trial.applied == index)
                            return std::nullopt;
                        if (trial.matches)
                            before = trial.applied;
                    }
        }
        return before;
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

SynonymTable::SynonymTable(const RuleTable& table, PartPrefixes prefixes)
    : prefixes_(std::move(prefixes)) {
    auto entries = std::make_shared<Entries>();
    for (const RuleRow& row : table.rows) {
        const std::wstring find = row.text(L"Find");
        if (find.empty())
            continue;
        if (auto pattern = SynonymPattern::read(find, row.text(L"Replace")))
            entries->add(std::move(*pattern), row.line);
        else
            faultyLines_.push_back(row.line);
    }
    entries_ = std::move(entries);
}

std::vector<SynonymTable::HiddenEntry> SynonymTable::hiddenEntries() const {
    std::vector<HiddenEntry> hidden;
    for (std::size_t index = 0; index < entries_->patterns.size(); ++index)
        if (const auto before = entries_->alwaysBefore(index))
            hidden.push_back({entries_->lines[index], entries_->lines[*before]});
    return hidden;
}

std::size_t SynonymTable::size() const {
    return entries_->patterns.size();
}

std::wstring SynonymTable::rewrite(std::wstring_view text) const {
    if (size() + prefixes_.size() == 0 || text.empty() || text == cell::shownNoValue)
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
        const bool mayMatch = !blank && (at == behindMatch || begins(prepared.folded, at));
        if (const auto* pattern = mayMatch ? entries_->find(prepared, at, match) : nullptr) {
            separate(result);
            pattern->appendReplacement(prepared, at, match, result);
        } else if (const auto part =
                       mayMatch ? prefixes_.at(prepared.folded, at) : PartPrefixes::Match();
                   !part.says.empty()) {
            separate(result);
            result.append(text.substr(at, part.end - at)).append(L" ").append(part.says);
            match.end = part.end;
        } else {
            result += blank ? L' ' : text[at];
            ++at;
            continue;
        }
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

std::wstring synonymPath(const ProjectPaths& paths) {
    return paths.programFolder + std::wstring(fileName);
}

LoadResult LoadSynonyms(const ProjectPaths& paths, SynonymTable& synonyms) {
    const RuleTable table = readRuleTable(synonymPath(paths), synonymForm());
    const RuleTable prefixes = readRuleTable(partPrefixPath(paths), partPrefixForm());
    synonyms = SynonymTable(table, PartPrefixes(prefixes));
    LoadResult result = resultOf(table, synonymPath(paths));
    return result.message.empty() ? resultOf(prefixes, partPrefixPath(paths)) : result;
}

} // namespace partwright
