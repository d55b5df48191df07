#pragma once

// The library file done literally, as the oracle of the reader and the writer: every line and every
// cell is a wide string of its own, records go into the map one by one, a row is built by adding
// texts. It shares no algorithm with them but the record's completion and number parsing.

#include "core/cell_text.h"
#include "core/completion.h"
#include "core/number.h"
#include "core/text.h"
#include "core/text_file.h"

#include <algorithm>
#include <array>
#include <sstream>
#include <string>
#include <type_traits>
#include <vector>

namespace partwright::test {

/// A row of text, field by field, with a place to go on from.
class LiteralScanner {
public:
    LiteralScanner(std::wstring line, wchar_t separator)
        : line_(std::move(line)), separator_(separator) {}

    /// False when there is no field, or one that is not well formed.
    bool next(std::wstring& field) {
        field.clear();
        skipBlanks();
        if (at_ >= line_.size())
            return false;
        bool quoted = false;
        if (line_[at_] == L'"') {
            quoted = true;
            ++at_;
            skipBlanks();
        }
        while (at_ < line_.size()) {
            const wchar_t c = line_[at_];
            if (c == L'"' && !quoted)
                return false;
            if (c == L'"') {
                ++at_;
                if (at_ < line_.size() && line_[at_] == L'"') {
                    field += L'"';
                    ++at_;
                } else {
                    quoted = false;
                }
                continue;
            }
            if (c == separator_ && !quoted)
                break;
            field += c;
            ++at_;
        }
        if (quoted && field.empty())
            return false;
        while (!field.empty() && static_cast<char32_t>(field.back()) <= 32)
            field.pop_back();
        if (at_ < line_.size())
            ++at_;
        return true;
    }

    /// The cells up to the mark of the row's end, those with stray quotes taken as far as they go.
    std::vector<std::wstring> cells() {
        std::vector<std::wstring> cells;
        std::vector<std::size_t> starts;
        std::wstring field;
        while (cells.size() < 35) {
            skipBlanks();
            const std::size_t start = at_;
            starts.resize(cells.size());
            starts.push_back(start);
            if (start >= line_.size())
                return cells;
            if (!next(field) && !mend(field, cells, starts))
                return cells;
            if (!field.empty() && field[0] == L'<') {
                marked = true;
                return cells;
            }
            cells.push_back(field);
        }
        return cells;
    }
    bool marked = false;

private:
    bool mend(std::wstring& field, std::vector<std::wstring>& cells,
              const std::vector<std::size_t>& starts) {
        const std::size_t start = starts.back();
        const std::size_t end = endOfCell(start);
        std::size_t from = std::wstring::npos;
        std::size_t limit = line_.size();
        std::size_t cell = cells.size();
        if (line_.compare(start, 3, L"\"\"\"") == 0)
            from = start;
        for (std::size_t j = cells.size(); from == std::wstring::npos && j-- > 0;)
            if (line_.compare(starts[j], 3, L"\"\"\"") == 0 &&
                (cells[j].empty() || cells[j].back() != L'"')) {
                from = starts[j];
                limit = end;
                cell = j;
            }
        at_ = std::min(end + 1, line_.size());
        for (std::size_t at = from; from != std::wstring::npos && at + 3 <= limit; ++at) {
            if (at < from + 3 || line_.compare(at, 3, L"\"\"\"") != 0)
                continue;
            std::size_t behind = at + 3;
            while (behind < limit && static_cast<char32_t>(line_[behind]) <= 32)
                ++behind;
            if (behind != limit && line_[behind] != separator_)
                continue;
            if (at <= lastClosing_)
                break;
            lastClosing_ = at;
            cells.resize(cell);
            field = line_.substr(from + 2, at - from - 1);
            at_ = std::min(endOfCell(at) + 1, line_.size());
            return true;
        }
        field = line_.substr(start, end - start);
        while (!field.empty() && static_cast<char32_t>(field.back()) <= 32)
            field.pop_back();
        if (!field.empty() && field.back() == L'"')
            field = L'"' + field + L'"';
        return line_[start] != L'"';
    }
    [[nodiscard]] std::size_t endOfCell(std::size_t from) const {
        return std::min(line_.find(separator_, from), line_.size());
    }
    void skipBlanks() {
        while (at_ < line_.size() && static_cast<char32_t>(line_[at_]) <= 32)
            ++at_;
    }
    std::wstring line_;
    wchar_t separator_;
    std::size_t at_ = 0;
    std::size_t lastClosing_ = 0;
};

inline std::vector<std::wstring> literalLines(const std::string& bytes, CodePage codePage) {
    const char end = bytes.find('\n') == std::string::npos ? '\r' : '\n';
    std::vector<std::wstring> lines;
    std::string line;
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        if (bytes[i] != end) {
            line += bytes[i];
            continue;
        }
        if (!line.empty() && line.back() == '\r')
            line.pop_back();
        lines.push_back(decode(line, codePage));
        line.clear();
    }
    if (!line.empty())
        lines.push_back(decode(line, codePage));
    return lines;
}

