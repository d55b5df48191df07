// Every call of a save may fail, and the process may end at each: afterwards, at the latest when
// the next start has completed what was interrupted, each file is the old or the new one, byte for
// byte, and no failure was told as a success.

#include "autofill/fill_engine.h"
#include "core/system_clock.h"
#include "editing/interrupted_saves.h"
#include "editing/main_session.h"
#include "editing/startup.h"
#include "library/datasheet_links.h"
#include "saves/faults.h"
#include "saves/minimal_tables.h"
#include "support/project_folder.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <optional>

namespace partwright::test {

namespace fs = std::filesystem;

/// Says Yes to everything.
class Agreeing final : public Prompt {
public:
    PromptAnswer show(std::wstring_view, std::wstring_view, PromptIcon,
                      PromptButtons buttons) override {
        return buttons == PromptButtons::YesNo ? PromptAnswer::Yes : PromptAnswer::Ok;
    }
};

using Texts = std::map<std::string, std::string>;

/// How a process ended that was to save. SavedInSpite: after a call on the file itself had failed.
enum class End { Saved, Told, SavedInSpite, Killed };

/// A project whose window is open, with changes in both libraries and in the links.
class OpenProject {
public:
    OpenProject() {
        folder.putParts("R1,R-1,,RES 10 k,,Yes\nC1,C-1,,CAP 1 uF,,Yes\n");
        minimalTables(folder);
        start();
        change(L"as it was at first, and long", L"first.pdf");
        EXPECT_TRUE(session->closeWithOk());
    }

    void start() {
        app = {};
        app.paths.hostTool = 1;
        app.paths.libraryFolder = folder / L"library";
        app.paths.projectInputFolder = folder / L"input/";
        engine.emplace(app);
        session.emplace(app, *engine, prompt);
        loadAtStart(app, clock, prompt, {folder / L"tables", folder / L"public"});
        session->start();
    }
    void change(std::wstring_view notes, std::wstring_view link) {
        for (auto& [part, record] : session->sdtaPage.designLibrary)
            record.Notes = notes;
        for (auto& [part, record] : session->asrPage.designLibrary)
            record.Notes = notes;
        app.libraries.datasheetLinks[L"R-1"] = link;
    }
    [[nodiscard]] Texts texts() const {
        Texts all;
        for (const auto& [name, bytes] : folder.files())
            if (name.starts_with("library/"))
                all[name] = bytes;
        return all;
    }
    void restore(const Texts& old) const {
        for (const char* place : {"library", "state"}) {
            fs::remove_all(folder.path() / place);
            fs::create_directory(folder.path() / place);
        }
        for (const auto& [name, bytes] : old)
            folder.put(pathText(name), bytes);
    }
    /// OK in a process of its own, with the fault.
    End save(std::size_t call, Fault fault) {
        const pid_t child = fork();
        if (child == 0) {
            planFault(folder.path().c_str(), call, fault);
            const bool isSaved = session->closeWithOk();
            const bool isHit =
                std::string_view(failedFile()).find("/library/") != std::string_view::npos;
            _exit(static_cast<int>(!isSaved ? End::Told : isHit ? End::SavedInSpite : End::Saved));
        }
        int status = 0;
        waitpid(child, &status, 0);
        return WIFSIGNALED(status) ? End::Killed : static_cast<End>(WEXITSTATUS(status));
    }
    [[nodiscard]] std::size_t callsOfASave() {
        planFault(folder.path().c_str(), std::size_t(-1), Fault::None);
        EXPECT_TRUE(session->closeWithOk());
        const std::size_t calls = countedCalls();
        planFault("", 0, Fault::None);
        return calls;
    }
    bool recover() { return settleInterruptedSaves(app.paths, InterruptedSaves::Complete, prompt); }

    ProjectFolder folder;
    Agreeing prompt;
    SystemClock clock;
    CPartwrightPlugInApp app;
    std::optional<FillEngine> engine;
    std::optional<MainSession> session;
};

constexpr std::array faults = {
    Fault::KillBefore,         Fault::KillAfter,         Fault::KillInside,  Fault::Short,
    Fault::Interrupted,        Fault::NoSpace,           Fault::DeviceError, Fault::NoSpaceFromNow,
    Fault::DeviceErrorFromNow, Fault::InterruptedFromNow};

/// Each file is the one or the other.
void expectOldOrNew(const Texts& now, const Texts& old, const Texts& wanted) {
    for (const auto& [name, bytes] : wanted) {
        const auto file = now.find(name);
        const auto before = old.find(name);
        const bool isOld = file == now.end()
                               ? before == old.end()
                               : before != old.end() && before->second == file->second;
        EXPECT_TRUE(isOld || (file != now.end() && file->second == bytes)) << name;
    }
}

class InterruptedSaveTest : public ::testing::TestWithParam<std::wstring> {};

/// From the notes and links at the start to those of the parameter, in whatever state the files
/// are.
TEST_P(InterruptedSaveTest, IsOldOrNewAfterTheNextStart) {
    OpenProject project;
    Texts old = project.texts();
    if (GetParam().empty()) {
        old.clear();
        project.restore(old);
    }
    project.start();
    project.change(GetParam(), L"a-longer-name.pdf");
    auto app = project.app;
    const std::size_t calls = project.callsOfASave();
    ASSERT_GT(calls, 20U);
    const Texts wanted = project.texts();
    project.app = app;
    int killed = 0;
    int told = 0;
    for (const Fault fault : faults)
        for (std::size_t call = 1; call <= calls; ++call) {
            SCOPED_TRACE("fault " + std::to_string(static_cast<int>(fault)) + " at call " +
                         std::to_string(call) + " of " + std::to_string(calls));
            project.restore(old);
            const End end = project.save(call, fault);
            const bool isSuccess = end == End::Saved || end == End::SavedInSpite;
            ASSERT_TRUE(!isSuccess || project.texts() == wanted) << "not saved, told as saved";
            ASSERT_TRUE(end != End::SavedInSpite || fault == Fault::Interrupted)
                << "a failure was told as a success";
            killed += end == End::Killed ? 1 : 0;
            told += end == End::Told ? 1 : 0;
            ASSERT_TRUE(project.recover());
            expectOldOrNew(project.texts(), old, wanted);
            if (HasFailure())
                return;
        }
    EXPECT_GT(killed, 50);
    EXPECT_GT(told, 50);
}

INSTANTIATE_TEST_SUITE_P(Saves, InterruptedSaveTest,
                         ::testing::Values(L"longer by far than it was at the start of it all",
                                           L"short", L""));

} // namespace partwright::test
