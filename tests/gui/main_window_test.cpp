#include "core/messages.h"
#include "core/system_error.h"
#include "dialogs/look.h"
#include "gui/change_driver.h"
#include "gui/main_window.h"
#include "library/library_reader.h"
#include "support/dark_palette.h"
#include "support/places.h"
#include "support/widget_sweep.h"

#include <sys/resource.h>

#include <QAction>
#include <QClipboard>
#include <QHeaderView>
#include <QTimer>
#include <cerrno>
#include <cmath>
#include <csignal>

namespace partwright::test {

namespace {

class MainWindowCase : public ::testing::Test, protected MainWindow {
protected:
    QStringList enabledCommands() {
        QStringList enabled;
        for (const char* name :
             {"saveLibrary", "importLibrary", "exportLibrary", "addToPublicLibrary", "groupLibrary",
              "descriptionParsing", "importFromPublicLibrary", "requestLibrary", "syncLibraries",
              "selectDatasheetFolder", "clearLibrary", "ok", "cancel"})
            if (find<QPushButton>(name).isEnabled())
                enabled << QLatin1String(name);
        return enabled;
    }

    QString checkedRadio(const char* box) {
        for (const QRadioButton* radio : find<QGroupBox>(box).findChildren<QRadioButton*>())
            if (radio->isChecked())
                return radio->text();
        return {};
    }

    void expectFill(PromptAnswer answer) {
        prompt.expectQuestion(message::confirmAutoFill, answer, message::confirmAutoFillTitle);
    }
};

/// Files can be opened and hardly be written while this lives, as on a full disk.
class FullDisk {
public:
    FullDisk() {
        std::signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &before_);
        rlimit small = before_;
        small.rlim_cur = 64;
        setrlimit(RLIMIT_FSIZE, &small);
    }
    ~FullDisk() {
        setrlimit(RLIMIT_FSIZE, &before_);
        std::signal(SIGXFSZ, SIG_DFL);
    }
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;

private:
    rlimit before_{};
};

QStringList strings(std::initializer_list<const char*> texts) {
    QStringList list;
    for (const char* text : texts)
        list << QLatin1String(text);
    return list;
}

double contrast(const QColor& one, const QColor& other) {
    const auto light = [](const QColor& color) {
        const auto part = [](double value) {
            return value <= 0.03928 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
        };
        return 0.2126 * part(color.redF()) + 0.7152 * part(color.greenF()) +
               0.0722 * part(color.blueF());
    };
    const double a = light(one);
    const double b = light(other);
    return (std::max(a, b) + 0.05) / (std::min(a, b) + 0.05);
}

} // namespace

TEST_F(MainWindowCase, ShowsBothLibrariesAsTheCommandLineAsks) {
    app.startPage = 1;
    app.analysisLevel = 1;
    open();
    EXPECT_EQ(dialog->windowTitle(), QStringLiteral("Partwright"));
    EXPECT_EQ(find<QTabWidget>("propertySheet").currentIndex(), 1);
    EXPECT_EQ(checkedRadio("asrLevelBox"), QStringLiteral("Auto Stress Calculation (Rapid )"));
    EXPECT_EQ(checkedRadio("asrFilterBox"), QStringLiteral("Project Only"));
    EXPECT_EQ(checkedRadio("sdtaFilterBox"), QStringLiteral("Selected Only"));
    EXPECT_EQ(checkedRadio("libraryTypeBox"), QStringLiteral("Design"));
    EXPECT_EQ(line("sdtaList", QStringLiteral("Resistor")),
              strings({"10", "Resistor", "9", "7", "Resistor"}));
    EXPECT_EQ(line("asrList", QStringLiteral("FET N Channel")),
              strings({"9", "FET N Channel", "2", "2", "Transistor"}));
    EXPECT_EQ(status("sdtaStatusText"), QStringLiteral("44 uncompleted components of 55 total"));
    EXPECT_EQ(find<QLineEdit>("sdtaPath").text().toStdWString(), folder / sampleSdta);
    EXPECT_TRUE(find<QLineEdit>("sdtaPath").isReadOnly());

    const auto& list = find<QTableWidget>("sdtaList");
    QStringList headers;
    for (int column = 0; column < list.columnCount(); ++column)
        headers << list.horizontalHeaderItem(column)->text();
    EXPECT_EQ(headers, strings({"NN", "Group", "Quantity", "Uncompleted", "Family"}));
    const QTableWidgetItem* red = list.item(10, 3);
    EXPECT_EQ(red->foreground().color(), look::alarmText);
    EXPECT_TRUE(red->font().bold()) << "not by colour alone";
    EXPECT_EQ(red->data(Qt::AccessibleTextRole).toString(), QStringLiteral("7 uncompleted"));
    EXPECT_EQ(list.item(0, 3)->foreground().color(), look::darkText);
    EXPECT_EQ(list.item(0, 3)->background().color(), QColor(0xE1, 0xFF, 0xFF));
}

