#pragma once

// The value searches in their plainest form, step by step and without preparation: the oracle that
// the fast ones are compared with.

#include "core/number.h"
#include "core/text.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <string>
#include <vector>

namespace partwright::literal {

using Texts = std::vector<std::wstring>;

inline double number(std::wstring text) {
    std::replace(text.begin(), text.end(), L',', L'.');
    return readNumber(text, L'.').value;
}

inline std::wstring extractValueByUnits(std::wstring text, const Texts& units, const Texts& factors,
                                        wchar_t mark) {
    std::replace(text.begin(), text.end(), L'\\', L' ');
    const int length = static_cast<int>(text.size());
    const auto at = [&](int i) { return text[static_cast<std::size_t>(i)]; };
    for (int i = 1; i + 1 < length; ++i)
        if (at(i) == L'/' && !(isDigit(at(i - 1)) && isDigit(at(i + 1))))
            text[static_cast<std::size_t>(i)] = L' ';
    for (std::size_t u = 0; u < units.size(); ++u) {
        int start = 0;
        while (start < length - 1 && !units[u].empty()) {
            const auto from = static_cast<std::size_t>(start) + 1;
            auto hit = text.find(units[u] + L" ", from);
            if (hit == std::wstring::npos)
                hit = text.find(units[u] + L",", from);
            if (hit == std::wstring::npos) {
                hit = text.find(units[u], from);
                if (hit == std::wstring::npos)
                    break;
                if (hit + units[u].size() != text.size()) {
                    start = static_cast<int>(hit);
                    continue;
                }
            }
            const int lowest = start == 0 ? 0 : start + 1;
            start = static_cast<int>(hit);
            int walk = start - 1;
            while (walk >= 0 && at(walk) == L' ')
                --walk;
            bool digit = false;
            bool point = false;
            for (; walk >= lowest; --walk) {
                if (isDigit(at(walk)))
                    digit = true;
                else if (!point && (at(walk) == L'.' || at(walk) == L'/'))
                    point = true;
                else if (point || at(walk) != L',')
                    break;
            }
            const int stop = std::max(walk, 0);
            if (!digit || at(stop) == L'-' || (stop > 0 && at(stop) != L' ' && at(stop) != L','))
                continue;
            const auto first = static_cast<std::size_t>(stop == 0 ? 0 : stop + 1);
            std::wstring found = text.substr(first, hit - first);
            if (found[0] == L'.')
                found.insert(0, L"0");
            else if (found[0] == L'/')
                found.erase(0, 1);
            const auto slash = found.find(L'/');
            if (slash != std::wstring::npos) {
                const double divisor = number(found.substr(slash + 1));
                if (divisor == 0)
                    return {};
                found = formatGeneral(number(found.substr(0, slash)) / divisor, mark);
            }
            const double value = number(factors[u]) * number(found);
            return formatGeneral(std::min(value, std::numeric_limits<double>::max()), mark);
        }
    }
    return {};
}

inline std::wstring lookUpByKeyword(const std::wstring& text, const Texts& keywords,
                                    const Texts& values) {
    for (std::size_t i = 0; i < keywords.size(); ++i) {
        const std::wstring keyword = keywords[i].substr(0, 255);
        if (!keyword.empty() && text.find(keyword) != std::wstring::npos)
            return values[i];
    }
    return !keywords.empty() && keywords.back() == L"DEFAULT" ? values.back() : L"";
}

inline std::wstring extractCodeLetterValue(const std::wstring& text, wchar_t letter) {
    const int limit = static_cast<int>(text.size()) - 1;
    const auto at = [&](int i) { return text[static_cast<std::size_t>(i)]; };
    for (int p = 1; p < limit; ++p) {
        if (at(p) != letter)
            continue;
        std::wstring value;
        bool good = p > 1;
        for (int i = p - 1; i >= 1 && good; --i) {
            if (at(i) == L' ' || at(i) == L',')
                break;
            good = isDigit(at(i));
            value.insert(value.begin(), at(i));
        }
        value += L'.';
        int end = p + 1;
        while (end <= limit && isDigit(at(end)))
            value += at(end++);
        if (good && end > p + 1 && (end >= limit || at(end) == L' ' || at(end) == L','))
            return value;
    }
    return {};
}

} // namespace partwright::literal
