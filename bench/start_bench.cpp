// How long the window takes from the start of its process to its first paint, beside a bare form
// with as many widgets of the same kinds at the same size, and what 10,000 rows in each design
// library add. Each start is a process of its own; the kinds take turns, and the median of each
// counts. Beside the time on the wall stands the processor time of the process up to its first
// paint, which a busy machine disturbs less.
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

#include <sys/resource.h>

#include <QApplication>
#include <QElapsedTimer>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QProcess>
#include <QPushButton>
#include <QRadioButton>
#include <QTabWidget>
#include <QTableWidget>
#include <QTimer>
#include <QVBoxLayout>
#include <algorithm>
#include <cstdio>
#include <map>
#include <string>
#include <vector>

namespace partwright {
namespace {

constexpr int manyRows = 10'000;

/// Processor time that this process has used so far.
double usedMilliseconds() {
    rusage used{};
    getrusage(RUSAGE_SELF, &used);
    const auto milliseconds = [](const timeval& time) {
        return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_usec) / 1e3;
    };
    return milliseconds(used.ru_utime) + milliseconds(used.ru_stime);
}

/// Of each kind of widget that Qt has, how many the window holds.
std::string kindsIn(const QWidget& window) {
    std::map<std::string, int> kinds;
    for (const QWidget* widget : window.findChildren<QWidget*>()) {
        const QMetaObject* kind = widget->metaObject();
        while (kind->className()[0] != 'Q') // one of ours: what it is made of counts
            kind = kind->superClass();
        ++kinds[kind->className()];
    }
    std::string text;
    for (const auto& [name, count] : kinds)
        text += name + ":" + std::to_string(count) + ",";
    return text;
}

/// Once the window has been painted, tells the processor time and the widgets, and ends the
/// process.
class FirstPaint final : public QObject {
public:
    explicit FirstPaint(QWidget& window) : window_(window) { window.installEventFilter(this); }
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::Paint)
            QTimer::singleShot(0, &window_, [this] {
                const double used = usedMilliseconds();
                std::printf("%.3f %lld %d %d %s\n", used,
                            static_cast<long long>(window_.findChildren<QWidget*>().size()),
                            window_.width(), window_.height(), kindsIn(window_).c_str());
                std::fflush(stdout);
                QApplication::quit();
            });
        return false;
    }

private:
    QWidget& window_;
};

int show(QWidget& window) {
    const FirstPaint painted(window);
    window.show();
    return QApplication::exec();
}

/// A box with a column of so many widgets of a kind.
template <class Widget>
QGroupBox* box(int count) {
    auto* result = new QGroupBox(QStringLiteral("Box"));
    auto* column = new QVBoxLayout(result);
    for (int i = 0; i < count; ++i) {
        auto* one = new Widget;
        one->setText(QStringLiteral("Caption %1").arg(i));
        column->addWidget(one);
    }
    return result;
}

QWidget* barePage(const std::vector<int>& radios) {
    auto* page = new QWidget;
    auto* column = new QVBoxLayout(page);
    column->addWidget(box<QLineEdit>(1));
    auto* row = new QHBoxLayout;
    for (const int count : radios)
        row->addWidget(box<QRadioButton>(count));
    row->addWidget(box<QLabel>(2), 1);
    column->addLayout(row);
    auto* table = new QTableWidget(0, 5);
    table->verticalHeader()->hide();
    column->addWidget(table, 1);
    return page;
}

/// A form with the widgets of the program's window, in the same places, and nothing in them but
/// captions: no pictures, colours, rows or records.
int showBareForm(const QSize& size) {
    QDialog form;
    form.setSizeGripEnabled(true);
    auto* row = new QHBoxLayout(&form);
    auto* tabs = new QTabWidget;
    tabs->addTab(barePage({3}), QStringLiteral("One"));
    tabs->addTab(barePage({2, 3}), QStringLiteral("Two"));
    row->addWidget(tabs, 1);
    auto* column = new QVBoxLayout;
    column->addWidget(box<QRadioButton>(2));
    column->addWidget(box<QPushButton>(3));
    for (int i = 0; i < 10; ++i)
        column->addWidget(new QPushButton(QStringLiteral("Command %1").arg(i)));
    column->addStretch(1);
    row->addLayout(column);
    form.resize(size);
    return show(form);
}