TEST_F(MainWindowCase, FiltersAndLevelsCountAnew) {
    open();
    const QString selected = status("sdtaStatusText");
    press("sdtaAllProject");
    EXPECT_NE(status("sdtaStatusText"), selected);
    press("sdtaSelectedOnly");
    EXPECT_EQ(status("sdtaStatusText"), selected);

    // One part that only the review finds completed.
    for (auto& [key, record] : session->asrPage.designLibrary)
        if (record.PartNum == L"TPS54331DR")
            record.completedForAsr = 1;
    QStringList uncompleted;
    for (const char* level : {"asrLevelRapid", "asrLevelAsr", "asrLevelFull"}) {
        press(level);
        uncompleted << line("asrList", QStringLiteral("IC General")).at(3);
    }
    EXPECT_EQ(uncompleted, strings({"8", "7", "8"}));

    // A press on the checked radio is no change: the list keeps its very items.
    const QTableWidgetItem* item = find<QTableWidget>("sdtaList").item(0, 0);
    press("sdtaSelectedOnly");
    EXPECT_EQ(find<QTableWidget>("sdtaList").item(0, 0), item);
}

TEST_F(MainWindowCase, OffersWhatTypeFilterAndPageAllow) {
    open();
    const QStringList all =
        strings({"saveLibrary", "groupLibrary", "descriptionParsing", "ok", "cancel"});
    const QStringList noFill = strings({"saveLibrary", "ok", "cancel"});
    EXPECT_EQ(enabledCommands(), all);
    press("sdtaFullLibrary");
    EXPECT_EQ(enabledCommands(), noFill);
    find<QTabWidget>("propertySheet").setCurrentIndex(1);
    EXPECT_EQ(enabledCommands(), all) << "the Analyses page has a filter of its own";
    find<QTabWidget>("propertySheet").setCurrentIndex(0);
    EXPECT_EQ(enabledCommands(), noFill);

    press("sdtaSelectedOnly");
    press("public");
    EXPECT_EQ(enabledCommands(), noFill);
    EXPECT_EQ(checkedRadio("sdtaFilterBox"), QStringLiteral("Full Library"));
    EXPECT_FALSE(find<QRadioButton>("sdtaSelectedOnly").isEnabled());
    EXPECT_FALSE(find<QRadioButton>("sdtaAllProject").isEnabled());
    EXPECT_FALSE(find<QRadioButton>("asrProjectOnly").isEnabled());
    EXPECT_TRUE(find<QRadioButton>("asrFullLibrary").isEnabled());
    EXPECT_EQ(find<QLineEdit>("asrPath").text().toStdWString(),
              folder / L"public/AnalysesLib_Public.csv");
    const QString publicStatus = status("sdtaStatusText");

    press("design");
    EXPECT_EQ(enabledCommands(), all);
    EXPECT_EQ(checkedRadio("sdtaFilterBox"), QStringLiteral("Selected Only"));
    EXPECT_EQ(checkedRadio("asrFilterBox"), QStringLiteral("Project Only"));
    EXPECT_NE(status("sdtaStatusText"), publicStatus);
}

TEST_F(MainWindowCase, FillsTheActivePage) {
    open();
    const QString sdta = status("sdtaStatusText");
    const QString analyses = status("asrStatusText");
    expectFill(PromptAnswer::No);
    press("descriptionParsing");
    EXPECT_EQ(status("sdtaStatusText"), sdta);

    expectFill(PromptAnswer::Yes);
    press("descriptionParsing");
    const QString parsed = status("sdtaStatusText");
    EXPECT_NE(parsed, sdta);
    press("groupLibrary");
    EXPECT_NE(status("sdtaStatusText"), parsed);
    EXPECT_EQ(status("asrStatusText"), analyses);

    find<QTabWidget>("propertySheet").setCurrentIndex(1);
    expectFill(PromptAnswer::Yes);
    press("descriptionParsing");
    press("groupLibrary");
    EXPECT_NE(status("asrStatusText"), analyses);
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
    EXPECT_EQ(folder.bytesOf(sampleSdta), MainWindow().folder.bytesOf(sampleSdta))
        << "nothing is written";
}

