#pragma once

// A save that is killed in its middle, for real: a process of its own runs into the limit of a
// file's size while it covers the old tail, and the system ends it there.

#include "core/recovery.h"

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <string>
#include <string_view>

namespace partwright::test {

/// The old content of the file must be longer than `bytes` by half a kilobyte or more. Afterwards
/// the file begins with `bytes` and ends as it did.
inline void interruptSave(const std::wstring& path, std::string_view bytes) {
    const pid_t child = fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
        const rlimit none{};
        rlimit small{};
        small.rlim_cur = small.rlim_max = bytes.size() + 400;
        std::signal(SIGXFSZ, SIG_DFL);
        setrlimit(RLIMIT_CORE, &none);
        setrlimit(RLIMIT_FSIZE, &small);
        InPlaceFile file(path);
        static_cast<void>(writeSecured(path, file, std::string(bytes)));
        _exit(0);
    }
    int status = 0;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    ASSERT_TRUE(WIFSIGNALED(status)) << "the save was not interrupted";
}

} // namespace partwright::test
