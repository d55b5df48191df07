#include "tablecheck/measure.h"

#include "core/number.h"
#include "core/text.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace partwright {

namespace {

constexpr std::wstring_view volt = L"volt";
constexpr std::wstring_view ampere = L"ampere";
constexpr std::wstring_view watt = L"watt";
constexpr std::wstring_view farad = L"farad";
constexpr std::wstring_view henry = L"henry";
constexpr std::wstring_view hertz = L"hertz";
constexpr std::wstring_view ohm = L"ohm";
constexpr std::wstring_view siemens = L"siemens";
constexpr std::wstring_view decibel = L"decibel";
constexpr std::wstring_view celsius = L"degree Celsius";
constexpr std::wstring_view celsiusPerWatt = L"degree Celsius per watt";
constexpr std::wstring_view second = L"second";

struct Spelling {
    std::wstring_view text;
    Measure measure;
};

/// Units without a prefix, as they stand behind a number.
constexpr Spelling baseUnits[] = {
    {L"V", {volt}},       {L"v", {volt}},     {L"VOLT", {volt}},  {L"VDC", {volt}},
    {L"Vdc", {volt}},     {L"VAC", {volt}},   {L"Vac", {volt}},   {L"Vrms", {volt}},
    {L"VRMS", {volt}},    {L"A", {ampere}},   {L"a", {ampere}},   {L"W", {watt}},
    {L"VA", {watt}},      {L"F", {farad}},    {L"f", {farad}},    {L"H", {henry}},
    {L"Hz", {hertz}},     {L"HZ", {hertz}},   {L"ohm", {ohm}},    {L"Ohm", {ohm}},
    {L"OHM", {ohm}},      {L"R", {ohm}},      {L"E", {ohm}},      {L"S", {siemens}},
    {L"mhos", {siemens}}, {L"dB", {decibel}}, {L"DB", {decibel}}, {L"db", {decibel}},
    {L"C", {celsius}},    {L"°C", {celsius}}, {L"'C", {celsius}},
};

/// What a message calls its unit.
constexpr Spelling messageUnits[] = {
    {L"V", {volt}},
    {L"A", {ampere}},
    {L"mA", {ampere, 1e-3}},
    {L"W", {watt}},
    {L"VA", {watt}},
    {L"F", {farad}},
    {L"pF", {farad, 1e-12}},
    {L"microfarad", {farad, 1e-6}},
    {L"microhenry", {henry, 1e-6}},
    {L"Hz", {hertz}},
    {L"MHz", {hertz, 1e6}},
    {L"GHz", {hertz, 1e9}},
    {L"Ohm", {ohm}},
    {L"mS", {siemens, 1e-3}},
    {L"dB", {decibel}},
    {L"degrees Celsius", {celsius}},
    {L"degrees Celsius per W", {celsiusPerWatt}},
    {L"microsecond", {second, 1e-6}},
};

struct Prefix {
    wchar_t letter;
    double scale;
};
constexpr Prefix prefixes[] = {
    {L'p', 1e-12}, {L'P', 1e-12}, {L'n', 1e-9}, {L'N', 1e-9}, {L'u', 1e-6}, {L'U', 1e-6},
    {L'µ', 1e-6},  {L'm', 1e-3},  {L'k', 1e3},  {L'K', 1e3},  {L'M', 1e6},  {L'G', 1e9},
};

std::optional<Measure> find(std::span<const Spelling> spellings, std::wstring_view text) {
    for (const Spelling& spelling : spellings)
        if (spelling.text == text)
            return spelling.measure;
    return std::nullopt;
}

/// In capitals "MW" may be milliwatt as well as megawatt; only a frequency is clear.
bool isClear(wchar_t prefix, const Measure& unit) {
    return prefix != L'M' || unit.base == hertz;
}

std::optional<Measure> spelledUnit(std::wstring_view name) {
    constexpr std::wstring_view slash = L"/";
    if (name.starts_with(slash))
        name.remove_prefix(1);
    if (name.ends_with(slash))
        name.remove_suffix(1);
    if (const auto whole = find(baseUnits, name))
        return whole;
    if (name.size() < 2)
        return std::nullopt;
    for (const Prefix& prefix : prefixes)
        if (prefix.letter == name.front())
            if (auto unit = find(baseUnits, name.substr(1));
                unit && isClear(prefix.letter, *unit)) {
                unit->scale = prefix.scale;
                return unit;
            }
    return std::nullopt;
}

} // namespace

bool Measure::isSameAs(const Measure& other) const {
    constexpr double tolerance = 1e-6;
    return base == other.base && std::abs(scale - other.scale) <= tolerance * other.scale;
}

std::wstring Measure::text() const {
    return scale == 1 ? std::wstring(base) : formatGeneral(scale, L'.') + L" " + std::wstring(base);
}

std::optional<Measure> unitOfList(std::span<const std::wstring> names,
                                  std::span<const std::wstring> factors) {
    std::vector<Measure> known;
    for (std::size_t i = 0; i < names.size() && i < factors.size(); ++i) {
        const auto factor = wholeNumber(factors[i], L'.');
        auto unit = spelledUnit(names[i]);
        if (!unit || !factor || *factor <= 0)
            continue;
        unit->scale /= *factor;
        known.push_back(*unit);
    }
    if (2 * known.size() < names.size() || known.empty())
        return std::nullopt;
    const auto votes = [&known](const Measure& unit) {
        return std::count_if(known.begin(), known.end(),
                             [&unit](const Measure& other) { return unit.isSameAs(other); });
    };
    return *std::max_element(
        known.begin(), known.end(),
        [&votes](const Measure& a, const Measure& b) { return votes(a) < votes(b); });
}

std::optional<Measure> unitOfMessage(std::wstring_view message) {
    std::optional<Measure> last;
    while (!message.empty()) {
        const auto end = std::min(message.find_first_of(L",;"), message.size());
        if (const auto unit = find(messageUnits, trim(message.substr(0, end))))
            last = unit;
        message.remove_prefix(std::min(end + 1, message.size()));
    }
    return last;
}

} // namespace partwright