TEST_F(MainWindowCase, AFillIsToldListedAndTakenBackWithoutDroppingLaterWork) {
    open();
    EXPECT_FALSE(find<QWidget>("sdtaFillText").isVisible());
    const QString before = status("sdtaStatusText");
    const SdtaLibrary library = session->sdtaPage.designLibrary;
    press("groupLibrary");
    EXPECT_TRUE(status("sdtaFillText").startsWith(QStringLiteral("Group Library: 3")));

    QString copied;
    QTimer::singleShot(0, [&copied] {
        QWidget* list = QApplication::activeModalWidget();
        list->findChild<QPushButton*>(QStringLiteral("copy"))->click();
        copied = QApplication::clipboard()->text();
        QTest::keyClick(list, Qt::Key_Escape);
    });
    press("sdtaFillShow");
    EXPECT_TRUE(copied.startsWith(QStringLiteral("Part Number\tParameter\tOld\tNew\n")));
    EXPECT_TRUE(copied.contains(QStringLiteral("\n1N4007\tVr-RT\t\t1000\n")));

    QTest::keyClick(&*dialog, Qt::Key_Escape);
    EXPECT_TRUE(dialog->isVisible()) << "what was filled is not saved";
    session->sdtaPage.designLibrary[L"1N4007"].LPar[0] = L"0.7"; // typed after the command
    dialog->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&*dialog));
    QTest::keyClick(&*dialog, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_TRUE(status("sdtaFillText")
                    .endsWith(QStringLiteral(
                        " parts are as before. 1 part was changed since and left alone.")));
    for (const auto& [key, record] : library)
        EXPECT_EQ(session->sdtaPage.designLibrary.at(key) == record, key != L"1N4007");
    EXPECT_EQ(status("sdtaStatusText"), before);
    EXPECT_FALSE(find<QPushButton>("sdtaFillTakeBack").isVisible());
    QTest::keyClick(&*dialog, Qt::Key_Z, Qt::ControlModifier); // nothing is left to take back
    EXPECT_EQ(session->sdtaPage.designLibrary.at(L"1N4007").LPar[0], L"0.7");
}

TEST_F(MainWindowCase, WithoutATableNothingIsFilled) {
    std::filesystem::copy(places::tables, nativePath(folder / L"tables"));
    tables = folder / L"tables";
    std::filesystem::remove(nativePath(folder / L"tables/Conv_BiCode.csv"));
    std::filesystem::remove(nativePath(folder / L"tables/GLibData.glb"));
    open();
    const AsrLibrary library = session->asrPage.designLibrary;
    find<QTabWidget>("propertySheet").setCurrentIndex(1);
    for (const char* command : {"groupLibrary", "descriptionParsing"}) {
        prompt.expect(message::fillNeedsTables({folder / L"tables/Conv_BiCode.csv"}),
                      PromptIcon::Warning);
        press(command);
    }
    EXPECT_EQ(session->asrPage.designLibrary, library);
}

TEST_F(MainWindowCase, SaveWritesThePageShown) {
    open();
    const auto before = folder.files();
    prompt.expect(message::operationCompleted, PromptIcon::Information);
    press("saveLibrary");
    EXPECT_NE(folder.bytesOf(sampleSdta), before.at("library/SDTALib_MotorDrive.csv"));
    EXPECT_EQ(folder.bytesOf(sampleAnalyses), before.at("library/AnalysesLib_MotorDrive.csv"));

    // On the Analyses page the list stays as it is.
    find<QTabWidget>("propertySheet").setCurrentIndex(1);
    const QTableWidgetItem* item = find<QTableWidget>("asrList").item(0, 0);
    prompt.expect(message::operationCompleted, PromptIcon::Information);
    press("saveLibrary");
    EXPECT_NE(folder.bytesOf(sampleAnalyses), before.at("library/AnalysesLib_MotorDrive.csv"));
    EXPECT_EQ(find<QTableWidget>("asrList").item(0, 0), item);

    const auto saved = folder.files();
    QTest::keyClick(&*dialog, Qt::Key_Escape);
    EXPECT_EQ(dialog->result(), QDialog::Rejected);
    EXPECT_FALSE(dialog->isVisible());
    EXPECT_EQ(folder.files(), saved) << "Cancel writes nothing and keeps what was saved";
}

