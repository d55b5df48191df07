// What the commands do about saves that were interrupted, about files that somebody else changes or
// writes, and about a state folder that cannot be written.

#include "cli/cli_fixture.h"
#include "core/messages.h"
#include "core/system_error.h"
#include "library/datasheet_links.h"
#include "support/interrupted_save.h"

#include <algorithm>
#include <cerrno>

namespace partwright::test {

namespace {

class CliSaving : public CliTest {
protected:
    CliSaving() {
        folder.putParts("R1,R-1,,RES 4K7 1% 0603,100-1,Yes\n");
        folder.put(L"public/AnalysesLib_Public.csv", "sep=,\n|,\n|,End of File\n");
        EXPECT_EQ(inProject({"fill"}).code, 0);
    }

    /// Interrupts a save that would take the remark out again which it first puts in; the text that
    /// was to be saved.
    std::string interrupt(std::wstring_view file) {
        std::string wanted = folder.bytesOf(file);
        folder.put(file, wanted + "|," + std::string(1000, 'r') + "\n");
        interruptSave(folder / file, wanted);
        return wanted;
    }

    /// One line, about one file, before the one that tells what was looked at.
    static void expectLine(const Answer& answer, const std::string& words,
                           const std::string& path) {
        const std::string told = answer.err.substr(0, answer.err.find("Looked at"));
        EXPECT_EQ(std::count(told.begin(), told.end(), '\n'), 1) << answer.err;
        EXPECT_NE(told.find(words), std::string::npos) << answer.err;
        EXPECT_NE(told.find(path), std::string::npos) << answer.err;
    }
};

/// An error stream whose reader changes a file as soon as it is written to.
class Meddler : public std::stringbuf {
public:
    Meddler(std::wstring path) : path_(std::move(path)) {}

private:
    std::streamsize xsputn(const char* text, std::streamsize size) override {
        std::ofstream(nativePath(path_), std::ios::app) << "one line more\n";
        return std::stringbuf::xsputn(text, size);
    }
    std::wstring path_;
};

} // namespace

TEST_F(CliSaving, AnInterruptedSaveIsRefusedUntilItIsCompleted) {
    folder.put(linkFile, "PartNum,FileName,\nR-1,r.pdf,\n");
    for (const std::wstring_view file : {sdtaFile, analysesFile, linkFile}) {
        const std::string wanted = interrupt(file);
        const std::string torn = folder.bytesOf(file);
        for (const char* command : {"status", "check", "fill"}) {
            const Answer refused = inProject({command});
            EXPECT_EQ(refused.code, 1);
            EXPECT_EQ(refused.out, "");
            expectLine(refused, "--recover", pathOf(file));
        }
        EXPECT_EQ(folder.bytesOf(file), torn);
        expectLine(inProject({"status", "--recover"}), "was completed", pathOf(file));
        EXPECT_EQ(folder.bytesOf(file), wanted);
        EXPECT_TRUE(inProject({"status"}).err.starts_with("Looked at"));
    }
}

TEST_F(CliSaving, ConvertLooksAtTheLibraryItReads) {
    static_cast<void>(interrupt(sdtaFile));
    const Arguments command = {"convert", pathOf(sdtaFile), pathOf(L"out.csv"), "--kind", "sdta"};
    Answer answer = withTables(command);
    EXPECT_EQ(answer.code, 1);
    expectLine(answer, "--recover", pathOf(sdtaFile));
    EXPECT_FALSE(fileExists(folder / L"out.csv"));
    Arguments recovering = command;
    recovering.emplace_back("--recover");
    EXPECT_EQ(withTables(recovering).code, 0);
    EXPECT_TRUE(fileExists(folder / L"out.csv"));
}

TEST_F(CliSaving, WhatSomebodyElseWritesIsNotWrittenOver) {
    folder.putParts("R1,NEW-2,,RES 4K7 1% 0603,100-1,Yes\n");
    const auto before = folder.files();
    {
        const InPlaceFile holder(folder / sdtaFile);
        const Answer answer = inProject({"fill", "--sdta"});
        EXPECT_EQ(answer.code, 1);
        EXPECT_TRUE(answer.err.starts_with(encodeUtf8(message::fileInUse(folder / sdtaFile))));
    }
    EXPECT_EQ(folder.files(), before);

    // The last library that is read is not there, which is told.
    std::filesystem::remove(nativePath(folder / L"public/AnalysesLib_Public.csv"));
    Meddler meddler(folder / analysesFile);
    std::ostream err(&meddler);
    std::istringstream in;
    std::ostringstream out;
    const int code =
        cli::run({"fill", "--analyses", "--library", pathOf(L"library"), "--input",
                  pathOf(L"input"), "--public", pathOf(L"public"), "--program", tables},
                 in, out, err);
    EXPECT_EQ(code, 1);
    const auto question = message::fileChanged(folder / analysesFile, message::FileChange::Changed);
    EXPECT_NE(meddler.str().find(encodeUtf8(question)), std::string::npos) << meddler.str();
    EXPECT_EQ(folder.bytesOf(analysesFile).find("NEW-2"), std::string::npos);
    EXPECT_EQ(inProject({"fill"}).code, 0);
    EXPECT_NE(folder.bytesOf(analysesFile).find("NEW-2"), std::string::npos);
}

TEST_F(CliSaving, WithoutAStateFolderOneLineSaysSo) {
    folder.putParts("R1,NEW-2,,RES 4K7 1% 0603,100-1,Yes\n");
    setenv("XDG_STATE_HOME", pathOf(sdtaFile).c_str(), 1);
    const Answer answer = inProject({"fill"});
    EXPECT_EQ(answer.code, 0);
    expectLine(answer, "not secured", encodeUtf8(systemErrorText(EEXIST)));
    EXPECT_NE(folder.bytesOf(analysesFile).find("NEW-2"), std::string::npos);
}

} // namespace partwright::test
