// A rule of any text in the first line over a description of any text in the others: the prepared
// rule must answer as the plain evaluation does.

#include "autofill/literal_rules.h"
#include "autofill/rule_language.h"
#include "core/encoding.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>

namespace {

const partwright::UnitTable& units() {
    struct Row {
        std::wstring_view key, name, value;
    };
    static constexpr Row rows[] = {
        {L"V", L"kV", L"1000"},   {L"V", L"V/", L"1"},      {L"V", L"V", L"1"},
        {L"Pw", L"W", L"1"},      {L"T", L"C", L"1"},       {L"Res", L"OHM", L"1"},
        {L"Z", L"ZERO", L"0.05"}, {L"Z", L"DEFAULT", L"4"}, {L"Pin-A", L"Anode", L"1"}};
    static const partwright::UnitTable table(rows);
    return table;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace partwright;
    const std::wstring all =
        decodeLossy(std::string_view(reinterpret_cast<const char*>(data), size));
    const auto end = all.find(L'\n');
    const std::wstring rule = all.substr(0, end);
    const std::wstring text = end == std::wstring::npos ? std::wstring() : all.substr(end + 1);

    const ScannedText scanned(text);
    const PreparedRule prepared(rule, units());
    const std::vector<std::wstring> cells = {L"0.25", L"", L"-1", L"1,5e3"};
    for (const std::int32_t cell : {0, 3}) {
        std::int32_t type = 27;
        std::wstring note;
        const std::wstring value =
            prepared.evaluate({scanned, L'.', 14, 10, cell, type, note, {}, {}});
        literal::Evaluation plain{text, L'.', 14, 10, cell, 27, L"", &units()};
        const bool steps = rule.starts_with(L"FUNC_LOC_");
        if (!steps &&
            (value != literal::ruleValue(rule, plain) || type != plain.type || note != plain.note))
            std::abort();
        if (prepared.evaluateSecondPass(cells, L'.') !=
            literal::secondPassValue(rule, cells, plain))
            std::abort();
    }
    static_cast<void>(prepared.pick(scanned, L','));
    return 0;
}
