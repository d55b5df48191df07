#include "core/regular_expression_tree.h"

#include <algorithm>
#include <limits>
#include <locale>
#include <regex>

namespace partwright::regex {

namespace {

constexpr char32_t lastCharacter = std::numeric_limits<char32_t>::max();

using Traits = std::regex_traits<wchar_t>;

const Traits& classicTraits() {
    static const Traits traits = [] {
        Traits made;
        made.imbue(std::locale::classic());
        return made;
    }();
    return traits;
}

/// The classes of the classic locale hold ASCII characters only.
void addClass(CharacterSet& set, const std::wstring& name, bool inverted) {
    const Traits& traits = classicTraits();
    const auto mask = traits.lookup_classname(name.begin(), name.end());
    for (char32_t c = 0; c < 128; ++c)
        if (traits.isctype(static_cast<wchar_t>(c), mask) != inverted)
            set.add(c, c);
    if (inverted)
        set.add(128, lastCharacter);
}

wchar_t collatingElement(const std::wstring& name) {
    const auto found = classicTraits().lookup_collatename(name.begin(), name.end());
    return found.empty() ? L'\0' : found.front();
}

/// Reads one expression from left to right.
class Reader {
public:
    explicit Reader(const std::wstring& text) : text_(text) {}

    Tree read() {
        tree_.root = alternatives();
        return std::move(tree_);
    }

private:
    [[nodiscard]] bool atEnd() const { return at_ >= text_.size(); }
    [[nodiscard]] wchar_t peek() const { return atEnd() ? L'\0' : text_[at_]; }
    bool take(wchar_t c) {
        if (atEnd() || text_[at_] != c)
            return false;
        ++at_;
        return true;
    }

    std::int32_t add(Node node) {
        tree_.nodes.push_back(std::move(node));
        return static_cast<std::int32_t>(tree_.nodes.size() - 1);
    }
    std::int32_t addPlain(NodeKind kind) {
        Node node;
        node.kind = kind;
        return add(std::move(node));
    }
    std::int32_t addSet(CharacterSet set, bool inverted) {
        set.finish(inverted);
        tree_.sets.push_back(std::move(set));
        Node node;
        node.kind = NodeKind::Set;
        node.index = static_cast<std::int32_t>(tree_.sets.size() - 1);
        return add(std::move(node));
    }
    std::int32_t addCharacter(wchar_t c) {
        CharacterSet set;
        set.add(static_cast<char32_t>(c), static_cast<char32_t>(c));
        return addSet(std::move(set), false);
    }

    std::int32_t alternatives() {
        Node node;
        node.kind = NodeKind::Alternatives;
        node.children.push_back(sequence());
        while (take(L'|'))
            node.children.push_back(sequence());
        return node.children.size() == 1 ? node.children.front() : add(std::move(node));
    }

    std::int32_t sequence() {
        Node node;
        while (!atEnd() && peek() != L'|' && peek() != L')')
            node.children.push_back(term());
        return node.children.size() == 1 ? node.children.front() : add(std::move(node));
    }

    std::int32_t term() {
        if (take(L'^'))
            return addPlain(NodeKind::LineBegin);
        if (take(L'$'))
            return addPlain(NodeKind::LineEnd);
        if (peek() == L'\\' && at_ + 1 < text_.size()) {
            const wchar_t next = text_[at_ + 1];
            if (next == L'b' || next == L'B') {
                at_ += 2;
                return addPlain(next == L'b' ? NodeKind::WordBoundary : NodeKind::NoWordBoundary);
            }
        }
        std::int32_t node = 0;
        bool assertion = false;
        if (peek() == L'(')
            node = group(assertion);
        else
            node = atom();
        return assertion ? node : quantified(node);
    }

    std::int32_t group(bool& assertion) {
        ++at_;
        Node node;
        node.kind = NodeKind::Group;
        if (take(L'?')) {
            const wchar_t kind = text_[at_++];
            assertion = kind != L':';
            if (assertion) {
                node.kind = kind == L'=' ? NodeKind::LookAhead : NodeKind::NegativeLookAhead;
                tree_.hasLookAhead = true;
            }
        } else {
            node.index = ++tree_.groups;
        }
        node.children.push_back(alternatives());
        take(L')');
        return add(std::move(node));
    }

