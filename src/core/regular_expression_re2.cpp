#include "core/regular_expression_re2.h"

#include "core/text.h"

#include <algorithm>
#include <array>
#include <limits>

namespace partwright::regex {

namespace {

constexpr char32_t lastCodePoint = 0x10FFFF;
/// Instructions: at worst some microseconds a character.
constexpr std::size_t maximumSize = 10'000;

class Writer {
public:
    explicit Writer(const Tree& tree) : tree_(tree) {}

    std::string write() {
        node(tree_.root);
        return std::move(out_);
    }

private:
    void node(std::int32_t index) {
        const Node& it = tree_.at(index);
        switch (it.kind) {
        case NodeKind::Set:
            set(tree_.sets[static_cast<std::size_t>(it.index)]);
            break;
        case NodeKind::Sequence:
            for (const auto child : it.children)
                node(child);
            break;
        case NodeKind::Alternatives:
        case NodeKind::Group:
            alternatives(it);
            break;
        case NodeKind::Repeat:
            for (std::size_t i = 0; i < it.quantifiers.size(); ++i)
                out_ += "(?:";
            node(it.children.front());
            for (const Quantifier& quantifier : it.quantifiers)
                out_ += ')' + written(quantifier);
            break;
        case NodeKind::LineBegin:
            out_ += "\\A";
            break;
        case NodeKind::LineEnd:
            out_ += "\\z";
            break;
        case NodeKind::WordBoundary:
            out_ += "\\b";
            break;
        case NodeKind::NoWordBoundary:
            out_ += "\\B";
            break;
        case NodeKind::LookAhead:
        case NodeKind::NegativeLookAhead:
        case NodeKind::BackReference:
            break;
        }
    }

    void alternatives(const Node& it) {
        out_ += "(?:";
        for (std::size_t i = 0; i < it.children.size(); ++i) {
            if (i > 0)
                out_ += '|';
            node(it.children[i]);
        }
        out_ += ')';
    }

    static std::string written(const Quantifier& it) {
        const std::string least = std::to_string(it.required);
        if (it.optional < 0)
            return it.required == 0 ? "*" : it.required == 1 ? "+" : '{' + least + ",}";
        return '{' + least + ',' + std::to_string(it.required + it.optional) + '}';
    }

    void set(const CharacterSet& it) {
        const auto& ranges = it.ranges();
        if (ranges.size() == 1 && ranges.front().first == ranges.front().second &&
            isAsciiAlnum(static_cast<wchar_t>(ranges.front().first))) {
            out_ += static_cast<char>(ranges.front().first);
            return;
        }
        const std::size_t begin = out_.size();
        for (const auto& [first, last] : ranges)
            if (first <= lastCodePoint)
                out_ += codePoint(first) + '-' + codePoint(std::min(last, lastCodePoint));
        const bool nothing = out_.size() == begin;
        out_.insert(begin, nothing ? "[^\\x{0}-\\x{10FFFF}" : "[");
        out_ += ']';
    }

    static std::string codePoint(char32_t c) {
        constexpr char digits[] = "0123456789ABCDEF";
        std::string text = "}";
        do
            text += digits[c % 16];
        while ((c /= 16) != 0);
        text += "{x\\";
        std::reverse(text.begin(), text.end());
        return text;
    }

    const Tree& tree_;
    std::string out_;
};

/// Stays below the largest number.
std::size_t times(std::size_t a, std::size_t b) {
    constexpr std::size_t most = std::numeric_limits<std::uint32_t>::max();
    return std::min(std::min(a, most) * std::min(b, most), most);
}

/// About how many instructions RE2 needs, counts multiplied out.
std::size_t sizeAt(const Tree& tree, std::int32_t index) {
    const Node& it = tree.at(index);
    if (it.kind == NodeKind::Set) {
        const auto& ranges = tree.sets[static_cast<std::size_t>(it.index)].ranges();
        // Beyond ASCII a character is several bytes, and each needs some instructions.
        const bool ascii = ranges.empty() || ranges.back().second < 128;
        return ascii ? std::max<std::size_t>(ranges.size(), 1) : 20;
    }
    std::size_t size = 1;
    for (const auto child : it.children)
        size += sizeAt(tree, child);
    for (const Quantifier& quantifier : it.quantifiers)
        size =
            times(size, static_cast<std::size_t>(quantifier.required +
                                                 std::max<std::int64_t>(quantifier.optional, 1)));
    return size;
}

/// Writes one character as UTF-8 and gives the place behind it.
char* putUtf8(char* to, char32_t c) {
    c = std::min(c, lastCodePoint);
    const auto put = [&to](char32_t byte) { *to++ = static_cast<char>(byte); };
    if (c < 0x800) {
        put(0xC0 | (c >> 6));
    } else {
        if (c < 0x10000) {
            put(0xE0 | (c >> 12));
        } else {
            put(0xF0 | (c >> 18));
            put(0x80 | ((c >> 12) & 0x3F));
        }
        put(0x80 | ((c >> 6) & 0x3F));
    }
    put(0x80 | (c & 0x3F));
    return to;
}

} // namespace

std::optional<std::string> re2Pattern(const Tree& tree) {
    if (tree.hasLookAhead || tree.hasBackReference || sizeAt(tree, tree.root) > maximumSize)
        return std::nullopt;
    return Writer(tree).write();
}

re2::RE2::Options re2Options() {
    re2::RE2::Options options;
    options.set_log_errors(false);
    options.set_never_capture(true);
    return options;
}

std::string_view narrow(std::wstring_view text, Letters letters, std::string& buffer) {
    constexpr std::size_t mostBytes = 4;
    const char32_t smallLetters = letters == Letters::InCapitals ? 26 : 0;
    if (buffer.size() < text.size() * mostBytes)
        buffer.resize(text.size() * mostBytes);
    char* to = buffer.data();
    for (const wchar_t c : text) {
        const auto code = static_cast<char32_t>(c);
        if (code < 0x80)
            *to++ = static_cast<char>(code - (code - U'a' < smallLetters ? 32 : 0));
        else
            to = putUtf8(to, letters == Letters::InCapitals ? static_cast<char32_t>(upperCase(c))
                                                            : code);
    }
    return {buffer.data(), static_cast<std::size_t>(to - buffer.data())};
}

} // namespace partwright::regex