inline wchar_t literalSeparator(const std::vector<std::wstring>& lines, const wchar_t* kind) {
    for (const bool inFront : {true, false})
        for (const std::wstring& line : lines) {
            const std::size_t at = line.find(L"sep=");
            if (at != std::wstring::npos && (at == 0 || !inFront) && line.size() > 4 &&
                (line[4] == L',' || line[4] == L';'))
                return line[4];
        }
    for (const wchar_t separator : {L',', L';'})
        for (const std::wstring& line : lines) {
            LiteralScanner scanner(line, separator);
            std::wstring field;
            if (scanner.next(field) && !field.empty() && field[0] == L'>' && scanner.next(field) &&
                field == kind)
                return separator;
        }
    return L',';
}

inline std::wstring literalTrimmed(std::wstring text) {
    while (!text.empty() && static_cast<char32_t>(text.back()) <= 32)
        text.pop_back();
    while (!text.empty() && static_cast<char32_t>(text.front()) <= 32)
        text.erase(0, 1);
    return text;
}

inline std::wstring literalUnquoted(std::wstring text) {
    if (!text.empty() && text.front() == L'"')
        text.erase(0, 1);
    if (!text.empty() && text.back() == L'"')
        text.pop_back();
    return text;
}

inline std::wstring literalValue(std::wstring text, bool isPin, wchar_t mark) {
    text = literalUnquoted(text);
    const bool digit = text.find_first_of(L"0123456789") != std::wstring::npos;
    if (!isPin && digit && !wholeNumber(text, mark))
        for (wchar_t& c : text) {
            if (mark == L'.' && c == L',')
                c = L'.';
            else if (mark != L'.' && c == L'.')
                c = L',';
        }
    return text == L"-" ? L"-1" : text;
}

inline std::vector<std::wstring> literalHeader(std::wstring line, wchar_t separator) {
    std::vector<std::wstring> cells;
    std::wstring cell;
    line += separator;
    for (const wchar_t c : line) {
        if (c == L'*')
            continue;
        if (c != separator) {
            cell += c;
            continue;
        }
        const std::wstring name = literalTrimmed(cell);
        if (!cell.empty() && name != L"\"\"")
            cells.push_back(literalUnquoted(name));
        cell.clear();
    }
    cells.resize(35);
    return cells;
}

template <class Record>
bool literalRecord(const CPartwrightPlugInApp& app, const std::vector<std::wstring>& row,
                   const std::vector<std::wstring>& header, Record& record) {
    constexpr bool analyses = std::is_same_v<Record, AsrComponent>;
    record.PartNum = literalTrimmed(literalUnquoted(row[3]));
    if (row[2].empty() || record.PartNum.empty() || (analyses && row[2] == L"PCB"))
        return false;
    if (!analyses)
        record.PartNum = upperCase(record.PartNum);
    record.CatNum = literalUnquoted(row[4]);
    record.Description = literalUnquoted(row[5]);
    std::replace(record.Description.begin(), record.Description.end(), L';', L',');
    if (row[2] != L"0")
        record.group = analyses ? app.asr.GroupNumber(row[2]) : app.sdta.GroupNumber(row[2]);
    std::wstring family = row[1];
    if (analyses || family.empty() || record.group != 0)
        family = Kind<Record>::family(record.group);
    record.family = FamilyNumber(family);
    std::wstring type = row[6];
    std::replace(type.begin(), type.end(), L';', L',');
    const auto types = app.of<Record>().typesOf(record.group);
    for (std::size_t i = types.size(); i-- > 0;)
        if (types[i].name == type)
            record.type = static_cast<std::int32_t>(i);
    const Names columns = Kind<Record>::columns(record.group);
    for (std::size_t i = 0; i < columns.size(); ++i)
        record.LPar[i] =
            literalValue(row[7 + i], analyses && columns[i].find(L"Pin") != std::wstring::npos,
                         app.decimalMark());
    for (std::size_t i = 7; i < 35; ++i) {
        if (header[i] == L"Manufacturer")
            record.Manufacturer = literalUnquoted(row[i]);
        if (header[i] == L"Notes")
            record.Notes = literalUnquoted(row[i]);
    }
    return true;
}