TEST_F(MainWindowCase, OkSavesBothLibrariesAndTheLinks) {
    folder.put(linkFile, "PartNum,FileName,\nR-1,r.pdf,\n");
    open();
    app.libraries.datasheetLinks[L"R-2"] = L"s.pdf";
    const auto before = folder.files();
    QTest::keyClick(&find<QLineEdit>("sdtaPath"), Qt::Key_Return); // OK is the default button
    EXPECT_EQ(dialog->result(), QDialog::Accepted);
    EXPECT_FALSE(dialog->isVisible());
    EXPECT_NE(folder.bytesOf(sampleSdta), before.at("library/SDTALib_MotorDrive.csv"));
    EXPECT_NE(folder.bytesOf(sampleAnalyses), before.at("library/AnalysesLib_MotorDrive.csv"));
    EXPECT_EQ(folder.bytesOf(linkFile), "PartNum,FileName,\nR-1,r.pdf,\nR-2,s.pdf,\n");
    EXPECT_EQ(folder.bytesOf(L"public/SDTALib_Public.csv"), before.at("public/SDTALib_Public.csv"));
}

TEST_F(MainWindowCase, AFullDiskKeepsTheWindowOpenAndTheFilesWhole) {
    open();
    const auto before = folder.files();
    app.libraries.datasheetLinks[std::wstring(80, L'P')] = L"s.pdf";
    const auto expectFailure = [this](std::wstring_view file) {
        prompt.expect(message::failedToWrite(folder / file, systemErrorText(EFBIG)),
                      PromptIcon::Warning);
    };
    prompt.expect(message::savesNotSecured(systemErrorText(EFBIG)), PromptIcon::Warning);
    expectFailure(sampleSdta);
    expectFailure(sampleAnalyses);
    expectFailure(linkFile);
    {
        const FullDisk full;
        press("ok");
    }
    EXPECT_TRUE(dialog->isVisible());
    EXPECT_EQ(folder.bytesOf(sampleSdta), before.at("library/SDTALib_MotorDrive.csv"));
    EXPECT_EQ(folder.bytesOf(sampleAnalyses), before.at("library/AnalysesLib_MotorDrive.csv"));
    press("ok");
    EXPECT_FALSE(dialog->isVisible());
    EXPECT_NE(folder.bytesOf(sampleSdta), before.at("library/SDTALib_MotorDrive.csv"));
}

TEST_F(MainWindowCase, FilesThatVanishedAreWrittenAnew) {
    open();
    std::filesystem::remove(nativePath(folder / sampleSdta));
    folder.block(sampleAnalyses); // cannot be opened
    prompt.expectQuestion(message::fileChanged(folder / sampleSdta, message::FileChange::Removed),
                          PromptAnswer::Yes);
    prompt.expect(message::failedToOpenForWriting(folder / sampleAnalyses), PromptIcon::Warning);
    press("ok");
    EXPECT_TRUE(dialog->isVisible());
    SdtaLibrary again;
    static_cast<void>(LoadSdtaLibrary(app, again, app.paths.sdtaLibraryPath));
    EXPECT_EQ(again.size(), session->sdtaPage.designLibrary.size());
}

TEST_F(MainWindowCase, ALibraryThatWasNotUnderstoodIsWithheld) {
    std::filesystem::create_directory(folder.path() / "tables");
    for (const auto& table : std::filesystem::directory_iterator(places::tables))
        if (table.path().filename() != "Property_ASR_Library.csv")
            std::filesystem::create_symlink(table.path(),
                                            folder.path() / "tables" / table.path().filename());
    tables = folder / L"tables";
    app.startPage = 1;
    open();
    const std::string old = folder.bytesOf(sampleAnalyses);
    const auto expectRefusal = [this] {
        prompt.expect(
            message::saveWouldLose(folder / sampleAnalyses,
                                   message::groupTableMissing(app.paths.asrPropertyLibraryPath)),
            PromptIcon::Warning);
    };
    expectRefusal();
    press("saveLibrary");
    expectRefusal();
    press("ok");
    EXPECT_TRUE(dialog->isVisible());
    EXPECT_EQ(folder.bytesOf(sampleAnalyses), old);
    EXPECT_TRUE(folder.files().contains("library/DataSheetLinkTable.csv")) << "the rest goes on";
}

TEST_F(MainWindowCase, ACharacterTheFileLacksIsAskedAbout) {
    const std::string old = "sep=,\n|\n>,SDTA-M, Resistor,Resistor,OLD-1,,10 \xB5H "
                            "\xB1,Default,,,,,,,,,<\n|,End of File\n";
    folder.put(sampleSdta, old);
    open();
    session->sdtaPage.designLibrary.at(L"OLD-1").Description = L"4.7 k\u03A9";
    const auto question = message::characterNotInCodePage(folder / sampleSdta, L"OLD-1", L"DESCR");
    prompt.expectQuestion(question, PromptAnswer::No);
    press("saveLibrary");
    EXPECT_EQ(folder.bytesOf(sampleSdta), old);
    prompt.expectQuestion(question, PromptAnswer::Yes);
    prompt.expect(message::operationCompleted, PromptIcon::Information);
    press("saveLibrary");
    EXPECT_NE(folder.bytesOf(sampleSdta).find("4.7 k\u03A9"), std::string::npos);
}

