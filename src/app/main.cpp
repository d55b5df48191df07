// partwright: the window program. The host starts it with five quoted fields (core/command_line.h).

#include "core/command_line.h"
#include "core/messages.h"
#include "core/paths.h"
#include "core/signal_guard.h"
#include "core/system_clock.h"
#include "core/text_file.h"
#include "dialogs/main_dialog.h"
#include "dialogs/wait_cursor.h"
#include "editing/main_session.h"
#include "editing/startup.h"
#include "platform/desktop_opener.h"
#include "platform/guarded_application.h"
#include "platform/message_prompt.h"
#include "platform/progress_box.h"

#include <QApplication>
#include <cstdio>
#include <filesystem>
#include <string_view>
#include <vector>

namespace {

constexpr const char* help =
    "Usage: partwright TOOL LIBRARY_FOLDER INPUT_FOLDER PAGE LEVEL\n"
    "\n"
    "  TOOL            design tool: 1 Altium, 2 OrCAD, 3 Mentor\n"
    "  LIBRARY_FOLDER  folder of the project's design libraries\n"
    "  INPUT_FOLDER    folder of the project input file, with its separator; may be empty\n"
    "  PAGE            page shown first: 0 SDTA, 1 Analyses\n"
    "  LEVEL           level of the Analyses page: 0 schematic review, 1 rapid stress calculation\n"
    "\n"
    "  --help          this text\n"
    "  --version       the version\n";

std::vector<std::wstring> wideArguments(int argc, char** argv) {
    std::vector<std::wstring> arguments;
    for (int i = 1; i < argc; ++i)
        arguments.push_back(partwright::pathText(std::filesystem::path(argv[i])));
    return arguments;
}

void runWindow(const partwright::CommandLine& fields, partwright::Prompt& prompt) {
    using namespace partwright;
    DesktopOpener opener;
    SystemClock clock;
    CPartwrightPlugInApp app;
    app.paths.hostTool = fields.hostTool;
    app.paths.libraryFolder = fields.libraryFolder;
    app.paths.projectInputFolder = asFolder(fields.projectInputFolder);
    app.startPage = fields.startPage;
    app.analysisLevel = fields.analysisLevel;
    ProgressBox progress;
    FillEngine engine(app);
    engine.setProgress(progress);
    MainSession session(app, engine, prompt);
    {
        const WaitCursor wait;
        loadAtStart(app, clock, prompt, {});
        session.start();
    }
    CPartwrightPlugInDlg dialog(session, {app, prompt, opener});
    dialog.exec();
}

} // namespace

int main(int argc, char** argv) {
    const std::vector<std::wstring> arguments = wideArguments(argc, argv);
    if (arguments.size() == 1 && arguments[0] == L"--help") {
        std::fputs(help, stdout);
        return 0;
    }
    if (arguments.size() == 1 && arguments[0] == L"--version") {
        std::puts("partwright " PARTWRIGHT_VERSION);
        return 0;
    }
    partwright::ignoreWriteSignals();
    partwright::MessagePrompt prompt;
    partwright::GuardedApplication application(argc, argv, prompt);
    QApplication::setDesktopFileName(QStringLiteral("partwright"));
    // Serves as the display name, too. Set as such it would be put behind the title of every box.
    QApplication::setApplicationName(QStringLiteral("Partwright"));
    const partwright::CommandLine fields =
        partwright::parseCommandLine(partwright::commandLineText(arguments));
    if (!fields.valid) {
        prompt.tell(partwright::message::commandLineError, partwright::PromptIcon::Warning);
        return 0;
    }
    const bool hasRun = partwright::MemoryGuard(prompt).run([&] {
        runWindow(fields, prompt);
        return true;
    });
    return hasRun ? 0 : 2;
}
