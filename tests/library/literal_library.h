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

class LiteralScanner {
public:
    LiteralScanner(std::wstring line, wchar_t separator)
        : line_(std::move(line)), separator_(separator) {}

    /// False when there is no field.
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

private:
    void skipBlanks() {
        while (at_ < line_.size() && static_cast<char32_t>(line_[at_]) <= 32)
            ++at_;
    }
    std::wstring line_;
    wchar_t separator_;
    std::size_t at_ = 0;
};

inline std::vector<std::wstring> literalLines(const std::string& bytes, CodePage codePage) {
    std::vector<std::wstring> lines;
    std::string line;
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        if (bytes[i] != '\n') {
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

inline wchar_t literalSeparator(const std::string& bytes) {
    // Bytes, since the separator is one ASCII character at a place of the file.
    for (const std::wstring& line : literalLines(bytes, CodePage::Windows1252))
        if (line.find(L"sep=") != std::wstring::npos)
            return line.size() > 4 && static_cast<char32_t>(line[4]) < 0x80 ? line[4] : L',';
    return L',';
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
        } else if (!cell.empty()) {
            cells.push_back(cell);
            cell.clear();
        }
    }
    cells.resize(35);
    return cells;
}

template <class Record>
bool literalRecord(const CPartwrightPlugInApp& app, const std::vector<std::wstring>& row,
                   const std::vector<std::wstring>& header, Record& record) {
    constexpr bool analyses = std::is_same_v<Record, AsrComponent>;
    record.PartNum = literalUnquoted(row[3]);
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

/// Reads the cells of a row; how many there were, 0 for a row that is dropped.
inline std::size_t literalCells(LiteralScanner& scanner, std::vector<std::wstring>& row,
                                const std::wstring& kind) {
    std::wstring field;
    for (std::size_t count = 0; count < 35; ++count) {
        if (!scanner.next(field) || (!field.empty() && field[0] == L'<'))
            return count;
        if (literalUnquoted(field).size() > 255)
            return 0;
        row[count] = field;
        if (row[0] != kind)
            return 0;
    }
    return 35;
}

template <class Record>
typename Kind<Record>::Library literalRead(const CPartwrightPlugInApp& app,
                                           const std::string& bytes, CodePage codePage) {
    constexpr bool analyses = std::is_same_v<Record, AsrComponent>;
    typename Kind<Record>::Library library;
    const CompletionRules<Record> rules(app.of<Record>());
    const auto lines = literalLines(bytes, codePage);
    const wchar_t separator = literalSeparator(bytes);
    std::vector<std::wstring> row(35);
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
        if (field[0] != L'>' || literalCells(scanner, row, analyses ? L"DORVANE" : L"SDTA-M") < 4)
            continue;
        Record record;
        if (!literalRecord(app, row, header, record))
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