/// The line is a row, nothing but blanks follows, and it does not end in the mark of a row's end.
inline bool literalHalf(const std::vector<std::wstring>& lines, std::size_t row) {
    for (std::size_t i = row + 1; i < lines.size(); ++i)
        if (!literalTrimmed(lines[i]).empty())
            return false;
    std::wstring line = lines[row];
    while (!line.empty() &&
           (static_cast<char32_t>(line.back()) <= 32 || line.back() == L',' || line.back() == L';'))
        line.pop_back();
    return line.empty() || line.back() != L'<';
}

template <class Record>
typename Kind<Record>::Library literalRead(const CPartwrightPlugInApp& app,
                                           const std::string& bytes, CodePage codePage) {
    constexpr bool analyses = std::is_same_v<Record, AsrComponent>;
    const wchar_t* const kind = analyses ? L"DORVANE" : L"SDTA-M";
    typename Kind<Record>::Library library;
    const CompletionRules<Record> rules(app.of<Record>());
    const auto lines = literalLines(bytes, codePage);
    const wchar_t separator = literalSeparator(lines, kind);
    std::vector<std::wstring> header(35);
    for (std::size_t i = 1; i < lines.size(); ++i) {
        std::wstring line = lines[i];
        std::replace(line.begin(), line.end(), L'\\', L'-');
        LiteralScanner scanner(line, separator);
        std::wstring field;
        if (!scanner.next(field) || field.empty())
            continue;
        if (field[0] == L'*')
            header = literalHeader(line, separator);
        if (field[0] != L'>')
            continue;
        std::vector<std::wstring> row = scanner.cells();
        bool drop = row.size() < 4 || row[0] != kind || (!scanner.marked && literalHalf(lines, i));
        for (const std::wstring& cell : row)
            drop = drop || literalUnquoted(cell).size() > 255;
        Record record;
        row.resize(35);
        if (drop || !literalRecord(app, row, header, record))
            continue;
        rules.update(record);
        library[record.PartNum] = record;
    }
    return library;
}

inline std::wstring literalQuoted(const std::wstring& text) {
    std::wstring result = L"\"\"\"";
    for (const wchar_t c : text) {
        if (c == L'"')
            result += c;
        if (c != L'\r' && c != L'\n')
            result += c;
    }
    return result + L"\"\"\"";
}

inline bool literalNeedsQuotes(const std::wstring& text) {
    std::size_t at = 0;
    while (at < text.size() && static_cast<char32_t>(text[at]) <= 32)
        ++at;
    return text.find(L'"') != std::wstring::npos || (at < text.size() && text[at] == L'<');
}

inline std::wstring literalCsvCell(std::wstring text, wchar_t separator, bool percentDoubled) {
    const bool quotes = literalNeedsQuotes(text);
    std::wstring result;
    for (const wchar_t c : text)
        if (c != L'\r' && c != L'\n')
            result += c;
    if (!quotes && result.find(separator) != std::wstring::npos)
        result = L'"' + result + L'"';
    if (result.find(L"- (") != std::wstring::npos)
        for (wchar_t& c : result)
            c = c == L'(' ? L'{' : c == L')' ? L'}' : c;
    for (std::size_t i = 0; percentDoubled && i < result.size(); ++i)
        if (result[i] == L'%')
            result.insert(i++, 1, L'%');
    return quotes ? literalQuoted(result) : result;
}

inline std::wstring literalPins(std::wstring value, wchar_t mark) {
    if (value.find(L'-') != std::wstring::npos) {
        std::replace(value.begin(), value.end(), L'-', L'\\');
        return upperCase(value);
    }
    const bool digits = value.find_first_not_of(L"0123456789") == std::wstring::npos;
    const auto number = wholeNumber(value, mark);
    if (!number || (!digits && *number <= 2.2250738585072014e-308) || *number >= 78364164096.0)
        return value;
    std::wstring result;
    for (auto rest = static_cast<unsigned long long>(*number); rest > 0 || result.empty();
         rest /= 36)
        result = L"0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ"[rest % 36] + result;
    return result;
}

