#include "autofill/rule_language.h"

#include "autofill/package_terms.h"
#include "core/cell_text.h"
#include "core/text.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>

namespace partwright {

namespace {

constexpr std::wstring_view termStart = L"FUNC";

/// The argument lists between the braces of a term; none when they differ in length.
std::vector<std::vector<std::wstring>> listsOf(std::wstring_view arguments) {
    std::vector<std::vector<std::wstring>> lists;
    for (;;) {
        const auto open = arguments.find(L'[');
        if (open == std::wstring_view::npos)
            break;
        arguments.remove_prefix(open + 1);
        const auto close = arguments.find(L']');
        if (close == std::wstring_view::npos)
            break;
        std::vector<std::wstring> list;
        for (const std::wstring_view piece : split(arguments.substr(0, close), L','))
            if (!piece.empty())
                list.emplace_back(trim(piece));
        if (!list.empty())
            lists.push_back(std::move(list));
        arguments.remove_prefix(close + 1);
    }
    const bool equal = std::all_of(lists.begin(), lists.end(), [&](const auto& list) {
        return list.size() == lists.front().size();
    });
    if (!equal)
        lists.clear();
    return lists;
}

/// The term of a span that starts with "FUNC"; nothing when the span holds no whole term.
std::optional<Term> termOf(std::wstring_view span) {
    if (span.size() <= termStart.size())
        return std::nullopt;
    const auto open = span.find(L'{');
    const auto close = open == std::wstring_view::npos ? open : span.find(L'}', open);
    if (close == std::wstring_view::npos || close - open < 3)
        return std::nullopt;
    Term term{std::wstring(trim(span.substr(0, open))),
              listsOf(span.substr(open + 1, close - open - 1))};
    if (term.lists.empty())
        return std::nullopt;
    return term;
}

void expandKey(Term& term, const UnitTable& units) {
    if (term.lists.size() != 1 || term.lists.front().size() != 1)
        return;
    const std::wstring item = term.lists.front().front();
    if (!item.starts_with(L'#'))
        return;
    term.lists.clear();
    if (const UnitList* list = units.find(std::wstring_view(item).substr(1)))
        term.lists = {list->names, list->values};
}

double numberOf(std::wstring_view text) {
    return readFreeNumber(text).value;
}

void putInFront(std::wstring& note, std::wstring_view sentence) {
    note.insert(0, sentence);
}

/// Pin names such as A1 become plain numbers; texts that are no pin name stay.
std::wstring pinNumber(std::wstring_view candidate) {
    constexpr std::size_t longest = 5;
    if (candidate.size() > longest ||
        !std::all_of(candidate.begin(), candidate.end(), [](wchar_t c) { return isAsciiAlnum(c); }))
        return std::wstring(candidate);
    std::int64_t number = 0;
    for (const wchar_t c : candidate)
        number = number * 36 + (isDigit(c) ? c - L'0' : upperCase(c) - L'A' + 10);
    return number > 0 ? std::to_wstring(number) : std::wstring(candidate);
}

/// What stands in brackets just before `name`, as in "(3) Anode".
std::wstring_view bracketBefore(std::wstring_view text, std::size_t name) {
    if (name < 2)
        return {};
    const std::wstring_view left = text.substr(0, name);
    const auto close = left.rfind(L')');
    if (close == std::wstring_view::npos || close < 2 ||
        left.find(L',', close) != std::wstring_view::npos)
        return {};
    const auto open = left.rfind(L'(', close);
    if (open == std::wstring_view::npos)
        return {};
    return trim(left.substr(open + 1, close - open - 1));
}

} // namespace

std::vector<Term> ParseRuleString(std::wstring_view rule, const UnitTable& units) {
    std::vector<Term> terms;
    auto start = rule.find(termStart);
    while (start != std::wstring_view::npos) {
        const auto next = rule.find(termStart, start + 1);
        if (auto term = termOf(rule.substr(start, next - start))) {
            expandKey(*term, units);
            terms.push_back(std::move(*term));
        }
        start = next;
    }
    return terms;
}

PreparedTerm::Function PreparedTerm::functionOf(std::wstring_view name) {
    constexpr std::pair<std::wstring_view, Function> functions[] = {
        {L"FUNC1", Function::Unit},
        {L"FUNC3", Function::Keyword},
        {L"FUNC4", Function::Literal},
        {L"FUNC8", Function::CodeLetter},
        {L"FUNC_PIN", Function::Pin},
        {L"FUNC_TETHA", Function::Tetha},
        {L"FUNC_PW", Function::Power},
        {L"FUNC_PiQ", Function::PiQ},
        {L"FUNC_SUBCOMP", Function::SubComponent}};
    for (const auto& [text, function] : functions)
        if (text == name)
            return function;
    return Function::Other;
}

PreparedTerm::PreparedTerm(Term term, const UnitTable& units)
    : function_(functionOf(term.name)), term_(std::move(term)) {
    const bool paired = term_.lists.size() >= 2;
    if (function_ == Function::Unit && paired)
        units_ = PreparedUnits(term_.lists[0], term_.lists[1]);
    if (function_ == Function::Keyword && paired)
        keywords_ = PreparedKeywords(term_.lists[0], term_.lists[1]);
    if (function_ == Function::Power)
        if (const UnitList* temperatures = units.find(L"T"))
            units_ = PreparedUnits(temperatures->names, temperatures->values);
    if (function_ == Function::PiQ)
        prepareQuality(units);
    if (function_ == Function::SubComponent && !term_.lists.empty())
        for (const std::wstring& name : term_.lists[0])
            if (!name.empty())
                names_.push_back({name, upperCase(name)});
}

void PreparedTerm::prepareQuality(const UnitTable& units) {
    const std::int32_t method = toInteger(item(0, 1));
    if (method != 1 && method != 3)
        return;
    const std::wstring rule =
        L"FUNC" + std::to_wstring(method) + L"{[" + std::wstring(item(0, 0)) + L"]}";
    std::vector<Term> terms = ParseRuleString(rule, units);
    if (!terms.empty())
        inner_ = std::make_unique<PreparedTerm>(std::move(terms.front()), units);
}

std::wstring_view PreparedTerm::item(std::size_t list, std::size_t index) const {
    if (list >= term_.lists.size() || index >= term_.lists[list].size())
        return {};
    return term_.lists[list][index];
}

std::wstring PreparedTerm::evaluate(const TermContext& context) const {
    switch (function_) {
    case Function::Unit:
        return unitValue(context);
    case Function::Keyword:
        return std::wstring(keywords_.lookUp(context.text));
    case Function::Literal:
        return std::wstring(item(0, 0));
    case Function::CodeLetter:
        return codeLetter(context);
    case Function::Pin:
        return pinCount(context.text, context.packageTable, context.mark);
    case Function::Tetha:
        return thermalResistance(context.text, context.packageTable, item(0, 0) == L"Rja",
                                 context.mark);
    case Function::Power:
        return power(context);
    case Function::PiQ:
        return quality(context);
    case Function::SubComponent:
        return subComponent(context);
    case Function::Other:
        break;
    }
    return {};
}

std::wstring PreparedTerm::evaluatePlain(const ScannedText& text, wchar_t mark) const {
    if (function_ == Function::Literal)
        return std::wstring(item(0, 0));
    if (function_ != Function::Unit)
        return {};
    std::wstring value = units_.extract(text, mark);
    return value == L"0" ? std::wstring() : value;
}

std::wstring PreparedTerm::unitValue(const TermContext& context) const {
    constexpr std::int32_t resistors = 10;
    constexpr std::int32_t powerCell = 0;
    constexpr std::int32_t resistanceCell = 3;
    constexpr std::int32_t lowPowerType = 27;
    constexpr std::int32_t highPowerType = 28;

    std::wstring value = units_.extract(context.text, context.mark);
    const bool resistor = context.family == ruleFamily::sdta && context.group == resistors;
    if (value == L"0") {
        if (!resistor || context.cellIndex != resistanceCell)
            return {};
        putInFront(context.note, L"Resistance is defined as default value; ");
        context.type = jumperType;
        return L"0.05";
    }
    if (value.empty() || !resistor)
        return value;
    if (context.cellIndex == resistanceCell && numberOf(value) <= 0.1)
        context.type = jumperType;
    if (context.cellIndex == powerCell && context.type == lowPowerType && numberOf(value) >= 0.5)
        context.type = highPowerType;
    return value;
}

std::wstring PreparedTerm::codeLetter(const TermContext& context) const {
    const std::wstring_view letter = item(0, 0);
    if (letter.size() != 1)
        return {};
    return ExtractCodeLetterValue(context.text.text(), letter.front());
}

std::wstring PreparedTerm::power(const TermContext& context) const {
    std::wstring limit = units_.extract(context.text, context.mark);
    if (limit.empty() || limit == L"0") {
        limit = item(1, 0);
        putInFront(context.note, L"Default Tjmax is used for Pw; ");
    }
    const double resistance =
        numberOf(thermalResistance(context.text, context.packageTable, true, context.mark));
    if (resistance <= 1e-09 || readFreeNumber(limit).consumed == 0)
        return {};
    const double watts = (numberOf(limit) - numberOf(item(0, 0))) / resistance;
    if (!std::isfinite(watts))
        return {};
    if (watts <= 0.001)
        return formatGeneral(watts, context.mark);
    std::wstring value = formatFixed(watts, context.mark, 4);
    value.pop_back(); // the fourth decimal is cut, not rounded
    return value;
}

std::wstring PreparedTerm::quality(const TermContext& context) const {
    const auto row = context.piqTable.find({context.family, context.group, context.type});
    if (!inner_ || row == context.piqTable.end())
        return {};
    const std::array<std::int32_t, 4>& factors = row->second;
    const std::wstring text = inner_->evaluate(context);
    const bool thresholds = term_.lists.size() >= 2 && term_.lists[1].size() >= 2;
    if (text.empty() || !thresholds)
        return std::to_wstring(factors[0]);
    const double value = numberOf(text);
    if (value <= numberOf(item(1, 0)))
        return std::to_wstring(factors[3]);
    return std::to_wstring(value <= numberOf(item(1, 1)) ? factors[2] : factors[1]);
}

std::wstring PreparedTerm::subComponent(const TermContext& context) const {
    std::wstring withBlanks;
    std::wstring_view text = context.text.text();
    if (text.find(L'\\') != std::wstring_view::npos) {
        withBlanks = text;
        std::replace(withBlanks.begin(), withBlanks.end(), L'\\', L' ');
        text = withBlanks;
    }
    std::wstring_view candidate;
    for (const SubName& name : names_) {
        auto at = text.find(name.text);
        if (at == std::wstring_view::npos)
            at = text.find(name.upper);
        if (at != std::wstring_view::npos)
            candidate = bracketBefore(text, at);
        if (!candidate.empty())
            break;
    }
    const bool special = candidate == cell::notApplicable ||
                         candidate.find_first_of(L"-,") != std::wstring_view::npos;
    std::wstring value = special ? std::wstring(candidate) : pinNumber(candidate);
    if (context.mark == L'.')
        std::replace(value.begin(), value.end(), L',', L'.');
    if (context.mark == L',')
        std::replace(value.begin(), value.end(), L'.', L',');
    return value;
}

std::wstring EvaluateTerm(const Term& term, const UnitTable& units, const TermContext& context) {
    return PreparedTerm(term, units).evaluate(context);
}

PreparedRule::PreparedRule(std::wstring_view text, const UnitTable& units)
    : comparison_(comparisonIn(text)) {
    for (Term& term : ParseRuleString(text, units)) {
        // A power term says in the note each time that it took the default.
        repeated_.push_back(
            term.name != L"FUNC_PW" &&
            std::any_of(terms_.begin(), terms_.end(),
                        [&](const PreparedTerm& earlier) { return earlier.term() == term; }));
        terms_.emplace_back(std::move(term), units);
    }
    const std::wstring first = terms_.empty() ? std::wstring() : terms_.front().term().name;
    if (text.starts_with(L"FUNC_LOC_1"))
        form_ = RuleForm::StepsOfSecondTerm;
    else if (text.starts_with(L"FUNC_LOC_2"))
        form_ = RuleForm::StepsOfFirstTerm;
    else if (text.starts_with(L"FUNC_LOC_"))
        form_ = RuleForm::StepsWithoutValues;
    else if (text.starts_with(L"FUNC_IF"))
        form_ = RuleForm::Condition;
    else if (first == L"FUNC_MIN")
        form_ = RuleForm::Smallest;
    else if (first == L"FUNC_MAX")
        form_ = RuleForm::Largest;
}

PreparedRule::Comparison PreparedRule::comparisonIn(std::wstring_view rule) {
    // Longer signs first: ">" stands in ">=" too.
    constexpr std::pair<std::wstring_view, Comparison> signs[] = {
        {L">=", Comparison::GreaterEqual}, {L"<=", Comparison::LessEqual},
        {L"!=", Comparison::NotEqual},     {L"==", Comparison::Equal},
        {L">", Comparison::Greater},       {L"<", Comparison::Less}};
    for (const auto& [sign, comparison] : signs)
        if (rule.find(sign) != std::wstring_view::npos)
            return comparison;
    return Comparison::None;
}

bool PreparedRule::compare(double a, double b) const {
    switch (comparison_) {
    case Comparison::Greater:
        return a > b;
    case Comparison::GreaterEqual:
        return a >= b;
    case Comparison::Less:
        return a < b;
    case Comparison::LessEqual:
        return a <= b;
    case Comparison::NotEqual:
        return a != b;
    case Comparison::Equal:
        return a == b;
    case Comparison::None:
        break;
    }
    return false;
}

std::wstring PreparedRule::evaluate(const TermContext& context) const {
    switch (form_) {
    case RuleForm::First:
        return firstValue(context);
    case RuleForm::Smallest:
    case RuleForm::Largest:
        return extremeValue(context);
    case RuleForm::Condition:
        return conditionValue(context);
    case RuleForm::StepsOfSecondTerm:
    case RuleForm::StepsOfFirstTerm:
        return stepValue(context);
    case RuleForm::StepsWithoutValues:
        break;
    }
    return {};
}

std::wstring PreparedRule::firstValue(const TermContext& context) const {
    for (std::size_t i = 0; i < terms_.size(); ++i) {
        if (repeated_[i])
            continue;
        std::wstring value = terms_[i].evaluate(context);
        if (!value.empty())
            return value;
    }
    return {};
}

std::wstring PreparedRule::extremeValue(const TermContext& context) const {
    const bool largest = form_ == RuleForm::Largest;
    // The search for the largest starts just below zero, so a negative value never wins.
    double best =
        largest ? -std::numeric_limits<double>::min() : std::numeric_limits<double>::max();
    std::wstring text;
    for (std::size_t i = 1; i < terms_.size(); ++i) {
        std::wstring value = terms_[i].evaluate(context);
        if (value.empty())
            continue;
        const double number = numberOf(value);
        if (largest ? number > best : number < best) {
            best = number;
            text = std::move(value);
        }
    }
    return text;
}

std::optional<double> PreparedRule::pickFrom(const std::array<std::wstring, 4>& values) const {
    if (comparison_ == Comparison::None || values[0].empty() || values[1].empty())
        return std::nullopt;
    const std::wstring& picked =
        compare(numberOf(values[0]), numberOf(values[1])) ? values[2] : values[3];
    return picked.empty() ? -1 : numberOf(picked);
}

std::wstring PreparedRule::conditionValue(const TermContext& context) const {
    std::array<std::wstring, 4> values;
    if (terms_.size() != values.size() || comparison_ == Comparison::None)
        return {};
    for (std::size_t i = 0; i < values.size(); ++i)
        values[i] = terms_[i].evaluate(context);
    const std::optional<double> number = pickFrom(values);
    if (!number || std::abs(*number + 1) <= 1e-12)
        return {};
    return formatGeneral(*number, context.mark);
}

std::optional<double> PreparedRule::pick(const ScannedText& text, wchar_t mark) const {
    std::array<std::wstring, 4> values;
    if (form_ != RuleForm::Condition || terms_.size() != values.size())
        return std::nullopt;
    for (std::size_t i = 0; i < values.size(); ++i)
        values[i] = terms_[i].evaluatePlain(text, mark);
    return pickFrom(values);
}

std::wstring PreparedRule::stepValue(const TermContext& context) const {
    if (terms_.empty())
        return {};
    const std::wstring value = terms_.front().evaluate(context);
    if (value.empty())
        return {};
    const std::vector<std::vector<std::wstring>>& first = terms_.front().term().lists;
    const bool own = form_ == RuleForm::StepsOfFirstTerm;
    if (first.empty() ||
        (own ? first.size() < 2 : terms_.size() < 2 || terms_[1].term().lists.empty()))
        return {};
    const std::vector<std::wstring>& values = own ? first[1] : terms_[1].term().lists.front();
    std::map<double, std::wstring_view> steps;
    for (std::size_t i = 0; i < std::min(first.front().size(), values.size()); ++i)
        steps[toInteger(first.front()[i])] = values[i];
    const auto step = steps.lower_bound(std::trunc(numberOf(value)));
    return step == steps.end() ? std::wstring() : std::wstring(step->second);
}

std::wstring PreparedRule::evaluateSecondPass(std::span<const std::wstring> cells,
                                              wchar_t mark) const {
    constexpr std::int32_t lastCell = 24;
    const auto cellOf = [&](std::wstring_view name) -> std::wstring_view {
        const std::int32_t number = toInteger(name.substr(std::min<std::size_t>(4, name.size())));
        if (number < 1 || number > lastCell || static_cast<std::size_t>(number) > cells.size())
            return {};
        return cells[static_cast<std::size_t>(number) - 1];
    };
    for (const PreparedTerm& term : terms_) {
        if (term.term().name != L"FUNC2" || term.term().lists.empty())
            continue;
        double product = 1;
        bool known = true;
        for (const std::wstring& name : term.term().lists.front()) {
            const NumberPrefix number = readFreeNumber(cellOf(name));
            known = known && number.consumed != 0;
            product *= number.value;
        }
        const double root = std::sqrt(product);
        if (known && std::isfinite(root))
            return formatGeneral(root, mark);
    }
    return {};
}

} // namespace partwright
