// A disk that is too small, in a process of its own: the old content stays.

#include "support/temp_folder.h"

#include <gtest/gtest.h>
#include <sys/resource.h>

#include <csignal>

namespace partwright::test {

TEST(TextFileDeathTest, NoSpaceLeavesTheOldContent) {
    const TempFolder folder;
    const std::wstring path = folder.put(L"a.csv", "old");
    EXPECT_EXIT(
        {
            std::signal(SIGXFSZ, SIG_IGN);
            rlimit small{};
            small.rlim_cur = small.rlim_max = 1000;
            setrlimit(RLIMIT_FSIZE, &small);
            const WriteResult result = writeTextFile(path, std::string(5000, 'x'));
            std::exit(result.status == WriteStatus::WriteFailed && !result.reason.empty() ? 0 : 1);
        },
        testing::ExitedWithCode(0), "");
    EXPECT_EQ(folder.bytesOf(L"a.csv"), "old");
}

} // namespace partwright::test
