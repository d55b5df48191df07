// Writing in place, the look at what is there, and the kept text of a save: what each leaves on the
// disk, and what the next start makes of it.

#include "core/signal_guard.h"
#include "core/system_error.h"
#include "support/interrupted_save.h"
#include "support/temp_folder.h"

#include <cerrno>

namespace partwright::test {

namespace fs = std::filesystem;
using State = InterruptedSave::State;

class Saving : public ::testing::Test {
protected:
    [[nodiscard]] fs::path state() const { return folder.path() / "state"; }
    [[nodiscard]] std::size_t keptFiles() const {
        const fs::path kept = state() / "partwright";
        return fs::exists(kept) ? static_cast<std::size_t>(std::distance(
                                      fs::directory_iterator(kept), fs::directory_iterator()))
                                : 0;
    }
    static SecuredWrite save(std::wstring_view path, std::string_view bytes) {
        InPlaceFile file(path);
        return writeSecured(path, file, std::string(bytes));
    }

    TempFolder folder;
    const std::string old = std::string(2000, 'o');
    const std::wstring path = folder.put(L"a.csv", old);
};

TEST_F(Saving, HashIsXxh64) {
    EXPECT_EQ(hash64(""), 0xEF46DB3751D8E999U);
    EXPECT_EQ(hash64("a"), 0xD24EC4F1A98C6E5BU);
    EXPECT_EQ(hash64("abc"), 0x44BC2CF5AD770999U);
    EXPECT_EQ(hash64("Nobody inspects the spammish repetition"), 0xFBCEA83C8A378BF1U);
}

TEST_F(Saving, ATextIsKeptUntilItIsWritten) {
    interruptSave(path, "new");
    EXPECT_EQ(folder.bytesOf(L"a.csv").substr(0, 4), "new\n");
    EXPECT_EQ(interruptedSave(folder / L"./x/../a.csv").state, State::Torn) << "by another name";
    EXPECT_EQ(interruptedSave(folder / L"b.csv").state, State::None);
    const fs::path kept = nativePath(interruptedSave(path).keptAt);
    EXPECT_EQ(fs::status(kept).permissions(), fs::perms(0600));
    EXPECT_EQ(fs::status(kept.parent_path()).permissions(), fs::perms(0700));

    folder.put(L"a.csv", old);
    EXPECT_EQ(interruptedSave(path).state, State::NotBegun);
    fs::remove(nativePath(path));
    EXPECT_EQ(interruptedSave(path).state, State::Torn);
    EXPECT_EQ(completeSave(path).status, WriteStatus::Ok);
    EXPECT_EQ(folder.bytesOf(L"a.csv"), "new");
    EXPECT_EQ(keptFiles(), 0U);

    folder.put(L"a.csv", old);
    interruptSave(path, "new");
    folder.put(L"a.csv", "new");
    EXPECT_EQ(interruptedSave(path).state, State::None) << "somebody did it";
    EXPECT_EQ(keptFiles(), 0U);
    EXPECT_TRUE(save(path, "newer").notKept.empty());
    EXPECT_EQ(keptFiles(), 0U);
}

TEST_F(Saving, WithoutAStateFolderTheSaveGoesOn) {
    setenv("XDG_STATE_HOME", nativePath(path).c_str(), 1);
    const SecuredWrite done = save(folder / L"b.csv", "new");
    EXPECT_EQ(done.result.status, WriteStatus::Ok);
    EXPECT_EQ(done.notKept, systemErrorText(EEXIST));
    EXPECT_EQ(folder.bytesOf(L"b.csv"), "new");
}

TEST_F(Saving, OneWriterAtATime) {
    {
        const InPlaceFile holder(path);
        EXPECT_EQ(save(path, "new").result.status, WriteStatus::Locked);
    }
    EXPECT_EQ(folder.bytesOf(L"a.csv"), old);
    InPlaceFile absent(folder / L"b.csv");
    folder.put(L"b.csv", "theirs");
    EXPECT_EQ(absent.write("new").status, WriteStatus::Appeared);
    EXPECT_EQ(folder.bytesOf(L"b.csv"), "theirs");
}

TEST_F(Saving, EqualBytesAreNotWritten) {
    const auto yesterday = fs::file_time_type::clock::now() - std::chrono::hours(24);
    fs::last_write_time(nativePath(path), yesterday);
    EXPECT_EQ(save(path, old).result.status, WriteStatus::Ok);
    EXPECT_EQ(fs::last_write_time(nativePath(path)), yesterday);
    EXPECT_EQ(keptFiles(), 0U);
}

TEST_F(Saving, SignalsWaitForItsEnd) {
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        fs::remove(nativePath(path));
        EXPECT_EXIT(
            {
                const SignalGuard guard;
                std::raise(signal);
                static_cast<void>(save(path, "new")); // a guard inside of the guard
            },
            testing::KilledBySignal(signal), "");
        EXPECT_EQ(folder.bytesOf(L"a.csv"), "new");
    }
}

TEST_F(Saving, NoSpaceLeavesTheDiskAsItWas) {
    for (const std::wstring& file : {path, folder / L"fresh.csv"}) {
        EXPECT_EXIT(
            {
                ignoreWriteSignals();
                rlimit small{};
                small.rlim_cur = small.rlim_max = 3000;
                setrlimit(RLIMIT_FSIZE, &small);
                const WriteResult result = writeTextFile(file, std::string(5000, 'x'));
                const bool isTold = result.status == WriteStatus::WriteFailed && result.oldStands &&
                                    result.reason == systemErrorText(EFBIG);
                std::exit(isTold ? 0 : 1);
            },
            testing::ExitedWithCode(0), "");
    }
    EXPECT_EQ(folder.bytesOf(L"a.csv"), old);
    EXPECT_FALSE(fileExists(folder / L"fresh.csv"));
}

TEST_F(Saving, ErrorsHaveWordsInEveryLocale) {
    EXPECT_EQ(systemErrorText(ENOSPC), L"There is no space left on the disk");
    EXPECT_EQ(systemErrorText(12345), L"The system reported error 12345");
}

} // namespace partwright::test