template <class Record>
std::wstring literalRow(const CPartwrightPlugInApp& app, const Record& record, wchar_t separator) {
    constexpr bool analyses = std::is_same_v<Record, AsrComponent>;
    const std::wstring s(1, separator);
    const auto [group, typeName] = app.of<Record>().GroupAndTypeNames(record.group, record.type);
    std::wstring family(analyses ? L"" : FamilyOfSdtaGroup(record.group));
    if (const auto name = app.asr.groupFamily.find(record.group);
        analyses && name != app.asr.groupFamily.end())
        family = trim(name->second);
    if (family.empty() && record.family > 0 && record.family < 21)
        family = familyNames()[static_cast<std::size_t>(record.family)];
    std::wstring type(typeName);
    const bool resolved = analyses ? record.type == 0 : type == L"Default";
    if (resolved && record.group > 0)
        type = app.of<Record>().GroupAndTypeNames(record.group, 1).second;
    std::wstring row = L">" + s + (analyses ? L"DORVANE" + s : L"SDTA-M" + s + L" ") + family + s +
                       std::wstring(group) + s + literalQuoted(upperCase(record.PartNum)) + s +
                       literalQuoted(record.CatNum) + s + literalQuoted(record.Description) + s +
                       type + s;
    const Names columns = Kind<Record>::columns(record.group);
    for (std::size_t i = 0; i < columns.size(); ++i) {
        std::wstring value = record.LPar[i] == L"-1" ? L"-" : record.LPar[i];
        if (!analyses) {
            row += literalNeedsQuotes(value) || value.find(separator) != std::wstring::npos
                       ? literalQuoted(value)
                       : removeAll(value, L"\r\n");
        } else {
            if (!value.empty() && value[0] != L'-' && columns[i].find(L"Pin") != std::wstring::npos)
                value = literalPins(value, app.decimalMark());
            else if (!value.empty() && value[0] != L'-')
                std::replace(value.begin(), value.end(), L'-', L'\\');
            row += literalCsvCell(std::wstring(trim(value)), separator, true);
        }
        row += s;
    }
    row += analyses ? literalCsvCell(record.Manufacturer, separator, false)
                    : literalQuoted(record.Manufacturer);
    row += s;
    row += analyses ? literalCsvCell(record.Notes, separator, false) : literalQuoted(record.Notes);
    return row + s + s + L"<";
}

template <class Record>
std::string literalWrite(const CPartwrightPlugInApp& app,
                         const typename Kind<Record>::Library& library, const std::wstring& path) {
    constexpr bool analyses = std::is_same_v<Record, AsrComponent>;
    std::vector<Record> records;
    for (const auto& [key, record] : library)
        if (analyses || record.group >= 0)
            records.push_back(record);
    std::stable_sort(records.begin(), records.end(),
                     [](const Record& a, const Record& b) { return a.group < b.group; });
    const wchar_t separator = app.decimalPoint == L"." ? L',' : L';';
    const std::wstring s(1, separator);
    std::wostringstream out;
    out << L"sep=" << s << L"\n|" << s << L" FLIB" << s;
    for (int i = 0; i < 34; ++i)
        out << L" ~" << s;
    out << L" L" << s << L" |\n|" << s << L"\n|" << s << L" File: " << path << L"\n|" << s
        << L" Project: " << (analyses ? L"Analyses Library" : L"SDTA Library") << L"\n";
    const Record* before = nullptr;
    for (const Record& record : records) {
        if (before == nullptr || before->group != record.group) {
            out << L"|" << s << L"\n*" << s << L"PMET" << s << L"FAMILY" << s << L"GROUP" << s
                << L"PART#" << s << L"CAT#" << s << L"DESCR" << s << L"Type" << s;
            for (const std::wstring_view column : Kind<Record>::columns(record.group))
                out << column << s;
            out << L"Manufacturer" << s << L"Notes" << s << L"Color" << s << L"*\n";
        }
        before = &record;
        out << literalRow(app, record, separator) << L"\n";
    }
    out << L"|" << s << L"\n|" << s << L"End of File\n";
    return encodeUtf8(out.str());
}

} // namespace partwright::test
