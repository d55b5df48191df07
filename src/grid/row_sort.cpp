#include "grid/row_sort.h"

#include <QChar>
#include <algorithm>
#include <bit>
#include <charconv>
#include <limits>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>

namespace partwright::grid {

namespace {

enum Group : quint8 { numbers, texts, empties };

/// `head` holds the first part of the key so that most comparisons need nothing else: a number's
/// order-preserving bits, or the first four units of a text.
struct Key {
    quint64 head = 0;
    quint32 begin = 0;
    quint32 length = 0;
    quint32 position = 0;
    Group group = empties;
};

constexpr std::size_t headUnits = 4;

bool isDigit(QChar c) {
    return c >= u'0' && c <= u'9';
}

std::optional<double> asNumber(const QString& text, char16_t decimalPoint) {
    char buffer[64] = {};
    std::size_t length = 0;
    const QStringView view = QStringView(text).trimmed();
    if (view.isEmpty() || view.size() > static_cast<qsizetype>(sizeof buffer))
        return std::nullopt;
    for (const QChar c : view) {
        const bool part = isDigit(c) || c == u'+' || c == u'-' || c == u'e' || c == u'E';
        if (!part && c != decimalPoint)
            return std::nullopt;
        buffer[length++] = part ? static_cast<char>(c.unicode()) : '.';
    }
    const char* first = buffer[0] == '+' ? buffer + 1 : buffer;
    const char* const last = buffer + length;
    if (first == last || *first == '+' || (first != buffer && *first == '-'))
        return std::nullopt;
    double value = 0;
    const auto [end, error] = std::from_chars(first, last, value);
    if (end != last || error == std::errc::invalid_argument)
        return std::nullopt;
    if (error == std::errc::result_out_of_range) {
        const std::string_view written(first, static_cast<std::size_t>(last - first));
        const bool tiny = written.find("e-") != written.npos || written.find("E-") != written.npos;
        constexpr double largest = std::numeric_limits<double>::max();
        value = tiny ? 0 : *first == '-' ? -largest : largest;
    }
    return value;
}

quint64 orderedBits(double value) {
    constexpr quint64 sign = quint64{1} << 63;
    const auto bits = std::bit_cast<quint64>(value == 0 ? 0.0 : value);
    return (bits & sign) != 0 ? ~bits : bits | sign;
}

/// Appends the key of a text. A run of digits becomes a unit that sorts where digits do, the number
/// of its digits, and the digits without leading zeros.
void appendTextKey(const QString& text, std::u16string& arena) {
    for (qsizetype i = 0; i < text.size();) {
        if (!isDigit(text[i])) {
            arena.push_back(text[i].toCaseFolded().unicode());
            ++i;
            continue;
        }
        while (i + 1 < text.size() && text[i] == u'0' && isDigit(text[i + 1]))
            ++i;
        const qsizetype start = i;
        while (i < text.size() && isDigit(text[i]))
            ++i;
        arena.push_back(u'0');
        arena.push_back(static_cast<char16_t>(std::min<qsizetype>(i - start, 0xFFFF)));
        for (qsizetype k = start; k < i; ++k)
            arena.push_back(text[k].unicode());
    }
}

quint64 headOf(const std::u16string& arena, const Key& key) {
    quint64 head = 0;
    for (std::size_t i = 0; i < headUnits; ++i)
        head = (head << 16) | (i < key.length ? arena[key.begin + i] : u'\0');
    return head;
}

SortMode resolve(SortMode mode, const std::vector<QString>& list, char16_t decimalPoint) {
    if (mode != SortMode::Automatic)
        return mode;
    bool any = false;
    for (const QString& text : list) {
        if (std::none_of(text.begin(), text.end(), isDigit))
            continue;
        if (!asNumber(text, decimalPoint))
            return SortMode::Text;
        any = true;
    }
    return any ? SortMode::Number : SortMode::Text;
}

struct Before {
    const std::u16string& arena;

    bool operator()(const Key& a, const Key& b) const {
        if (a.group != b.group)
            return a.group < b.group;
        if (a.head != b.head)
            return a.head < b.head;
        if (a.group != texts)
            return false;
        const std::u16string_view all(arena);
        return all.substr(a.begin, a.length) < all.substr(b.begin, b.length);
    }
};

} // namespace

std::vector<quint32> sortedOrder(const std::vector<QString>& list, const SortRule& rule) {
    const SortMode mode = resolve(rule.mode, list, rule.decimalPoint);
    std::vector<Key> keys(list.size());
    std::u16string arena;
    for (std::size_t i = 0; i < list.size(); ++i) {
        Key& key = keys[i];
        key.position = static_cast<quint32>(i);
        if (list[i].isEmpty())
            continue;
        const auto number =
            mode == SortMode::Number ? asNumber(list[i], rule.decimalPoint) : std::nullopt;
        if (number) {
            key.group = numbers;
            key.head = orderedBits(*number);
            continue;
        }
        key.group = texts;
        key.begin = static_cast<quint32>(arena.size());
        appendTextKey(list[i], arena);
        key.length = static_cast<quint32>(arena.size() - key.begin);
        key.head = headOf(arena, key);
    }
    const Before before{arena};
    if (rule.order == SortOrder::Ascending)
        std::stable_sort(keys.begin(), keys.end(), before);
    else
        std::stable_sort(keys.begin(), keys.end(),
                         [&](const Key& a, const Key& b) { return before(b, a); });
    std::vector<quint32> order;
    order.reserve(keys.size());
    for (const Key& key : keys)
        order.push_back(key.position);
    return order;
}

} // namespace partwright::grid
