// Damaged library files: what is read of them, what is told, what a save does, and the file
// afterwards (tests/data/library/damaged.cases); and that saving without a change loses nothing of
// any file.

#include "core/messages.h"
#include "library/library_generator.h"
#include "library/library_reader.h"
#include "library/library_writer.h"
#include "library/sample_app.h"
#include "support/places.h"
#include "support/temp_folder.h"

#include <gtest/gtest.h>

#include <fstream>
#include <set>

namespace partwright::test {

namespace {

/// Reading and writing by kind.
template <class Record>
class LibraryOnDisk {
public:
    using Library = typename Kind<Record>::Library;

    LibraryOnDisk(const TempFolder& folder, std::wstring decimalPoint, std::string_view bytes)
        : app(sampleApp(std::move(decimalPoint))), path(folder.put(L"lib.csv", bytes)) {
        load();
    }
    void load() {
        if constexpr (std::is_same_v<Record, SdtaComponent>)
            static_cast<void>(LoadSdtaLibrary(app, library, path));
        else
            static_cast<void>(LoadAnalysesLibrary(app, library, path));
    }
    SaveResult save() {
        const auto records = recordsByGroup<Record>(library);
        if constexpr (std::is_same_v<Record, SdtaComponent>)
            return SaveSdtaLibrary(app, records, path);
        else
            return SaveAnalysesLibrary(app, records, path);
    }
    LoadReport& report() { return app.libraries.loadReports[path]; }

