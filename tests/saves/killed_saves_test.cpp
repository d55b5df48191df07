// The program is killed for real, at moments that nobody chose: a library that is written over is
// the old or the new one at the latest when the next start has completed what was interrupted.

#include "saves/minimal_tables.h"
#include "support/dice.h"
#include "support/places.h"
#include "support/project_folder.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <thread>

namespace partwright::test {

namespace {

using Clock = std::chrono::steady_clock;
namespace fs = std::filesystem;

pid_t start(std::vector<std::string> words) {
    words.insert(words.begin(), places::commandLineProgram);
    const pid_t child = fork();
    if (child == 0) {
        std::vector<char*> arguments;
        for (std::string& word : words)
            arguments.push_back(word.data());
        arguments.push_back(nullptr);
        static_cast<void>(std::freopen("/dev/null", "w", stdout));
        static_cast<void>(std::freopen("/dev/null", "w", stderr));
        execv(arguments[0], arguments.data());
        _exit(127);
    }
    return child;
}

bool isRunning(pid_t child) {
    siginfo_t state{};
    return waitid(P_PID, static_cast<id_t>(child), &state, WEXITED | WNOHANG | WNOWAIT) == 0 &&
           state.si_pid == 0;
}

int finish(pid_t child) {
    int status = 0;
    waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

/// A library of that many resistors.
std::string resistors(int count, const std::string& notes) {
    std::string text = "sep=,\n|\n*,PMET,FAMILY,GROUP,PART#,CAT#,DESCR,Type,Pw-RT,V-RT,TMax,Res,"
                       "I-RT,Manufacturer,Notes,Color,*\n";
    for (int i = 0; i < count; ++i)
        text += ">,SDTA-M, Resistor,Resistor,R-" + std::to_string(i) +
                ",,RES,RM.Fix.Pw<0.5,0.1,75,155,1000,,ACME," + notes + ",,<\n";
    return text + "|,End of File\n";
}

} // namespace

TEST(KilledSaves, LeaveTheOldLibraryOrTheNewOne) {
    const ProjectFolder folder;
    const std::string tables = minimalTables(folder);
    folder.putParts("");
    const std::string library = (folder.path() / "library").string();
    const std::string input = (folder.path() / "input").string();
    const std::string target = (folder.path() / sdtaFile).string();
    folder.put(L"new.csv", resistors(9000, "x"));
    folder.put(L"old.csv", resistors(9000, "a remark that makes the file longer"));
    const auto convert = [&](const char* from) {
        return std::vector<std::string>{
            "convert", (folder.path() / from).string(), target, "--kind", "sdta", "--program",
            tables};
    };
    ASSERT_EQ(finish(start(convert("old.csv"))), 0);
    const std::string old = folder.bytesOf(sdtaFile);
    const auto began = Clock::now();
    ASSERT_EQ(finish(start(convert("new.csv"))), 0);
    const std::chrono::duration<double> duration = Clock::now() - began;
    const std::string wanted = folder.bytesOf(sdtaFile);
    ASSERT_LT(wanted.size(), old.size());

    const fs::path kept = folder.path() / "state/partwright";
    Dice dice(7);
    for (int round = 0; round < 40; ++round) {
        folder.put(sdtaFile, old);
        const pid_t child = start(convert("new.csv"));
        // Half of the kills come at any time, half soon after the text was kept.
        const bool isLate = round % 2 != 0;
        while (isLate && isRunning(child) && fs::is_empty(kept))
            std::this_thread::yield();
        const double share = static_cast<double>(dice.roll(1000)) / 1000;
        std::this_thread::sleep_for(isLate ? duration * share / 20 : duration * share);
        kill(child, SIGKILL);
        const bool isDone = finish(child) == 0;
        const std::string now = folder.bytesOf(sdtaFile);
        EXPECT_TRUE(!isDone || now == wanted) << "a success that was none";
        ASSERT_TRUE(!fs::is_empty(kept) || now == old || now == wanted);
        ASSERT_EQ(finish(start({"status", "--library", library, "--program", tables, "--public",
                                library, "--input", input, "--recover"})),
                  0);
        const std::string after = folder.bytesOf(sdtaFile);
        ASSERT_TRUE(after == old || after == wanted) << "round " << round;
        EXPECT_TRUE(fs::is_empty(kept));
    }
}

} // namespace partwright::test