void useProject(CPartwrightPlugInApp& app, const std::wstring& folder) {
    app.paths.hostTool = 1;
    app.paths.libraryFolder = folder;
    app.paths.projectInputFolder = withSeparator(folder);
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
    static_cast<void>(SaveSdtaLibrary(app, recordsByGroup(sdta), app.paths.sdtaLibraryPath));
    static_cast<void>(SaveAnalysesLibrary(app, recordsByGroup(analyses), app.paths.asrLibraryPath));
    const SdtaLibrary noSdta;
    const AsrLibrary noAnalyses;
    static_cast<void>(
        SaveSdtaLibrary(app, recordsByGroup(noSdta), app.paths.publicSdtaLibraryPath));
    static_cast<void>(
        SaveAnalysesLibrary(app, recordsByGroup(noAnalyses), app.paths.publicAsrLibraryPath));
}

/// One start of a process: what it took, and what it showed.
struct Start {
    double wall = 0;
    double processor = 0;
    int widgets = 0;
    QSize size;
    QByteArray kinds;
};

Start start(const QStringList& arguments) {
    QElapsedTimer watch;
    watch.start();
    QProcess process;
    process.start(QCoreApplication::applicationFilePath(), arguments);
    process.waitForReadyRead();
    Start result;
    result.wall = static_cast<double>(watch.nsecsElapsed()) / 1e6;
    process.waitForFinished();
    const QList<QByteArray> told = process.readAllStandardOutput().trimmed().split(' ');
    result.processor = told.value(0).toDouble();
    result.widgets = told.value(1).toInt();
    result.size = {told.value(2).toInt(), told.value(3).toInt()};
    result.kinds = told.value(4);
    return result;
}

struct StartKind {
    const char* name;
    QStringList arguments;
    std::vector<Start> starts;

    [[nodiscard]] double median(double Start::*what) const {
        std::vector<double> values;
        for (const Start& one : starts)
            values.push_back(one.*what);
        std::sort(values.begin(), values.end());
        return values[values.size() / 2];
    }
};

int compare(int rounds) {
    const test::TempFolder empty;
    const test::TempFolder full;
    writeLibraries(empty, 0);
    writeLibraries(full, manyRows);
    const QString emptyPath = QString::fromStdString(empty.path().string());
    const QString fullPath = QString::fromStdString(full.path().string());
    const QSize size = start({QStringLiteral("--window"), emptyPath}).size;
    StartKind kinds[] = {
        {"bare form",
         {QStringLiteral("--bare"), QString::number(size.width()), QString::number(size.height())},
         {}},
        {"empty libraries", {QStringLiteral("--window"), emptyPath}, {}},
        {"10,000 rows each", {QStringLiteral("--window"), fullPath}, {}},
    };
    for (int round = 0; round < rounds; ++round)
        for (StartKind& kind : kinds)
            kind.starts.push_back(start(kind.arguments));
    std::printf("%-18s %10s %10s %8s\n", "", "wall ms", "cpu ms", "widgets");
    for (const StartKind& kind : kinds)
        std::printf("%-18s %10.1f %10.1f %8d\n", kind.name, kind.median(&Start::wall),
                    kind.median(&Start::processor), kind.starts.front().widgets);
    const Start& bare = kinds[0].starts.front();
    const Start& window = kinds[1].starts.front();
    if (bare.kinds != window.kinds || bare.size != window.size) {
        std::printf("the bare form is another form:\n%s\n%s\n", bare.kinds.constData(),
                    window.kinds.constData());
        return 1;
    }
    const auto ratio = [&](double Start::*what) {
        return kinds[1].median(what) / kinds[0].median(what);
    };
    const auto added = [&](double Start::*what) {
        return kinds[2].median(what) - kinds[1].median(what);
    };
    std::printf("window to bare form %.2f wall, %.2f cpu (at most 1.5)\n", ratio(&Start::wall),
                ratio(&Start::processor));
    std::printf("the rows add %.0f ms wall, %.0f ms cpu (at most 120)\n", added(&Start::wall),
                added(&Start::processor));
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
        return partwright::showBareForm({arguments.value(2).toInt(), arguments.value(3).toInt()});
    if (arguments.value(1) == QStringLiteral("--window"))
        return partwright::showWindow(arguments.value(2).toStdWString());
    return partwright::compare(arguments.size() > 1 ? arguments.at(1).toInt() : 15);
}