    std::int32_t atom() {
        const wchar_t c = text_[at_];
        if (c == L'[')
            return bracket();
        if (c == L'\\')
            return escape();
        ++at_;
        if (c != L'.')
            return addCharacter(c);
        CharacterSet lineEnds;
        for (const char32_t end : {U'\n', U'\r', U'\u2028', U'\u2029'})
            lineEnds.add(end, end);
        return addSet(std::move(lineEnds), true);
    }

    std::int32_t escape() {
        const wchar_t c = text_[at_ + 1];
        if (isClassLetter(c)) {
            at_ += 2;
            CharacterSet set;
            addClass(set, std::wstring(1, c), false);
            return addSet(std::move(set), c < L'a');
        }
        if (c >= L'1' && c <= L'9') {
            ++at_;
            Node node;
            node.kind = NodeKind::BackReference;
            node.index = static_cast<std::int32_t>(number());
            tree_.hasBackReference = true;
            return add(std::move(node));
        }
        return addCharacter(escapedCharacter());
    }

    static bool isClassLetter(wchar_t c) {
        return std::wstring_view(L"dDsSwW").find(c) != std::wstring_view::npos;
    }

    /// A single character written with a backslash, which stands at the cursor.
    wchar_t escapedCharacter() {
        ++at_;
        const wchar_t c = text_[at_++];
        switch (c) {
        case L'0':
            return L'\0';
        case L'b':
            return L'\b';
        case L'f':
            return L'\f';
        case L'n':
            return L'\n';
        case L'r':
            return L'\r';
        case L't':
            return L'\t';
        case L'v':
            return L'\v';
        case L'c':
            return text_[at_++];
        case L'x':
            return hexadecimal(2);
        case L'u':
            return hexadecimal(4);
        default:
            return c;
        }
    }

    wchar_t hexadecimal(int digits) {
        std::int32_t value = 0;
        for (int i = 0; i < digits; ++i)
            value = value * 16 + classicTraits().value(text_[at_++], 16);
        return static_cast<wchar_t>(value);
    }

    /// Kept to 32 bits, as the standard library does.
    std::int64_t number() {
        std::int64_t value = 0;
        while (peek() >= L'0' && peek() <= L'9')
            value = value * 10 + (text_[at_++] - L'0');
        return static_cast<std::int32_t>(value);
    }

    std::int32_t quantified(std::int32_t node) {
        Node repeat;
        repeat.kind = NodeKind::Repeat;
        Quantifier next;
        while (quantifier(next))
            if (saysMore(repeat.quantifiers, next))
                repeat.quantifiers.push_back(next);
        if (repeat.quantifiers.empty())
            return node;
        repeat.children.push_back(node);
        return add(std::move(repeat));
    }

    bool quantifier(Quantifier& result) {
        result = {};
        if (take(L'*')) {
            result.optional = -1;
        } else if (take(L'+')) {
            result.required = 1;
            result.optional = -1;
        } else if (take(L'?')) {
            result.optional = 1;
        } else if (take(L'{')) {
            const std::int64_t least = number();
            if (take(L','))
                result.optional = peek() == L'}' ? -1 : number() - least;
            result.required = std::max<std::int64_t>(least, 0);
            take(L'}');
        } else {
            return false;
        }
        result.lazy = take(L'?');
        return true;
    }

    /// Thousands of "{1}" say nothing, and thousands of the same "*", "+" or "?" no more than one.
    static bool saysMore(const std::vector<Quantifier>& before, const Quantifier& next) {
        if (next.required == 1 && next.optional == 0)
            return false;
        const bool idempotent =
            next.optional < 0 ? next.required <= 1 : next.required == 0 && next.optional <= 1;
        return !idempotent || before.empty() || !(before.back() == next);
    }

    /// What the last thing read inside of a bracket was: only a character can start a range.
    struct Pending {
        CharacterSet& set;
        bool held = false;
        wchar_t character = L'\0';

        void flush() {
            if (held)
                set.add(static_cast<char32_t>(character), static_cast<char32_t>(character));
            held = false;
        }
        void push(wchar_t c) {
            flush();
            held = true;
            character = c;
        }
    };