TEST_F(MainWindowCase, TheKeyboardReachesEverything) {
    open();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&*dialog));
    EXPECT_EQ(tabWay(),
              strings({"sdtaList", "design", "saveLibrary", "groupLibrary", "descriptionParsing",
                       "ok", "cancel", "pageTabs", "sdtaPath", "sdtaSelectedOnly"}));
    EXPECT_TRUE(find<QPushButton>("ok").isDefault());
    auto& sheet = find<QTabWidget>("propertySheet");
    const auto turn = [&](Qt::Key key, Qt::KeyboardModifiers modifiers) {
        QTest::keyClick(&find<QPushButton>("ok"), key, modifiers);
        return sheet.currentIndex();
    };
    EXPECT_EQ(turn(Qt::Key_Tab, Qt::ControlModifier), 1);
    EXPECT_EQ(session->activePage(), 1);
    EXPECT_EQ(turn(Qt::Key_PageUp, Qt::ControlModifier), 0);
    EXPECT_EQ(turn(Qt::Key_PageDown, Qt::ControlModifier), 1);
    EXPECT_EQ(turn(Qt::Key_Backtab, Qt::ControlModifier | Qt::ShiftModifier), 0);

    QString told;
    QTimer::singleShot(0, &*dialog, [&told] {
        QWidget* about = QApplication::activeModalWidget();
        ASSERT_NE(about, nullptr);
        told = about->windowTitle() + QLatin1Char('|');
        for (const QLabel* label : about->findChildren<QLabel*>())
            told += label->text();
        EXPECT_EQ(namelessControls(*about), QStringList());
        qobject_cast<QDialog*>(about)->accept();
    });
    QTest::keyClick(&*dialog, Qt::Key_F1);
    EXPECT_EQ(told, QStringLiteral("About Partwright_PlugIn|Partwright_PlugIn, Version 1.0"));
    EXPECT_EQ(dialog->contextMenuPolicy(), Qt::ActionsContextMenu);
    EXPECT_EQ(dialog->actions().at(0)->text(), QStringLiteral("&About Partwright_PlugIn..."));
}

TEST_F(MainWindowCase, ControlsCarryTheirTexts) {
    open();
    EXPECT_EQ(namelessControls(*dialog), QStringList());
    struct Case {
        const char* name;
        const char* caption;
        const char* toolTip;
    };
    const Case cases[] = {
        {"saveLibrary", "Save &Library", "Saves Library Values to File"},
        {"importLibrary", "&Import Library", ""},
        {"exportLibrary", "&Export Library", ""},
        {"addToPublicLibrary", "Add to Public Library", ""},
        {"groupLibrary", "Group Library", "Run Group Library Alghorithm to Set Empty Parameters"},
        {"descriptionParsing", "Description Parsing",
         "Set All Empty Library Values as Description Parsed"},
        {"importFromPublicLibrary", "Import from Public Library", ""},
        {"requestLibrary", "Request Library", "Request Library from Varnel"},
        {"syncLibraries", "Sync Libraries", "Compare parameter values for the same Part Numbers."},
        {"selectDatasheetFolder", "Select Datasheet folder",
         "Selecting the folder path containing PDF files."},
        {"clearLibrary", "Clear Library", "Clear Design Libraries by selected parameters."},
        {"ok", "OK", "Saves Library Values"},
        {"cancel", "Cancel", ""},
    };
    for (const Case& one : cases) {
        const auto& button = find<QPushButton>(one.name);
        EXPECT_EQ(button.text(), QLatin1String(one.caption));
        EXPECT_EQ(button.toolTip(), QLatin1String(one.toolTip));
        EXPECT_FALSE(button.icon().isNull()) << one.name;
        EXPECT_EQ(button.cursor().shape(), Qt::PointingHandCursor);
        EXPECT_EQ(button.palette().color(QPalette::Button), QColor(0xE6, 0xF0, 0xF0));
    }
}

