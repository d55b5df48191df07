#include "tablecheck/expression_check.h"

#include "core/regular_expression_inspection.h"
#include "core/text.h"

namespace partwright {

void checkExpression(std::wstring_view expression, bool inCapitals, std::size_t line,
                     std::wstring_view column, Findings& findings) {
    const ExpressionTraits traits = traitsOf(expression);
    if (!traits.valid) {
        findings.add(line, column, L"is no valid regular expression");
        return;
    }
    if (expression.size() > maximumExpression)
        findings.add(line, column, L"is longer than 1,000 characters");
    if (traits.hasBackReference)
        findings.add(line, column, L"refers back to a group");
    if (traits.nestsEndlessRepeats)
        findings.add(line, column, L"repeats without end inside a repeat without end");
    if (traits.nestsLookAheads)
        findings.add(line, column, L"looks ahead inside a look-ahead");
    if (inCapitals && traits.hasLetterEscape)
        findings.add(line, column, L"has a letter escape, which means something else in capitals");
    if (inCapitals && !traitsOf(upperCase(expression)).valid)
        findings.add(line, column, L"is invalid in capitals and matches nothing");
}

} // namespace partwright
