#include "autofill/synonym_pattern.h"

#include "core/text.h"

#include <algorithm>
#include <array>

namespace partwright {

namespace {

constexpr wchar_t micro = L'\u00B5';
constexpr wchar_t ohm = L'\u03A9';
constexpr wchar_t degree = L'\u00B0';
constexpr std::size_t maximumBlanks = 8;
constexpr std::size_t maximumDigits = 15;
constexpr int maximumGroups = 4;
/// What "*" takes at most: no part number is as long, and a text without blanks stays cheap.
constexpr std::size_t maximumRest = 255;

constexpr std::wstring_view restStops = L" ,;()[]";

/// How far it is to the end of the word; none when it is longer than a part number. Bounded, so
/// that a long text without any stop takes linear time.
std::optional<std::size_t> wordLength(std::wstring_view folded, std::size_t begin) {
    const std::wstring_view word = folded.substr(begin, maximumRest + 1);
    const std::size_t length = std::min(word.find_first_of(restStops), word.size());
    return length > maximumRest ? std::nullopt : std::optional(length);
}
constexpr std::wstring_view marks[] = {L"$LOWER", L"$NOBLANK", L"$UPPER"};

bool isDigitAt(std::wstring_view text, std::size_t at) {
    return at < text.size() && isDigit(text[at]);
}

std::size_t digitsAt(std::wstring_view text, std::size_t at) {
    std::size_t count = 0;
    while (count <= maximumDigits && isDigitAt(text, at + count))
        ++count;
    return count;
}

/// "1,250,000.5": end of the number, or 0.
std::size_t endOfThousands(std::wstring_view text, std::size_t at) {
    const std::size_t lead = digitsAt(text, at);
    if (lead == 0 || lead > 3 || text[at] == L'0')
        return 0;
    std::size_t end = at + lead;
    for (int groups = 0; groups < maximumGroups && end < text.size() && text[end] == L',' &&
                         digitsAt(text, end + 1) == 3;
         ++groups)
        end += 4;
    if (end == at + lead)
        return 0;
    if (end < text.size() && text[end] == L'.' && isDigitAt(text, end + 1)) {
        const std::size_t decimals = digitsAt(text, end + 1);
        if (decimals > maximumDigits)
            return 0;
        end += 1 + decimals;
    }
    if (end < text.size() && text[end] == L',' && isDigitAt(text, end + 1))
        return 0;
    return end;
}

/// "4,7": end of the number, or 0.
std::size_t endOfDecimalComma(std::wstring_view text, std::size_t at) {
    constexpr std::size_t maximumDecimals = 6;
    const std::size_t lead = digitsAt(text, at);
    if (lead == 0 || lead > 2 || (lead == 2 && text[at] == L'0') || at + lead >= text.size() ||
        text[at + lead] != L',')
        return 0;
    const std::size_t decimals = digitsAt(text, at + lead + 1);
    const std::size_t end = at + lead + 1 + decimals;
    const bool goesOn =
        end < text.size() && (text[end] == L'.' || text[end] == L',') && isDigitAt(text, end + 1);
    return decimals == 0 || decimals > maximumDecimals || goesOn ? 0 : end;
}

} // namespace

wchar_t foldSign(wchar_t c) {
    if (static_cast<char32_t>(c) < 0x80) {
        if (c == L'\t')
            return L' ';
        return c >= L'a' && c <= L'z' ? static_cast<wchar_t>(c - 32) : c;
    }
    switch (c) {
    case L'\u03BC':
    case L'\u039C':
        return micro;
    case L'\u2126':
    case L'\u03C9':
        return ohm;
    case L'\u00BA':
    case L'\u02DA':
        return degree;
    case L'\u00D7':
        return L'X';
    case L'\uFF5E':
    case L'\u223C':
        return L'~';
    case L'\uFF0C':
        return L',';
    case L'\u00A0':
    case L'\u2009':
    case L'\u202F':
        return L' ';
    case L'\u2212':
        return L'-';
    default:
        return c >= L'\u2010' && c <= L'\u2015' ? L'-' : c;
    }
}

bool isSynonymWord(wchar_t c) {
    return isAsciiAlnum(c) || c == micro || c == ohm || c == degree;
}

SynonymText::SynonymText(std::wstring_view original) : raw(original), folded(original) {
    bool small = false;
    bool capital = false;
    bool blank = false;
    for (wchar_t& c : folded) {
        small = small || (c >= L'a' && c <= L'z');
        capital = capital || (c >= L'A' && c <= L'Z');
        c = foldSign(c);
        blank = blank || c == L' ';
    }
    const std::array absent = {!capital, !blank, !small};
    for (std::size_t i = 0; i < absent.size(); ++i)
        if (absent[i])
            marks_.push_back(marks[i]);
}

bool SynonymText::holdsAny(const std::vector<std::wstring>& words) const {
    if (!words_) {
        const auto belongs = [](wchar_t c) { return isSynonymWord(c) && c != degree; };
        const std::wstring_view text = folded;
        words_.emplace(marks_);
        for (std::size_t at = 0; at < text.size();) {
            if (!belongs(text[at])) {
                ++at;
                continue;
            }
            std::size_t end = at + 1;
            for (; end < text.size(); ++end) {
                const bool next = end + 1 < text.size() && isAsciiAlnum(text[end + 1]);
                const bool joined = text[end] == L'.' && next;
                const bool fraction =
                    text[end] == L'/' && isDigit(text[end - 1]) && isDigitAt(text, end + 1);
                if (!belongs(text[end]) && !joined && !fraction)
                    break;
            }
            words_->push_back(text.substr(at, end - at));
            at = end;
        }
        std::sort(words_->begin(), words_->end());
    }
    return std::any_of(words.begin(), words.end(), [this](const std::wstring& word) {
        return std::binary_search(words_->begin(), words_->end(), std::wstring_view(word));
    });
}

std::optional<SynonymNumber> readSynonymNumber(std::wstring_view text, std::size_t at) {
    if (const std::size_t end = endOfThousands(text, at); end != 0)
        return SynonymNumber{end, removeAll(text.substr(at, end - at), L",")};
    if (const std::size_t end = endOfDecimalComma(text, at); end != 0)
        return SynonymNumber{end, replaceAll(text.substr(at, end - at), L",", L".")};
    const std::size_t lead = digitsAt(text, at);
    if (lead > maximumDigits)
        return std::nullopt;
    std::size_t end = at + lead;
    if (end < text.size() && text[end] == L'.') {
        const std::size_t decimals = digitsAt(text, end + 1);
        if (decimals > 0 && decimals <= maximumDigits)
            end += 1 + decimals;
    }
    if (end == at)
        return std::nullopt;
    return SynonymNumber{end, (lead == 0 ? L"0" : L"") + std::wstring(text.substr(at, end - at))};
}

std::size_t endOfPartNumber(std::wstring_view folded, std::size_t begin) {
    return begin + wordLength(folded, begin).value_or(0);
}

std::optional<SynonymPattern> SynonymPattern::read(std::wstring_view find,
                                                   std::wstring_view replace) {
    SynonymPattern pattern;
    if (!pattern.readGuards(find) || !pattern.readElements(find) ||
        !pattern.readReplacement(replace) || !pattern.prepareOpenings())
        return std::nullopt;
    return pattern;
}

bool SynonymPattern::readGuards(std::wstring_view& find) {
    while (!find.empty() && find.front() == L'[') {
        const auto end = find.find(L']');
        if (end == std::wstring_view::npos)
            return false;
        std::wstring_view inside = find.substr(1, end - 1);
        Guard guard;
        guard.inverted = !inside.empty() && inside.front() == L'!';
        if (guard.inverted)
            inside.remove_prefix(1);
        for (const auto word : split(inside, L'|')) {
            std::wstring folded(trim(word));
            std::transform(folded.begin(), folded.end(), folded.begin(), foldSign);
            guard.words.push_back(std::move(folded));
        }
        guards_.push_back(std::move(guard));
        find = find.substr(end + 1);
        find.remove_prefix(std::min(find.find_first_not_of(L' '), find.size()));
    }
    return true;
}

bool SynonymPattern::readElements(std::wstring_view find) {
    constexpr std::pair<std::wstring_view, Kind> named[] = {{L"<n>", Kind::Number},
                                                            {L"<i>", Kind::Integer},
                                                            {L"<d>", Kind::Digit},
                                                            {L"<b>", Kind::SomeBlanks}};
    while (!find.empty()) {
        const auto name = std::find_if(std::begin(named), std::end(named), [&](const auto& entry) {
            return find.starts_with(entry.first);
        });
        std::size_t taken = 1;
        if (name != std::end(named)) {
            elements_.push_back({name->second, L'\0', {}});
            taken = name->first.size();
        } else if (find.front() == L'{') {
            const auto end = find.find(L'}');
            if (end == std::wstring_view::npos || !readChoice(find.substr(1, end - 1)))
                return false;
            taken = end + 1;
        } else if (find.front() == L'*' && find.size() == 1) {
            elements_.push_back({Kind::Rest, L'\0', {}});
        } else if (find.front() == L'\\') {
            if (find.size() < 2)
                return false;
            elements_.push_back({Kind::Exact, find[1], {}});
            taken = 2;
        } else {
            const bool blank = find.front() == L' ';
            elements_.push_back({blank ? Kind::Blanks : Kind::Sign, foldSign(find.front()), {}});
        }
        find.remove_prefix(taken);
    }
    return !elements_.empty();
}

bool SynonymPattern::readChoice(std::wstring_view inside) {
    Element choice;
    choice.kind = Kind::Choice;
    for (const auto text : split(inside, L'|')) {
        std::vector<Element> alternative;
        for (std::size_t i = 0; i < text.size(); ++i) {
            if (text[i] == L'\\') {
                if (++i == text.size())
                    return false;
                alternative.push_back({Kind::Exact, text[i], {}});
            } else {
                const Kind kind = text[i] == L' ' ? Kind::Blanks : Kind::Sign;
                alternative.push_back({kind, foldSign(text[i]), {}});
            }
        }
        choice.choices.push_back(std::move(alternative));
    }
    elements_.push_back(std::move(choice));
    return true;
}

bool SynonymPattern::readReplacement(std::wstring_view replace) {
    const auto captures = std::count_if(elements_.begin(), elements_.end(), [](const Element& it) {
        return it.kind == Kind::Number || it.kind == Kind::Integer || it.kind == Kind::Digit;
    });
    Piece piece;
    for (std::size_t i = 0; i < replace.size(); ++i) {
        const bool reference =
            replace[i] == L'<' && i + 2 < replace.size() && replace[i + 2] == L'>' &&
            std::wstring_view(L"0123456789nidu").find(replace[i + 1]) != std::wstring_view::npos;
        if (!reference) {
            piece.text += replace[i];
            continue;
        }
        const wchar_t name = replace[i + 1];
        piece.capture = isDigit(name) ? name - L'0' : name == L'u' ? Piece::foldedMatch : 1;
        if (piece.capture > captures)
            return false;
        pieces_.push_back(std::move(piece));
        piece = Piece();
        i += 2;
    }
    pieces_.push_back(std::move(piece));
    return true;
}

SynonymPattern::Lead SynonymPattern::lead() const {
    const Kind kind = elements_.front().kind;
    return kind == Kind::Number    ? Lead::Number
           : kind == Kind::Integer ? Lead::Integer
                                   : Lead::Other;
}

bool SynonymPattern::addFirst(std::size_t index, CharacterMask& mask) const {
    for (; index < elements_.size(); ++index) {
        const Element& element = elements_[index];
        switch (element.kind) {
        case Kind::Sign:
            mask.add(element.sign);
            return false;
        case Kind::Exact:
            mask.add(foldSign(element.sign));
            return false;
        case Kind::Blanks:
            mask.add(L' ');
            break;
        case Kind::SomeBlanks:
            // Blanks may have been passed over already where this is asked behind a number.
            mask.addAll();
            return false;
        case Kind::Number:
            mask.add(L'.');
            [[fallthrough]];
        case Kind::Integer:
        case Kind::Digit:
            for (wchar_t c = L'0'; c <= L'9'; ++c)
                mask.add(c);
            return false;
        case Kind::Choice: {
            bool nothing = false;
            for (const auto& alternative : element.choices) {
                if (alternative.empty() || alternative.front().kind == Kind::Blanks)
                    nothing = true;
                else
                    mask.add(foldSign(alternative.front().sign));
                if (!alternative.empty() && alternative.front().kind == Kind::Blanks)
                    mask.addAll();
            }
            if (!nothing)
                return false;
            break;
        }
        case Kind::Rest:
            mask.addAll();
            return true;
        }
    }
    mask.addAll();
    return true;
}

bool SynonymPattern::prepareOpenings() {
    const Element& front = elements_.front();
    if (front.kind != Kind::Choice) {
        if (front.kind == Kind::Blanks || front.kind == Kind::SomeBlanks ||
            front.kind == Kind::Rest)
            return false;
        Opening opening;
        addFirst(0, opening.first);
        addFirst(1, opening.next);
        openings_.push_back(opening);
        return true;
    }
    for (const auto& alternative : front.choices) {
        if (alternative.empty() || alternative.front().kind == Kind::Blanks)
            return false;
        Opening opening;
        opening.first.add(foldSign(alternative.front().sign));
        if (alternative.size() == 1)
            addFirst(1, opening.next);
        else if (alternative[1].kind == Kind::Blanks)
            opening.next.addAll();
        else
            opening.next.add(foldSign(alternative[1].sign));
        openings_.push_back(opening);
    }
    return true;
}

bool SynonymPattern::guardsHold(const SynonymText& text) const {
    return std::all_of(guards_.begin(), guards_.end(), [&](const Guard& guard) {
        return text.holdsAny(guard.words) != guard.inverted;
    });
}

bool SynonymPattern::matchElement(const Element& element, const SynonymText& text, std::size_t& at,
                                  SynonymMatch& result) const {
    const std::wstring_view folded = text.folded;
    const bool atEnd = at >= folded.size();
    switch (element.kind) {
    case Kind::Sign:
    case Kind::Exact:
        if (atEnd || (element.kind == Kind::Sign ? folded : text.raw)[at] != element.sign)
            return false;
        ++at;
        return true;
    case Kind::SomeBlanks:
        if (atEnd || folded[at] != L' ')
            return false;
        [[fallthrough]];
    case Kind::Blanks:
        for (std::size_t n = 0; n < maximumBlanks && at < folded.size() && folded[at] == L' '; ++n)
            ++at;
        return true;
    case Kind::Number: {
        auto number = readSynonymNumber(folded, at);
        if (!number)
            return false;
        at = number->end;
        result.captures.push_back(std::move(number->digits));
        return true;
    }
    case Kind::Integer:
    case Kind::Digit: {
        const std::size_t digits = digitsAt(folded, at);
        if (digits == 0 || (element.kind == Kind::Integer && digits > maximumDigits))
            return false;
        const std::size_t taken = element.kind == Kind::Digit ? 1 : digits;
        result.captures.emplace_back(folded.substr(at, taken));
        at += taken;
        return true;
    }
    case Kind::Choice:
        return std::any_of(
            element.choices.begin(), element.choices.end(), [&](const auto& alternative) {
                std::size_t place = at;
                if (!std::all_of(alternative.begin(), alternative.end(), [&](const Element& it) {
                        return matchElement(it, text, place, result);
                    }))
                    return false;
                at = place;
                return true;
            });
    case Kind::Rest: {
        const auto length = wordLength(folded, at);
        at += length.value_or(0);
        return length.has_value();
    }
    }
    return false;
}

std::vector<std::wstring> SynonymPattern::samplesOf(const Element& element) {
    switch (element.kind) {
    case Kind::Sign:
    case Kind::Exact:
        return {std::wstring(1, element.sign)};
    case Kind::Blanks:
        return {L"", L" "};
    case Kind::SomeBlanks:
        return {L" "};
    case Kind::Number:
        return {L"4.7", L"10", L"0.1", L"100", L"22", L"330", L"5.6", L"68", L"7.5", L"82", L"9"};
    case Kind::Integer:
        return {L"10", L"3", L"2200", L"47", L"56", L"68", L"75", L"8", L"9012", L"0"};
    case Kind::Digit:
        return {L"5", L"1", L"0", L"2", L"3", L"4", L"6", L"7", L"8", L"9"};
    case Kind::Rest:
        return {L"1", L"A1", L""};
    case Kind::Choice:
        break;
    }
    std::vector<std::wstring> texts;
    for (const auto& alternative : element.choices) {
        std::wstring text;
        for (const Element& one : alternative)
            text += samplesOf(one).back();
        texts.push_back(std::move(text));
    }
    return texts;
}

std::vector<std::wstring> SynonymPattern::samples(std::size_t limit) const {
    std::vector<std::vector<std::wstring>> options;
    std::size_t combinations = 1;
    for (const Element& element : elements_) {
        options.push_back(samplesOf(element));
        combinations = std::min(combinations * options.back().size(), limit + 1);
    }
    std::vector<std::wstring> texts;
    for (std::size_t i = 0; i < std::min(combinations, limit); ++i) {
        // All of them count through like a number; too many are picked here and there.
        std::size_t rest = combinations > limit ? i * 2654435761U : i;
        std::wstring text;
        for (const auto& option : options) {
            text += option[rest % option.size()];
            rest /= option.size();
            if (combinations > limit && rest == 0)
                rest = i + 1;
        }
        texts.push_back(std::move(text));
    }
    return texts;
}

std::vector<std::vector<std::wstring>> SynonymPattern::wantedWords() const {
    std::vector<std::vector<std::wstring>> words;
    for (const Guard& guard : guards_)
        if (!guard.inverted)
            words.push_back(guard.words);
    return words;
}

std::vector<std::wstring> SynonymPattern::forbiddenWords() const {
    std::vector<std::wstring> words;
    for (const Guard& guard : guards_)
        if (guard.inverted)
            words.insert(words.end(), guard.words.begin(), guard.words.end());
    return words;
}

bool SynonymPattern::endsWell(std::wstring_view folded, std::size_t begin, std::size_t end) const {
    if (elements_.back().kind == Kind::Rest)
        return holdsDigit(folded.substr(begin, end - begin));
    if (end >= folded.size() || !isSynonymWord(folded[end - 1]))
        return true;
    const wchar_t next = folded[end];
    if (isSynonymWord(next))
        return false;
    if (!isDigit(folded[end - 1]) || !isDigitAt(folded, end + 1))
        return true;
    const bool startsAsNumber = isDigit(folded[begin]) || folded[begin] == L'.';
    return next != L'.' && !(startsAsNumber && (next == L'-' || next == L'~'));
}

bool SynonymPattern::match(const SynonymText& text, std::size_t at,
                           const std::optional<SynonymNumber>& number, SynonymMatch& result) const {
    result.captures.clear();
    std::size_t end = at;
    auto element = elements_.begin();
    if (element->kind == Kind::Number) {
        if (!number)
            return false;
        end = number->end;
        result.captures.push_back(number->digits);
        ++element;
    }
    for (; element != elements_.end(); ++element)
        if (!matchElement(*element, text, end, result))
            return false;
    while (end > at && text.folded[end - 1] == L' ')
        --end;
    if (end == at || !endsWell(text.folded, at, end) || !guardsHold(text))
        return false;
    result.end = end;
    return true;
}

void SynonymPattern::appendReplacement(const SynonymText& text, std::size_t begin,
                                       const SynonymMatch& match, std::wstring& target) const {
    for (const Piece& piece : pieces_) {
        target += piece.text;
        const auto whole = text.raw.substr(begin, match.end - begin);
        if (piece.capture == 0)
            target += whole;
        else if (piece.capture == Piece::foldedMatch)
            target += std::wstring_view(text.folded).substr(begin, match.end - begin);
        else if (piece.capture > 0)
            target += match.captures[static_cast<std::size_t>(piece.capture - 1)];
    }
}

} // namespace partwright
