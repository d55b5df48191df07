// How long the window takes from the start of its process to its first paint, beside a bare form
// with as many widgets, and what 10,000 rows in each design library add. Each start is a process of
// its own; the kinds take turns, and the median of each counts.
//
//   start_bench [ROUNDS]

#include "core/paths.h"
#include "core/system_clock.h"
#include "core/text_file.h"
#include "dialogs/main_dialog.h"
#include "editing/main_session.h"
#include "editing/startup.h"
#include "library/library_writer.h"
#include "platform/desktop_opener.h"
#include "platform/message_prompt.h"
#include "support/temp_folder.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QProcess>
#include <QPushButton>
#include <QRadioButton>
#include <QTimer>
#include <algorithm>
#include <cstdio>
#include <functional>
#include <string>
#include <vector>

namespace partwright {
namespace {

constexpr int manyRows = 10'000;

/// Tells the number of widgets once the window has been painted, and ends the process.
class FirstPaint final : public QObject {
public:
    explicit FirstPaint(QWidget& window) { window.installEventFilter(this); }
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Paint)
            QTimer::singleShot(0, watched, [watched] {
                std::printf("%lld\n",
                            static_cast<long long>(watched->findChildren<QWidget*>().size()));
                std::fflush(stdout);
                QApplication::quit();
            });
        return false;
    }
};

int show(QWidget& window) {
    const FirstPaint painted(window);
    window.show();
    return QApplication::exec();
}

int showBareForm(int widgets) {
    QDialog form;
    auto* grid = new QGridLayout(&form);
    for (int i = 0; i < widgets; ++i) {
        const QString text = QString::number(i);
        QWidget* one = nullptr;
        if (i % 4 == 0)
            one = new QPushButton(text);
        else if (i % 4 == 1)
            one = new QLabel(text);
        else if (i % 4 == 2)
            one = new QRadioButton(text);
        else
            one = new QLineEdit(text);
        grid->addWidget(one, i / 4, i % 4);
    }
    return show(form);
}

void useProject(CPartwrightPlugInApp& app, const std::wstring& folder) {
    app.hostTool = 1;
    app.libraryFolder = folder;
    app.projectInputFolder = withSeparator(folder);
}

int showWindow(const std::wstring& folder) {
    MessagePrompt prompt;
    DesktopOpener opener;
    SystemClock clock;
    CPartwrightPlugInApp app;
    useProject(app, folder);
    FillEngine engine(app);
    MainSession session(app, engine, prompt);
    loadAtStart(app, clock, prompt, {pathText(PARTWRIGHT_TABLES), folder});
    session.start();
    CPartwrightPlugInDlg dialog(session, {app, prompt, opener});
    return show(dialog);
}

/// Libraries of a project without a part list, each with so many rows.
void writeLibraries(const test::TempFolder& folder, int rows) {
    MessagePrompt prompt;
    CPartwrightPlugInApp app;
    useProject(app, pathText(folder.path()));
    const StartOptions options{pathText(PARTWRIGHT_TABLES), pathText(folder.path())};
    loadTables(app, prompt, options);
    SdtaLibrary sdta;
    AsrLibrary analyses;
    const auto fill = [rows](auto& library, int groups) {
        for (int i = 0; i < rows; ++i) {
            typename std::decay_t<decltype(library)>::mapped_type record;
            record.PartNum = L"PART-" + std::to_wstring(i);
            record.Description = L"RES SMD 4.7K OHM 1% 1/10W 0603";
            record.group = 1 + i % groups;
            for (std::size_t slot = 1; slot < 8; ++slot)
                record.LPar[slot] = std::to_wstring(i % 97);
            library.emplace(record.PartNum, std::move(record));
        }
    };
    fill(sdta, 20);
    fill(analyses, 20);
    static_cast<void>(SaveSdtaLibrary(app, recordsByGroup(sdta), app.sdtaLibraryPath));
    static_cast<void>(SaveAnalysesLibrary(app, recordsByGroup(analyses), app.asrLibraryPath));
    const SdtaLibrary noSdta;
    const AsrLibrary noAnalyses;
    static_cast<void>(SaveSdtaLibrary(app, recordsByGroup(noSdta), app.publicSdtaLibraryPath));
    static_cast<void>(
        SaveAnalysesLibrary(app, recordsByGroup(noAnalyses), app.publicAsrLibraryPath));
}

struct StartKind {
    const char* name;
    QStringList arguments;
    std::vector<double> milliseconds;
};

/// Milliseconds of one start; what the process printed goes to `output`.
double start(const QStringList& arguments, QByteArray& output) {
    QElapsedTimer watch;
    watch.start();
    QProcess process;
    process.start(QCoreApplication::applicationFilePath(), arguments);
    process.waitForReadyRead();
    const double time = static_cast<double>(watch.nsecsElapsed()) / 1e6;
    process.waitForFinished();
    output = process.readAllStandardOutput();
    return time;
}

double median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

int compare(int rounds) {
    const test::TempFolder empty;
    const test::TempFolder full;
    writeLibraries(empty, 0);
    writeLibraries(full, manyRows);
    const QString emptyPath = QString::fromStdString(empty.path().string());
    const QString fullPath = QString::fromStdString(full.path().string());
    QByteArray widgets;
    start({QStringLiteral("--window"), emptyPath}, widgets);
    StartKind kinds[] = {
        {"bare form", {QStringLiteral("--bare"), QString::fromLatin1(widgets.trimmed())}, {}},
        {"empty libraries", {QStringLiteral("--window"), emptyPath}, {}},
        {"10,000 rows each", {QStringLiteral("--window"), fullPath}, {}},
    };
    QByteArray ignored;
    for (int round = 0; round < rounds; ++round)
        for (StartKind& kind : kinds)
            kind.milliseconds.push_back(start(kind.arguments, ignored));
    for (const StartKind& kind : kinds)
        std::printf("%-18s %7.1f ms\n", kind.name, median(kind.milliseconds));
    const double bare = median(kinds[0].milliseconds);
    const double window = median(kinds[1].milliseconds);
    std::printf("widgets %s, window to bare form %.2f (at most 1.5), the rows add %.0f ms (at most "
                "120)\n",
                widgets.trimmed().constData(), window / bare,
                median(kinds[2].milliseconds) - window);
    return 0;
}

} // namespace
} // namespace partwright

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    const QStringList arguments = QApplication::arguments();
    if (arguments.value(1) == QStringLiteral("--bare"))
        return partwright::showBareForm(arguments.value(2).toInt());
    if (arguments.value(1) == QStringLiteral("--window"))
        return partwright::showWindow(arguments.value(2).toStdWString());
    return partwright::compare(arguments.size() > 1 ? arguments.at(1).toInt() : 15);
}