TEST_F(MainWindowCase, ToldBackgroundsCarryDarkTextOnADarkDesktop) {
    const DarkDesktop dark;
    open();
    for (const QPushButton* button : dialog->findChildren<QPushButton*>())
        EXPECT_GE(contrast(button->palette().color(QPalette::Active, QPalette::ButtonText),
                           button->palette().color(QPalette::Button)),
                  4.5)
            << button->objectName().toStdString();
    const auto& list = find<QTableWidget>("sdtaList");
    for (const int column : {0, 3})
        EXPECT_GE(contrast(list.item(10, column)->foreground().color(),
                           list.item(10, column)->background().color()),
                  3.5);
    const QPalette header = list.horizontalHeader()->palette();
    EXPECT_GE(contrast(header.color(QPalette::ButtonText), header.color(QPalette::Button)), 4.5);
    const auto& label = find<QLabel>("sdtaStatusText");
    EXPECT_GE(contrast(label.palette().color(label.foregroundRole()),
                       dialog->palette().color(QPalette::Window)),
              4.5);
}

// One road from the list of groups to the bytes of the file.
TEST_F(MainWindowCase, EditsAGroupAndSavesIt) {
    open();
    auto& list = find<QTableWidget>("sdtaList");
    constexpr int resistors = 10;
    ASSERT_EQ(line("sdtaList", QStringLiteral("Resistor"))[3], QStringLiteral("7"));
    const auto edit = [&](auto&& work) {
        whenModal(*dialog, [&work](QDialog& box) {
            auto* const change = qobject_cast<CComChange1*>(&box);
            ASSERT_NE(change, nullptr);
            ChangeDriver d(*change);
            work(d, *change);
            if (change->isVisible())
                change->reject();
        });
        list.setCurrentCell(resistors, 0);
        QTest::keyClick(&list, Qt::Key_Return);
    };
    const auto rowOf = [](ChangeDriver& d, const char* part) {
        for (int row = 1; row <= d.grid().rowCount(); ++row)
            if (d.text(row, 1) == part)
                return row;
        return 0;
    };

    edit([&](ChangeDriver& d, CComChange1& change) {
        EXPECT_EQ(change.windowTitle(),
                  QStringLiteral("Component Table\t\tGroup: Resistor \tQuantity: 9"));
        const int row = rowOf(d, "CRCW06034K70FKEA");
        // The type wants less than half a watt.
        prompt.expect(message::powerShouldBeBelow(L"0.5"));
        d.enter(row, L(1), "0.5");
        EXPECT_TRUE(d.grid().isEditing());
        d.key(Qt::Key_Escape);
        d.enter(row, L(1), "0.1");
        d.enter(row, L(2), "75");
        d.enter(row, L(3), "155");
        d.enter(row, L(4), "4700");
        EXPECT_EQ(d.text(row, 4), "+");
        // Parts of the project stay.
        d.grid().selectRows(row, row);
        prompt.expect(message::selectedForDeletion(1) + message::allBlocked(1));
        d.key(Qt::Key_Delete);
        d.press("cancel");
    });
    EXPECT_EQ(line("sdtaList", QStringLiteral("Resistor"))[3], QStringLiteral("7"));

    edit([&](ChangeDriver& d, CComChange1& change) {
        d.grid().sortByHeader(1);
        d.grid().sortByHeader(1); // downward
        const int row = rowOf(d, "CRCW06034K70FKEA");
        EXPECT_EQ(d.text(row, L(1)), "");
        d.enter(row, L(1), "0.1");
        d.enter(row, L(2), "75");
        d.enter(row, L(3), "155");
        d.enter(row, L(4), "4700");
        whenModal(change, [](QDialog& box) {
            box.findChild<QLineEdit*>(QStringLiteral("partNumber"))
                ->setText(QStringLiteral("my-shunt"));
            box.accept();
        });
        d.press("add");
        const int added = rowOf(d, "MY-SHUNT");
        d.go(added, typeCol);
        d.choose("RM.Fix.Pw>=0.5");
        d.enter(added, 2, "100-0099");
        d.enter(added, L(1), "2");
        prompt.expectQuestion(message::notAllFilledIn, PromptAnswer::Yes);
        d.press("ok");
    });
    EXPECT_EQ(line("sdtaList", QStringLiteral("Resistor")),
              strings({"10", "Resistor", "10", "7", "Resistor"}));

    prompt.expect(message::operationCompleted, PromptIcon::Information);
    press("saveLibrary");
    const QString saved = QString::fromStdString(folder.bytesOf(sampleSdta));
    EXPECT_TRUE(saved.contains(
        QStringLiteral("\"\"\"CRCW06034K70FKEA\"\"\",\"\"\"100-0002\"\"\",\"\"\"RES 4K7 1% "
                       "0603\"\"\",RM.Fix.Pw<0.5,0.1,75,155,4700,-2,\"\"\"Vishay\"\"\"")))
        << saved.toStdString();
    EXPECT_TRUE(saved.contains(QStringLiteral("\"\"\"MY-SHUNT\"\"\",\"\"\"100-0099\"\"\"")))
        << saved.toStdString();
}