    CPartwrightPlugInApp app;
    std::wstring path;
    Library library;
};

struct DamagedFile {
    std::string name;
    std::string kind;
    std::string lineEnd = "\n";
    std::vector<std::string> lines;
    std::vector<std::string> read;
    std::vector<std::string> told;
    std::vector<std::string> added;
    std::string save;
    std::vector<std::string> after;
};

std::string replaced(std::string text, std::string_view from, const std::string& to) {
    for (auto at = text.find(from); at != std::string::npos; at = text.find(from, at + to.size()))
        text.replace(at, from.size(), to);
    return text;
}

/// A line of a case with its abbreviations written out.
std::string expanded(std::string line, bool analyses) {
    line = replaced(line, "$X", std::string(300, 'x'));
    line = replaced(line, "$H",
                    std::string("*,PMET,FAMILY,GROUP,PART#,CAT#,DESCR,Type,") +
                        (analyses ? "PinF-1,PinF-2" : "V-RT") + ",Manufacturer,Notes,Color,*");
    if (line.starts_with('{')) {
        const std::string part = line.substr(1, line.find('}') - 1);
        line = analyses
                   ? ">,DORVANE,Fuse,Kind 27,\"\"\"@\"\"\",\"\"\"c\"\"\",\"\"\"d\"\"\",Fuse,A,2,"
                     "Acme,n,,<"
                   : ">,SDTA-M, Lamp,Lamp group 17,\"\"\"@\"\"\",\"\"\"c\"\"\",\"\"\"d\"\"\","
                     "AC.Lamp,12,\"\"\"Acme\"\"\",\"\"\"n\"\"\",,<";
        line = replaced(line, "@", part);
    }
    for (auto at = line.find("\\x"); at != std::string::npos; at = line.find("\\x", at + 1))
        if (line.size() >= at + 4 && std::isxdigit(line[at + 2]) && std::isxdigit(line[at + 3]))
            line.replace(at, 4, 1,
                         static_cast<char>(std::stoi(line.substr(at + 2, 2), nullptr, 16)));
    return line;
}

std::vector<DamagedFile> damagedFiles() {
    std::vector<DamagedFile> cases;
    std::ifstream in(std::string(places::testData) + "/library/damaged.cases");
    for (std::string line; std::getline(in, line);) {
        const auto blank = std::min(line.find(' '), line.size());
        const std::string word = line.substr(0, blank);
        const std::string text = line.substr(std::min(blank + 1, line.size()));
        if (word == "==")
            cases.emplace_back().name = text;
        if (cases.empty() || word.empty())
            continue;
        DamagedFile& one = cases.back();
        if (word == "kind")
            one.kind = text;
        else if (word == "ends")
            one.lineEnd = text == "cr" ? "\r" : "\r\n";
        else if (word == "save")
            one.save = text;
        else
            for (auto& [mark, list] : {std::pair{"|", &one.lines}, std::pair{"read", &one.read},
                                       std::pair{"told", &one.told}, std::pair{"add", &one.added},
                                       std::pair{"after", &one.after}})
                if (word == mark)
                    list->push_back(expanded(text, one.kind == "analyses"));
    }
    return cases;
}

std::string bytesOf(std::wstring_view text) {
    std::string bytes;
    static_cast<void>(encodeInto(bytes, text, CodePage::Utf8));
    return bytes;
}

template <class Record>
std::string told(const CPartwrightPlugInApp& app, const Record& record) {
    std::wstring values;
    const std::size_t columns = Kind<Record>::columns(record.group).size();
    for (std::size_t i = 0; i < columns; ++i)
        values.append(i == 0 ? L"" : L",").append(record.LPar[i]);
    const std::wstring type(app.of<Record>().GroupAndTypeNames(record.group, record.type).second);
    return bytesOf(record.PartNum + L"|" + record.CatNum + L"|" + record.Description + L"|" +
                   std::to_wstring(record.group) + L"|" + type + L"|" + values + L"|" +
                   record.Manufacturer + L"|" + record.Notes);
}

/// The lines of a saved file without banner, spacers and end, each of them checked.
std::vector<std::string> contentOf(const std::string& bytes, const std::string& lineEnd) {
    std::vector<std::string> lines;
    for (std::size_t at = 0; at < bytes.size();) {
        const auto end = bytes.find(lineEnd, at);
        EXPECT_NE(end, std::string::npos);
        if (end == std::string::npos)
            break;
        lines.push_back(bytes.substr(at, end - at));
        at = end + lineEnd.size();
    }
    EXPECT_GE(lines.size(), 7U);
    EXPECT_EQ(lines.front(), "sep=,");
    EXPECT_EQ(lines.back(), "|,End of File");
    lines.pop_back();
    lines.erase(lines.begin(), lines.begin() + 5);
    std::erase(lines, "|,");
    return lines;
}

template <class Record>
void tryCase(const DamagedFile& one) {
    std::string bytes;
    for (const std::string& line : one.lines)
        bytes += line + one.lineEnd;
    const TempFolder folder;
    LibraryOnDisk<Record> disk(folder, L".", bytes);
    std::vector<std::string> read;
    for (const auto& [key, record] : disk.library)
        read.push_back(told(disk.app, record));
    EXPECT_EQ(read, one.read);
    std::vector<std::string> entries;
    for (const LoadEntry& entry : disk.report().entries())
        entries.push_back(bytesOf(message::entryText(entry)));
    EXPECT_EQ(entries, one.told);

    for (const std::string& part : one.added) {
        Record& record = disk.library[decode(part, CodePage::Utf8)];
        record.PartNum = decode(part, CodePage::Utf8);
        record.group = 17;
    }
    SaveResult result = disk.save();
    if (one.save.starts_with("refuses ")) {
        EXPECT_EQ(result.status, SaveStatus::Refused);
        EXPECT_NE(bytesOf(result.message).find(one.save.substr(8)), std::string::npos)
            << bytesOf(result.message);
        EXPECT_EQ(folder.bytesOf(L"lib.csv"), bytes);
        return;
    }
    if (one.save.starts_with("asks ")) {
        EXPECT_EQ(result.status, SaveStatus::WouldDrop);
        EXPECT_EQ(result.message,
                  message::savingWillDrop(disk.path, std::stoul(one.save.substr(5))));
        EXPECT_EQ(folder.bytesOf(L"lib.csv"), bytes);
        disk.report().dropsAllowed = true;
        result = disk.save();
    }
    ASSERT_EQ(result.status, SaveStatus::Saved);
    EXPECT_EQ(contentOf(folder.bytesOf(L"lib.csv"), one.lineEnd), one.after);
}

/// A file of generated records with lines in it that no reader takes, and its line ends as wanted.
template <class Record>
std::string generatedFile(const CPartwrightPlugInApp& app, std::string_view lineEnd, Dice& dice) {
    const auto library = generatedLibrary<Record>(app, 1 + dice.roll(20), dice.roll(1'000'000));
    const auto records = recordsByGroup<Record>(library);
    const std::string written = formatLibrary<Record>(app, records, L"/lib.csv", {}).bytes;
    std::vector<std::string> lines;
    LineReader reader(written);
    for (std::string_view line; reader.next(line);)
        lines.emplace_back(line);
    const std::string start = ">" + std::string(1, static_cast<char>(app.writtenSeparator()));
    for (std::size_t n = dice.roll(8); n > 0; --n) {
        std::string line = dice.pick(lines);
        switch (dice.roll(4)) {
        case 0:
            line = "# " + encodeUtf8(generatedText(dice, 30));
            break;
        case 1:
            line = start + "OTHER" + line.substr(std::min<std::size_t>(1, line.size()));
            break;
        case 2: // too long in the middle
            line.insert(line.size() / 2, std::string(300, 'x'));
            break;
        default: // cut, or the same again
            line.resize(dice.roll(line.size() + 1));
        }
        lines.insert(lines.begin() + 1 + static_cast<std::ptrdiff_t>(dice.roll(lines.size() - 1)),
                     line);
    }
    std::string bytes;
    for (const std::string& line : lines)
        bytes.append(line).append(lineEnd);
    return bytes;
}

template <class Record>
class AnyLibraryFile : public testing::Test {};
using Kinds = testing::Types<SdtaComponent, AsrComponent>;
TYPED_TEST_SUITE(AnyLibraryFile, Kinds);

} // namespace

TEST(DamagedFiles, CaseFile) {
    const auto cases = damagedFiles();
    EXPECT_GT(cases.size(), 30U);
    for (const DamagedFile& one : cases) {
        SCOPED_TRACE(one.name);
        if (one.kind == "analyses")
            tryCase<AsrComponent>(one);
        else
            tryCase<SdtaComponent>(one);
    }
}

TYPED_TEST(AnyLibraryFile, SavedUntouchedHasWhatItHad) {
    const TempFolder folder;
    Dice dice(20260101);
    std::size_t saved = 0;
    std::size_t asked = 0;
    for (int round = 0; round < 120; ++round) {
        const wchar_t* mark = dice.roll(2) == 0 ? L"." : L",";
        static constexpr std::string_view lineEnds[] = {"\n", "\r\n", "\r"};
        const std::string bytes =
            generatedFile<TypeParam>(sampleApp(mark), dice.pick(lineEnds), dice);
        SCOPED_TRACE(bytes);
        LibraryOnDisk<TypeParam> disk(folder, mark, bytes);
        const auto records = disk.library;
        const LoadReport report = disk.report();
        SaveResult result = disk.save();
        if (result.status == SaveStatus::WouldDrop) {
            ++asked;
            EXPECT_GT(report.drops(), 0U);
            EXPECT_EQ(folder.bytesOf(L"lib.csv"), bytes) << "nothing goes unasked";
            disk.report().dropsAllowed = true;
            result = disk.save();
        } else if (result.status == SaveStatus::Refused) {
            EXPECT_EQ(folder.bytesOf(L"lib.csv"), bytes);
            continue;
        }
        ASSERT_EQ(result.status, SaveStatus::Saved);
        ++saved;
        const std::string after = folder.bytesOf(L"lib.csv");
        for (const KeptLine& line : report.keptLines)
            EXPECT_NE(after.find(line.bytes), std::string::npos) << line.bytes;
        disk.load();
        std::set<std::wstring> lessened; // what somebody agreed to
        for (const LoadEntry& entry : report.entries())
            lessened.insert(entry.part);
        EXPECT_EQ(disk.library.size(), records.size());
        for (const auto& [key, record] : records)
            EXPECT_TRUE(disk.library.contains(key) &&
                        (lessened.contains(key) || disk.library.at(key) == record))
                << encodeUtf8(key);
        EXPECT_EQ(disk.report().drops(), 0U);
        EXPECT_EQ(disk.report().keptLines.size(), report.keptLines.size());
        if (testing::Test::HasFailure())
            return;
    }
    EXPECT_GT(asked, 10U);
    EXPECT_GT(saved, asked);
}

} // namespace partwright::test
