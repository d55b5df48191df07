#pragma once

// The real window, offscreen, on a copy of the sample project. Boxes are foretold; what would be
// opened is only remembered.

#include "core/paths.h"
#include "core/system_clock.h"
#include "dialogs/main_dialog.h"
#include "editing/main_session.h"
#include "editing/startup.h"
#include "support/places.h"
#include "support/project_folder.h"
#include "support/qt_print.h"
#include "support/recording_opener.h"
#include "support/scripted_prompt.h"

#include <gtest/gtest.h>

#include <QSignalSpy>
#include <QTest>
#include <filesystem>
#include <optional>
#include <stdexcept>

namespace partwright::test {

inline constexpr std::wstring_view sampleSdta = L"library/SDTALib_MotorDrive.csv";
inline constexpr std::wstring_view sampleAnalyses = L"library/AnalysesLib_MotorDrive.csv";

class MainWindow {
public:
    MainWindow() {
        std::filesystem::copy(places::samples, folder.path(),
                              std::filesystem::copy_options::recursive |
                                  std::filesystem::copy_options::overwrite_existing);
        app.paths.hostTool = 1;
        app.paths.libraryFolder = folder / L"library";
        app.paths.projectInputFolder = withSeparator(folder / L"input");
    }

    CPartwrightPlugInDlg& open() {
        loadAtStart(app, clock, prompt,
                    {tables.empty() ? pathText(places::tables) : tables, folder / L"public"});
        session.emplace(app, engine, prompt);
        session->start();
        dialog.emplace(*session, DialogServices{app, prompt, opener});
        dialog->show();
        return *dialog;
    }

    template <class Widget>
    Widget& find(const char* name) {
        auto* found = dialog->findChild<Widget*>(QLatin1String(name));
        if (found == nullptr)
            throw std::runtime_error(std::string("no control is named ") + name);
        return *found;
    }
    void press(const char* name) { find<QAbstractButton>(name).click(); }

    /// Column texts of the line of a group.
    QStringList line(const char* list, const QString& group) {
        auto& table = find<QTableWidget>(list);
        for (int row = 0; row < table.rowCount(); ++row)
            if (table.item(row, 1)->text() == group) {
                QStringList texts;
                for (int column = 0; column < table.columnCount(); ++column)
                    texts << table.item(row, column)->text();
                return texts;
            }
        return {};
    }
    QString status(const char* label) { return find<QLabel>(label).text(); }

    ProjectFolder folder;
    /// The shipped tables unless set before opening.
    std::wstring tables;
    SystemClock clock;
    ScriptedPrompt prompt;
    RecordingOpener opener;
    CPartwrightPlugInApp app;
    FillEngine engine{app};
    std::optional<MainSession> session;
    std::optional<CPartwrightPlugInDlg> dialog;
};

} // namespace partwright::test