    std::int32_t bracket() {
        ++at_;
        const bool inverted = take(L'^');
        CharacterSet set;
        Pending pending{set};
        while (!atEnd() && peek() != L']')
            bracketTerm(pending);
        pending.flush();
        take(L']');
        return addSet(std::move(set), inverted);
    }

    void bracketTerm(Pending& pending) {
        if (peek() == L'-' && pending.held && at_ + 1 < text_.size() && text_[at_ + 1] != L']') {
            ++at_;
            const auto first = static_cast<char32_t>(pending.character);
            pending.held = false;
            pending.set.add(first, static_cast<char32_t>(bracketCharacter()));
        } else if (peek() == L'\\' && isClassLetter(text_[at_ + 1])) {
            pending.flush();
            const wchar_t name = text_[at_ + 1];
            addClass(pending.set, std::wstring(1, name), name < L'a');
            at_ += 2;
        } else if (const wchar_t kind = namedKind(); kind != L'\0') {
            bracketName(pending, kind);
        } else {
            pending.push(bracketCharacter());
        }
    }

    wchar_t bracketCharacter() { return peek() == L'\\' ? escapedCharacter() : text_[at_++]; }

    /// ':', '=' or '.' of "[:name:]" and its kin, NUL for anything else.
    [[nodiscard]] wchar_t namedKind() const {
        if (peek() != L'[' || at_ + 1 >= text_.size())
            return L'\0';
        const wchar_t kind = text_[at_ + 1];
        return kind == L':' || kind == L'=' || kind == L'.' ? kind : L'\0';
    }

    void bracketName(Pending& pending, wchar_t kind) {
        const auto end = text_.find(kind, at_ + 2);
        const std::wstring name = text_.substr(at_ + 2, end - at_ - 2);
        at_ = end + 2;
        if (kind == L'.') {
            pending.push(collatingElement(name));
            return;
        }
        pending.flush();
        if (kind == L':') {
            addClass(pending.set, name, false);
            return;
        }
        // Equal but for the case of letters.
        const wchar_t element = collatingElement(name);
        const auto& ctype = std::use_facet<std::ctype<wchar_t>>(std::locale::classic());
        for (const wchar_t c : {element, ctype.tolower(element), ctype.toupper(element)})
            pending.set.add(static_cast<char32_t>(c), static_cast<char32_t>(c));
    }

    const std::wstring& text_;
    std::size_t at_ = 0;
    Tree tree_;
};

} // namespace

void CharacterSet::add(char32_t first, char32_t last) {
    // Characters are signed numbers where wchar_t is: a range from a broken one wraps around.
    if (first > last) {
        ranges_.emplace_back(first, lastCharacter);
        first = 0;
    }
    ranges_.emplace_back(first, last);
}

void CharacterSet::finish(bool inverted) {
    std::sort(ranges_.begin(), ranges_.end());
    std::vector<std::pair<char32_t, char32_t>> joined;
    for (const auto& range : ranges_) {
        if (!joined.empty() &&
            (joined.back().second == lastCharacter || range.first <= joined.back().second + 1))
            joined.back().second = std::max(joined.back().second, range.second);
        else
            joined.push_back(range);
    }
    if (inverted) {
        std::vector<std::pair<char32_t, char32_t>> gaps;
        char32_t next = 0;
        bool full = false;
        for (const auto& [first, last] : joined) {
            if (first > next)
                gaps.emplace_back(next, first - 1);
            full = last == lastCharacter;
            next = last + 1;
        }
        if (!full)
            gaps.emplace_back(next, lastCharacter);
        joined = std::move(gaps);
    }
    ranges_ = std::move(joined);
    for (const auto& [first, last] : ranges_)
        for (char32_t c = first; c <= last && c < 128; ++c)
            ascii_.set(c);
}

bool CharacterSet::contains(wchar_t character) const {
    const auto c = static_cast<char32_t>(character);
    if (c < 128)
        return ascii_[c];
    const auto above =
        std::upper_bound(ranges_.begin(), ranges_.end(), c,
                         [](char32_t value, const auto& range) { return value < range.first; });
    return above != ranges_.begin() && std::prev(above)->second >= c;
}

Tree readTree(const std::wstring& text) {
    return Reader(text).read();
}

} // namespace partwright::regex