// The same road on the Analyses page: a level, pins, a refusal by the pass over the rows.
TEST_F(MainWindowCase, EditsAnAnalysesGroupAtALevel) {
    app.startPage = 1;
    open();
    find<QRadioButton>("asrLevelAsr").click();
    auto& list = find<QTableWidget>("asrList");
    const auto opto = [&] { return line("asrList", QStringLiteral("Opto Device")); };
    ASSERT_EQ(opto(), strings({"11", "Opto Device", "2", "2", "OptoDevice"}));
    whenModal(*dialog, [&](QDialog& box) {
        auto* const change = qobject_cast<CComChange1*>(&box);
        ASSERT_NE(change, nullptr);
        ChangeDriver d(*change);
        EXPECT_TRUE(d.grid().isColHidden(L(1))); // the power is no matter of this level
        for (const int row : {1, 2}) {
            d.go(row, typeCol);
            d.choose("Opto.Dev");
            d.enter(row, L(2), "20m");
            EXPECT_EQ(d.text(row, L(2)), "0.02000000000000000042"); // all digits of the product
            EXPECT_EQ(d.text(row, 4), "-");
        }
        d.enter(1, L(3), "12");
        d.enter(1, L(4), "35");
        d.enter(2, L(3), "12-13");
        d.enter(2, L(4), "14");
        EXPECT_EQ(d.text(2, 4), "+");
        prompt.expect(L"Method Schematic Review (ASR)\nThe quantity of Pin numbers in the columns  "
                      L"'Pin-A'  and  'Pin-C'\n in the selected row must be equal!");
        d.press("ok");
        EXPECT_TRUE(d.grid().isRowSelected(2));
        d.enter(2, L(4), "14-15");
        d.press("ok");
        EXPECT_FALSE(change->isVisible());
    });
    list.setCurrentCell(11, 0);
    QTest::keyClick(&list, Qt::Key_Return);
    EXPECT_EQ(opto(), strings({"11", "Opto Device", "2", "0", "OptoDevice"}));
    find<QRadioButton>("asrLevelFull").click();
    EXPECT_EQ(opto(), strings({"11", "Opto Device", "2", "2", "OptoDevice"}));
    prompt.expect(message::operationCompleted, PromptIcon::Information);
    press("saveLibrary");
    const std::string saved = folder.bytesOf(sampleAnalyses);
    for (const char* values : {"SMD\"\"\",Opto.Dev,,0.02000000000000000042,C,Z,",
                               "SMD\"\"\",Opto.Dev,,0.02000000000000000042,12\\13,14\\15,"})
        EXPECT_NE(saved.find(values), std::string::npos) << values << "\n" << saved;
}

