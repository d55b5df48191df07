#pragma once

// The rule language in its plainest form: every rule is parsed again for every cell of every text.
// The oracle of the prepared rules, for empty package tables.

#include "autofill/literal_normaliser.h"
#include "autofill/unit_table.h"
#include "core/vocabulary.h"

#include <map>
#include <optional>

namespace partwright::literal {

struct RuleTerm {
    std::wstring name;
    std::vector<Texts> lists;
};

inline std::vector<RuleTerm> parse(const std::wstring& rule, const UnitTable& units) {
    std::vector<RuleTerm> terms;
    for (auto start = rule.find(L"FUNC"); start != std::wstring::npos;) {
        const auto next = rule.find(L"FUNC", start + 1);
        const std::wstring span = rule.substr(start, next - start);
        start = next;
        const auto open = span.find(L'{');
        const auto close = span.find(L'}', open == std::wstring::npos ? 0 : open);
        if (span.size() <= 4 || open == std::wstring::npos || close == std::wstring::npos ||
            close - open - 1 < 2)
            continue;
        RuleTerm term{std::wstring(trim(span.substr(0, open))), {}};
        std::wstring rest = span.substr(open + 1, close - open - 1);
        bool equal = true;
        for (auto left = rest.find(L'['); left != std::wstring::npos; left = rest.find(L'[')) {
            const auto right = rest.find(L']', left);
            if (right == std::wstring::npos)
                break;
            Texts list;
            std::wstring piece;
            for (auto i = left + 1; i <= right; ++i) {
                if (rest[i] != L',' && i != right) {
                    piece += rest[i];
                    continue;
                }
                if (!piece.empty())
                    list.emplace_back(trim(piece));
                piece.clear();
            }
            if (!list.empty())
                term.lists.push_back(list);
            equal = equal && term.lists.empty() == false
                        ? term.lists.front().size() == term.lists.back().size()
                        : equal;
            rest.erase(0, right + 1);
        }
        if (term.lists.empty() || !equal)
            continue;
        if (term.lists.size() == 1 && term.lists[0].size() == 1 &&
            term.lists[0][0].substr(0, 1) == L"#") {
            const UnitList* list = units.find(term.lists[0][0].substr(1));
            term.lists.clear();
            if (list)
                term.lists = {list->names, list->values};
        }
        terms.push_back(term);
    }
    return terms;
}

struct Evaluation {
    std::wstring text;
    wchar_t mark;
    int family, group, cell, type;
    std::wstring note;
    const UnitTable* units;
};

inline std::wstring subComponent(const RuleTerm& term, Evaluation& e) {
    std::wstring text = e.text;
    std::replace(text.begin(), text.end(), L'\\', L' ');
    std::wstring value;
    for (const std::wstring& name : term.lists[0]) {
        if (name.empty())
            continue;
        auto at = text.find(name);
        if (at == std::wstring::npos)
            at = text.find(upperCase(name));
        if (at == std::wstring::npos || at < 2)
            continue;
        const std::wstring left = text.substr(0, at);
        const auto close = left.rfind(L')');
        if (close == std::wstring::npos || close < 2 || left.find(L',', close) < left.size())
            continue;
        const auto open = left.rfind(L'(', close);
        if (open == std::wstring::npos)
            continue;
        value = trim(left.substr(open + 1, close - open - 1));
        if (!value.empty())
            break;
    }
    const bool plain = value != L"N/A" && value.find_first_of(L"-,") == std::wstring::npos;
    if (plain && !value.empty() && value.size() <= 5 &&
        std::all_of(value.begin(), value.end(), isAsciiAlnum)) {
        long sum = 0;
        for (const wchar_t c : value)
            sum = sum * 36 + (isDigit(c) ? c - L'0' : upperCase(c) - L'A' + 10);
        if (sum > 0)
            value = std::to_wstring(sum);
    }
    for (wchar_t& c : value)
        if (c == (e.mark == L'.' ? L',' : L'.'))
            c = e.mark;
    return value;
}

inline std::wstring evaluate(const RuleTerm& term, Evaluation& e) {
    const bool paired = term.lists.size() >= 2;
    if (term.name == L"FUNC1" && paired) {
        std::wstring v = extractValueByUnits(e.text, term.lists[0], term.lists[1], e.mark);
        if (v == L"0") {
            if (e.family != 14 || e.group != 10 || e.cell != 3)
                return {};
            e.note = L"Resistance is defined as default value; " + e.note;
            e.type = 32;
            return L"0.05";
        }
        if (e.family == 14 && e.group == 10 && !v.empty()) {
            if (e.cell == 3 && number(v) <= 0.1)
                e.type = 32;
            if (e.cell == 0 && number(v) >= 0.5 && e.type == 27)
                e.type = 28;
        }
        return v;
    }
    if (term.name == L"FUNC3" && paired)
        return lookUpByKeyword(e.text, term.lists[0], term.lists[1]);
    if (term.name == L"FUNC4" && !term.lists.empty())
        return term.lists[0][0];
    if (term.name == L"FUNC8" && !term.lists.empty() && term.lists[0][0].size() == 1 &&
        !isDigit(term.lists[0][0][0]))
        return extractCodeLetterValue(e.text, term.lists[0][0][0]);
    if (term.name == L"FUNC_PIN")
        return extractValueByUnits(e.text, {L"pin"}, {L"1"}, e.mark);
    if (term.name == L"FUNC_PW") {
        const UnitList* degrees = e.units->find(L"T");
        const std::wstring limit =
            degrees ? extractValueByUnits(e.text, degrees->names, degrees->values, e.mark) : L"";
        if (limit.empty() || limit == L"0")
            e.note = L"Default Tjmax is used for Pw; " + e.note;
    }
    if (term.name == L"FUNC_SUBCOMP" && !term.lists.empty())
        return subComponent(term, e);
    return {};
}

inline std::wstring conditionOperator(const std::wstring& rule) {
    for (const wchar_t* sign : {L">=", L"<=", L"!=", L"==", L">", L"<"})
        if (rule.find(sign) != std::wstring::npos)
            return sign;
    return {};
}

inline bool compare(double a, const std::wstring& sign, double b) {
    return (sign == L">" && a > b) || (sign == L">=" && a >= b) || (sign == L"<" && a < b) ||
           (sign == L"<=" && a <= b) || (sign == L"!=" && a != b) || (sign == L"==" && a == b);
}

inline std::wstring ruleValue(const std::wstring& rule, Evaluation& e) {
    const std::vector<RuleTerm> terms = parse(rule, *e.units);
    if (rule.starts_with(L"FUNC_LOC_"))
        return {}; // the rows of this form are checked by hand
    if (rule.starts_with(L"FUNC_IF")) {
        const std::wstring sign = conditionOperator(rule);
        if (terms.size() != 4 || sign.empty())
            return {};
        Texts values;
        for (const RuleTerm& term : terms)
            values.push_back(evaluate(term, e));
        if (values[0].empty() || values[1].empty())
            return {};
        const std::wstring& picked =
            values[compare(number(values[0]), sign, number(values[1])) ? 2 : 3];
        const double result = picked.empty() ? -1 : number(picked);
        return std::abs(result + 1) <= 1e-12 ? L"" : formatGeneral(result, e.mark);
    }
    const std::wstring kind = terms.empty() ? L"" : terms[0].name;
    if (kind != L"FUNC_MIN" && kind != L"FUNC_MAX") {
        for (const RuleTerm& term : terms)
            if (const std::wstring value = evaluate(term, e); !value.empty())
                return value;
        return {};
    }
    double best = kind == L"FUNC_MAX" ? -2.2250738585072014e-308 : 1.7976931348623157e+308;
    std::wstring text;
    for (std::size_t i = 1; i < terms.size(); ++i) {
        const std::wstring value = evaluate(terms[i], e);
        if (!value.empty() && (kind == L"FUNC_MAX" ? number(value) > best : number(value) < best)) {
            best = number(value);
            text = value;
        }
    }
    return text;
}

inline std::wstring secondPassValue(const std::wstring& rule, const Texts& cells, Evaluation& e) {
    for (const RuleTerm& term : parse(rule, *e.units)) {
        if (term.name != L"FUNC2" || term.lists.empty())
            continue;
        double product = 1;
        bool known = true;
        for (const std::wstring& name : term.lists[0]) {
            const long n = name.size() > 4 ? toInteger(name.substr(4)) : 0;
            known = known && n >= 1 && n <= 24 && n <= static_cast<long>(cells.size()) &&
                    readNumber(cells[static_cast<std::size_t>(n) - 1], L'.').consumed != 0;
            if (known)
                product *= number(cells[static_cast<std::size_t>(n) - 1]);
        }
        if (known && product >= 0 && std::isfinite(std::sqrt(product)))
            return formatGeneral(std::sqrt(product), e.mark);
    }
    return {};
}

/// The whole driver over the texts of one row; the type is the one after the resistor rules.
inline void fill(const std::vector<std::wstring>& rules, Texts& cells, Evaluation& e) {
    for (std::size_t i = 0; i < rules.size() && i < cells.size(); ++i) {
        e.cell = static_cast<int>(i);
        if (cells[i].empty())
            cells[i] = ruleValue(rules[i], e);
    }
    for (std::size_t i = 0; i < rules.size() && i < cells.size(); ++i) {
        if (!cells[i].empty())
            continue;
        cells[i] = secondPassValue(rules[i], cells, e);
        if (!cells[i].empty() && e.family == 14 && e.group == 10 && i == 1)
            e.note = L"Voltage is calculated value; " + e.note;
    }
    if (e.group >= 10)
        return;
    const Names columns = e.family == 14 ? ColumnsOfSdtaGroup(e.group) : ColumnsOfAsrGroup(e.group);
    for (std::size_t i = 0; i < columns.size() && i < cells.size(); ++i) {
        const Names names = e.group < 3 ? circuitPackages() : semiconductorPackages();
        for (std::size_t code = 1; code <= names.size(); ++code)
            if (columns[i] == L"Package" && cells[i] == std::to_wstring(code)) {
                cells[i] = names[code - 1];
                break;
            }
        if (columns[i] == L"at" && (cells[i] == L"1" || cells[i] == L"2"))
            cells[i] = cells[i] == L"1" ? L"A" : L"C";
    }
}

} // namespace partwright::literal
