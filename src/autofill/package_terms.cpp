#include "autofill/package_terms.h"

#include "core/text.h"

#include <algorithm>

namespace partwright {

namespace {

constexpr std::size_t shortestName = 3;
constexpr std::size_t longName = 10;

struct NamedPackage {
    const std::vector<PackageRow>* rows = nullptr;
    /// Where the name stands in the text.
    std::size_t begin = 0;
    std::size_t end = 0;
};

NamedPackage packageIn(std::wstring_view text, const PackageTable& packages) {
    for (std::size_t length = longName; length >= shortestName; --length)
        for (const auto& [name, rows] : packages) {
            if (std::min(name.size(), longName) != length)
                continue;
            const auto at = text.find(name);
            if (at != std::wstring_view::npos)
                return {&rows, at, at + name.size()};
        }
    return {};
}

/// The count that digits name; empty for none and for more than a package can have.
std::wstring countOf(std::wstring_view digits) {
    const IntegerPrefix number = readInteger(digits);
    return number.consumed == 0 || number.clamped ? std::wstring() : std::to_wstring(number.value);
}

std::wstring countBehindSeparator(std::wstring_view behind) {
    const auto digit = behind.find_first_not_of(L" -");
    if (digit == std::wstring_view::npos || digit == 0 || !isDigit(behind[digit]))
        return {};
    return countOf(behind.substr(digit));
}

std::wstring countTouching(std::wstring_view before, std::wstring_view behind) {
    if (!behind.empty() && isDigit(behind.front()))
        return countOf(behind);
    std::size_t digits = 0;
    while (digits < before.size() && isDigit(before[before.size() - 1 - digits]))
        ++digits;
    return countOf(before.substr(before.size() - digits));
}

std::wstring markedCount(const ScannedText& text, wchar_t mark) {
    static const std::wstring word[] = {L"pin"};
    static const std::wstring factor[] = {L"1"};
    static const PreparedUnits pins(word, factor);
    return pins.extract(text, mark);
}

std::wstring countFor(const ScannedText& scanned, const NamedPackage& package, wchar_t mark) {
    const std::wstring_view text = scanned.text();
    if (!package.rows)
        return markedCount(scanned, mark);
    std::wstring count = countBehindSeparator(text.substr(package.end));
    if (count.empty())
        count = markedCount(scanned, mark);
    if (count.empty() && package.rows->size() == 1 &&
        package.rows->front().pinsFrom == package.rows->front().pinsTo)
        count = std::to_wstring(package.rows->front().pinsFrom);
    if (count.empty())
        count = countTouching(text.substr(0, package.begin), text.substr(package.end));
    return count;
}

} // namespace

std::wstring pinCount(const ScannedText& text, const PackageTable& packages, wchar_t mark) {
    return countFor(text, packageIn(text.text(), packages), mark);
}

std::wstring thermalResistance(const ScannedText& text, const PackageTable& packages,
                               bool toAmbient, wchar_t mark) {
    const NamedPackage package = packageIn(text.text(), packages);
    if (!package.rows || package.rows->empty())
        return {};
    const PackageRow* row = package.rows->size() == 1 ? &package.rows->front() : nullptr;
    if (!row) {
        const std::wstring count = countFor(text, package, mark);
        if (count.empty())
            return {};
        const std::int32_t pins = toInteger(count);
        const auto found =
            std::find_if(package.rows->begin(), package.rows->end(), [&](const PackageRow& r) {
                return r.pinsFrom <= pins && pins <= r.pinsTo;
            });
        row = found == package.rows->end() ? nullptr : &*found;
    }
    if (!row || row->thetaJa <= 0)
        return {};
    return formatGeneral(toAmbient ? row->thetaJa : row->thetaJc, mark);
}

} // namespace partwright