// What somebody wrote with a text editor opens, is judged, and is still there after a save.
TEST_F(MainWindowCase, AHandEditedLibraryIsEditedWithoutLoss) {
    std::string rows = folder.bytesOf(sampleSdta);
    const std::string anchor = ">,SDTA-M, Resistor,Resistor,";
    const std::string longValue(255, '7'); // the longest that the reader takes
    rows.insert(rows.find(anchor),
                anchor +
                    "\"\"\"NO-TYPE\"\"\",\"\"\"1\"\"\",\"\"\"x\"\"\",No.Such.Type,abc,-1e999,nan,"
                    "--,N/A,\"\"\"M\"\"\",\"\"\"\"\"\",,<\n" +
                    anchor + "\"\"\"LONG\"\"\",\"\"\"2\"\"\",\"\"\"y\"\"\",RM.Fix.Pw<0.5," +
                    longValue + ",,,,,\"\"\"M\"\"\",\"\"\"\"\"\",,<\n" +
                    ">,SDTA-M, Martian,No Such "
                    "Group,\"\"\"LOST\"\"\",\"\"\"3\"\"\",\"\"\"z\"\"\",Default,1,<\n");
    const std::string tooLong = anchor + std::string(100'000, 'x') + "\n";
    rows.insert(rows.find(anchor), tooLong);
    folder.put(sampleSdta, rows);
    open();
    find<QRadioButton>("sdtaFullLibrary").click();
    auto& list = find<QTableWidget>("sdtaList");
    whenModal(*dialog, [&](QDialog& box) {
        auto* const change = qobject_cast<CComChange1*>(&box);
        ASSERT_NE(change, nullptr);
        ChangeDriver d(*change);
        std::map<std::string, int> rowOf;
        for (int row = 1; row <= d.grid().rowCount(); ++row)
            rowOf[d.text(row, 1)] = row;
        ASSERT_TRUE(rowOf.contains("NO-TYPE") && rowOf.contains("LONG"));
        EXPECT_EQ(d.text(rowOf["LONG"], L(1)), longValue);
        for (int col = 1; col <= d.grid().colCount(); ++col) // every cell is looked at quietly
            for (const char* part : {"NO-TYPE", "LONG"})
                if (!d.grid().isColHidden(col))
                    d.go(rowOf[part], col);
        d.go(rowOf["NO-TYPE"], typeCol);
        d.choose("RM.Fix.Pw<0.5");
        d.enter(rowOf["NO-TYPE"], L(1), "0.25");
        d.enter(rowOf["LONG"], L(1), "0.25");
        prompt.expectQuestion(message::notAllFilledIn, PromptAnswer::Yes);
        d.press("ok");
        EXPECT_FALSE(change->isVisible());
    });
    list.setCurrentCell(10, 0);
    QTest::keyClick(&list, Qt::Key_Return);
    prompt.expectQuestion(message::savingWillDrop(folder / sampleSdta, 2), PromptAnswer::Yes);
    prompt.expect(message::operationCompleted, PromptIcon::Information);
    press("saveLibrary");
    const std::string saved = folder.bytesOf(sampleSdta);
    EXPECT_NE(saved.find(tooLong), std::string::npos);
    EXPECT_NE(saved.find("NO-TYPE\"\"\",\"\"\"1\"\"\",\"\"\"x\"\"\",RM.Fix.Pw<0.5,0.25,"),
              std::string::npos);
    EXPECT_NE(saved.find("LONG\"\"\",\"\"\"2\"\"\",\"\"\"y\"\"\",RM.Fix.Pw<0.5,0.25,"),
              std::string::npos);
    EXPECT_NE(saved.find("LOST"), std::string::npos);
}

// A line that was not taken as it stands is one press away from its part.
TEST_F(MainWindowCase, WhatWasNotTakenLeadsToThePart) {
    std::string rows = folder.bytesOf(sampleSdta);
    const std::string start = ">,SDTA-M, Resistor,Resistor,\"\"\"";
    const std::string rest = "\"\"\",\"\"\"\"\"\",\"\"\"d\"\"\",";
    rows.insert(rows.find(start), start + "AA-TYPE" + rest + "No.Such.Type,,,,,,,,,<\n" + start +
                                      "LONG" + rest + std::string(300, 'x') + ",,,,,,,,,<\n");
    folder.put(sampleSdta, rows);
    open();
    EXPECT_TRUE(find<QPushButton>("asrLoadMark").isHidden());
    auto& mark = find<QPushButton>("sdtaLoadMark");
    EXPECT_EQ(mark.text(), "2 lines not taken");
    EXPECT_EQ(mark.accessibleName(), "2 lines of this file could not be taken as they stand");
    bool isThere = false;
    whenModal(*dialog, [&](QDialog& list) {
        auto* const view = list.findChild<QTableView*>("rowList");
        ASSERT_NE(view, nullptr);
        EXPECT_EQ(view->model()->index(1, 1).data().toString(), "LONG");
        view->setCurrentIndex(view->model()->index(1, 0));
        QTest::keyClick(view, Qt::Key_Return);
        EXPECT_TRUE(list.isVisible()) << "there is no such part to go to";
        whenModal(*dialog, [&](QDialog& box) {
            auto* const change = qobject_cast<CComChange1*>(&box);
            ASSERT_NE(change, nullptr);
            ChangeDriver d(*change);
            const auto current = d.grid().currentCell();
            isThere = current && d.text(current->row, 1) == "AA-TYPE";
            d.press("cancel");
        });
        view->setCurrentIndex(view->model()->index(0, 0));
        QTest::keyClick(view, Qt::Key_Return);
    });
    mark.setFocus();
    QTest::keyClick(&mark, Qt::Key_Space);
    EXPECT_TRUE(isThere);
    EXPECT_TRUE(find<QRadioButton>("sdtaFullLibrary").isChecked())
        << "the part is not the project's";

    prompt.expectQuestion(message::savingWillDrop(folder / sampleSdta, 1), PromptAnswer::No);
    press("ok");
    EXPECT_TRUE(dialog->isVisible());
    EXPECT_EQ(folder.bytesOf(sampleSdta), rows);
    prompt.expectQuestion(message::savingWillDrop(folder / sampleSdta, 1), PromptAnswer::Yes);
    press("ok");
    EXPECT_FALSE(dialog->isVisible());
    EXPECT_NE(folder.bytesOf(sampleSdta).find("\"\"\"LONG\"\"\""), std::string::npos);
}

} // namespace partwright::test
