#pragma once

// Seeded random tables and descriptions for group and type detection. The words are few and made
// of each other, so that they overlap, and descriptions are short, for the standard library's
// matching.

#include "core/application.h"

#include <random>
#include <string>

namespace partwright::test {

class RandomClassification {
public:
    explicit RandomClassification(unsigned seed) : random_(seed) {}

    void fillGroups(CPartwrightPlugInApp& app) {
        for (std::int32_t group = 1; group <= 6; ++group) {
            const std::wstring rules =
                below(5) == 0 ? L".*" : L".*(" + word() + L"|" + word() + L").*";
            const std::wstring excluding = below(2) == 0   ? L""
                                           : below(6) == 0 ? L"("
                                                           : L"(?!" + word() + L").*" + word();
            app.classifier.GroupRuleTable[group] = {rules, excluding};
            if (below(6) != 0)
                app.classifier.GroupRefDesTable[group] = prefix() + L"," + prefix();
            app.classifier.groupNamesByCode[group] = prefix();
        }
        app.classifier.GroupRefDesTable[9] = prefix();
    }

    void fillDirectKeys(CPartwrightPlugInApp& app) {
        for (const std::int32_t family : {14, 20})
            for (int i = below(4); i > 0; --i)
                app.classifier.DirectKeyTable[family].push_back(
                    {1 + below(6), 1 + below(5), phrase(), L"name"});
    }

    /// Rows of the keyword table, groups 1 to 4.
    std::wstring typeRows() {
        static const std::wstring tests[] = {L"",
                                             L"",
                                             L"*D",
                                             L"FUNC6{[Pw][1][>]}",
                                             L"FUNC6{[Pw;Pw][1;5][>;<][AND;AND]}",
                                             L"FUNC5{[BIP][NPN]}",
                                             L"FUNC6{[V][1][>]}FUNC5{[BIP][PNP]}*D",
                                             L"FUNC5{[BIP]}"};
        std::wstring rows;
        for (std::int32_t group = 1; group <= 4; ++group)
            for (int i = 2 + below(4); i > 0; --i) {
                rows += std::to_wstring(group) + L',' + std::to_wstring(1 + below(6)) + L",\"";
                for (int k = 1 + below(3); k > 0; --k)
                    rows += phrase() + (k > 1 ? L"," : L"");
                rows += L"\"," + tests[below(8)] + L'\n';
            }
        return rows;
    }

    std::wstring description() {
        static const std::wstring glue[] = {L" ", L" ", L",", L", ", L"", L"-", L"  "};
        static const std::wstring values[] = {L"2W", L"0.5 W", L"7W", L"5V", L"NPN", L"PNP"};
        std::wstring result = glue[below(7)];
        for (int i = below(6); i > 0; --i)
            result += (below(4) == 0 ? values[below(6)] : word()) + glue[below(7)];
        return result;
    }

    std::wstring designators() {
        std::wstring result;
        for (int i = below(3); i >= 0; --i) {
            result += prefix() + (below(6) == 0 ? L"" : std::to_wstring(below(30)));
            result += i > 0 ? L"," : L"";
        }
        return result;
    }

private:
    int below(int limit) { return static_cast<int>(random_() % static_cast<unsigned>(limit)); }
    std::wstring word() {
        static const std::wstring words[] = {
            L"RES", L"RESI", L"ES", L"CHIP",  L"CHIPRES", L"A",     L"AA", L"AAA",
            L"CAP", L"x7r",  L"X7", L"DIODE", L"D",       L"CHIPS", L"µF", L"IODE"};
        return words[below(16)];
    }
    std::wstring phrase() {
        return below(3) == 0 ? word() + (below(2) == 0 ? L" " : L"-") + word() : word();
    }
    std::wstring prefix() {
        static const std::wstring prefixes[] = {L"R", L"r", L"RN", L"C", L"D", L" U", L"", L"FL"};
        return prefixes[below(8)];
    }

    std::mt19937 random_;
};

} // namespace partwright::test
