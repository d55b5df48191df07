#include "autofill/group_library_sections.h"

#include "core/text.h"

namespace partwright::group_library {

namespace {

constexpr std::wstring_view separator = L",";
constexpr std::wstring_view sectionEnd = L"End of Section";

class SectionReader {
public:
    SectionReader(std::string_view bytes, CodePage codePage) : lines_(bytes), codePage_(codePage) {}

    /// Goes on behind the section read before; false when the reading ends here.
    bool read(Section& section) {
        std::wstring line;
        while (next(line))
            if (line.find(section.name) != std::wstring::npos) {
                readInto(section);
                break;
            }
        return section.present;
    }

private:
    bool next(std::wstring& line) {
        std::string_view bytes;
        if (!lines_.next(bytes))
            return false;
        ++number_;
        line = decode(bytes, codePage_);
        return true;
    }

    void readInto(Section& section) {
        std::size_t count = 0;
        std::wstring line;
        while (next(line) && line.find(sectionEnd) == std::wstring::npos) {
            ++count;
            if (trim(line).empty() || line.starts_with(L'#'))
                continue;
            if (section.header.empty())
                section.header = headerOf(line);
            else
                section.lines.push_back({number_, line});
        }
        section.present = count >= 2;
    }

    static HeaderColumns headerOf(std::wstring_view line) {
        HeaderColumns header;
        std::size_t position = 0;
        for (const std::wstring_view cell : split(line, separator.front())) {
            const std::wstring_view name = trimOf(cell, L" \t\"");
            if (!name.empty())
                header.emplace(name, position);
            ++position;
        }
        return header;
    }

    LineReader lines_;
    CodePage codePage_;
    std::size_t number_ = 0;
};

} // namespace

Sections readSections(std::string_view bytes, CodePage codePage) {
    Sections sections;
    SectionReader reader(bytes, codePage);
    static_cast<void>(reader.read(sections.families) && reader.read(sections.makers) &&
                      reader.read(sections.rules) && reader.read(sections.tables));
    return sections;
}

SectionRows::SectionRows(const Section& section, std::span<const std::wstring_view> columns)
    : section_(section), columns_(ruleColumnsOf(columns)), splitter_(columns, section.header) {}

RuleRow SectionRows::operator[](std::size_t index) const {
    const Section::Line& line = section_.lines[index];
    return {line.number, columns_, splitter_.split(line.text, separator)};
}

std::optional<std::int32_t> idOf(const RuleRow& row, std::wstring_view column) {
    const std::wstring* cell = row.find(column);
    if (cell == nullptr || readInteger(*cell).consumed == 0)
        return std::nullopt;
    return toInteger(*cell);
}

} // namespace partwright::group_library
