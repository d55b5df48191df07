// Pictures of the windows for the documents and for the eye:
//
//   window_shots OUT_FOLDER [--dark] [--project FOLDER]
//
// The scale comes from QT_SCALE_FACTOR. "--dark" sets the palette of a dark desktop; without it the
// pictures have the palette that Qt finds. The path boxes show the folder in which the sample
// project lies; "--project" has it copied to a folder whose name may be seen, which must not exist
// and is left behind.

#include "dialogs/change_dialog.h"
#include "dialogs/power_calculator_dialog.h"
#include "editing/power_calculator.h"
#include "gui/change_driver.h"
#include "gui/main_window.h"
#include "support/dark_palette.h"
#include "support/places.h"

#include <QApplication>
#include <QClipboard>
#include <QCommandLineParser>
#include <QPainter>
#include <cstdio>
#include <memory>
#include <string>

namespace {

using namespace partwright;
using namespace partwright::test;

/// An opened list is a window of its own; it is painted where it stands before the other one.
QPixmap pictureOf(QWidget& window, QWidget* list) {
    const QPixmap picture = window.grab();
    if (list == nullptr)
        return picture;
    const QPoint place = list->mapToGlobal(QPoint()) - window.mapToGlobal(QPoint());
    const QRect whole = window.rect().united(QRect(place, list->size()));
    QPixmap both(whole.size() * picture.devicePixelRatio());
    both.setDevicePixelRatio(picture.devicePixelRatio());
    both.fill(window.palette().color(QPalette::Window));
    QPainter painter(&both);
    painter.drawPixmap(0, 0, picture);
    painter.drawPixmap(place, list->grab());
    return both;
}

class Album {
public:
    explicit Album(QString folder) : folder_(std::move(folder)) {}

    void add(QWidget& window, const char* name, QWidget* list = nullptr) const {
        QCoreApplication::processEvents();
        const QString file = folder_ + QLatin1Char('/') + QLatin1String(name) + ".png";
        if (!pictureOf(window, list).save(file))
            std::fprintf(stderr, "cannot write %s\n", qPrintable(file));
    }

private:
    QString folder_;
};

/// A Change Component dialog on a group of the sample.
struct OpenGroup {
    OpenGroup(MainWindow& window, int page, int group)
        : session(open(window.session->page(page), group)),
          dialog(*session, {window.app, window.prompt, window.opener},
                 std::make_shared<grid::SortFlags>()),
          driver(dialog) {
        dialog.show();
        dialog.resize(dialog.fontMetrics().averageCharWidth() * 190, dialog.height());
    }

    static std::unique_ptr<TableSession> open(PageSession& page, int group) {
        page.setDesign(true);
        page.setFilter(PageFilter::FullLibrary);
        return page.openGroup(group);
    }

    std::unique_ptr<TableSession> session;
    CComChange1 dialog;
    ChangeDriver driver;
};

void shootMainWindow(MainWindow& window, const Album& album) {
    album.add(*window.dialog, "main_sdta");
    window.find<QTabWidget>("propertySheet").setCurrentIndex(1);
    album.add(*window.dialog, "main_analyses");
    window.press("public");
    album.add(*window.dialog, "main_public");
}

void shootTables(MainWindow& window, const Album& album) {
    constexpr int resistors = 10;
    OpenGroup resistor(window, 0, resistors);
    resistor.driver.go(2, L(1));
    album.add(resistor.dialog, "change_sdta");
    window.prompt.expect(message::valueTypeOrRangeError);
    resistor.driver.enter(2, L(2), "75V");
    album.add(resistor.dialog, "change_refused");
    resistor.driver.key(Qt::Key_Escape);
    QApplication::clipboard()->setText(QStringLiteral("0.1\t75V\nabc\t-5\n"));
    resistor.driver.go(1, L(1));
    resistor.driver.key(Qt::Key_V, Qt::ControlModifier);
    QApplication::processEvents(); // the cells are counted when there is time
    album.add(resistor.dialog, "change_marks");

    constexpr int fieldEffect = 8;
    OpenGroup transistor(window, 0, fieldEffect);
    transistor.driver.go(1, typeCol);
    transistor.driver.key(Qt::Key_Down, Qt::AltModifier);
    album.add(transistor.dialog, "change_list", transistor.driver.visible<grid::ChoicePopup>());
    transistor.driver.visible<grid::ChoicePopup>()->close();

    constexpr std::size_t powerTransistor = 2;
    PowerCalculator calculator(fieldEffect, transistor.session->setup().decimalMark);
    CPowerDissipCalc dialog(
        calculator, transistor.session->table().text(powerTransistor, partNumberColumn),
        [&] { return PowerCalculator::cellsOf(*transistor.session, powerTransistor); });
    dialog.show();
    dialog.findChild<QPushButton*>(QStringLiteral("calculate"))->click();
    album.add(dialog, "calculator");

    OpenGroup capacitor(window, 0, 11);
    album.add(capacitor.dialog, "change_capacitor");
    OpenGroup circuit(window, 1, 9);
    circuit.driver.go(5, L(1));
    album.add(circuit.dialog, "change_analyses");
}

} // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    QCommandLineParser parser;
    const QCommandLineOption dark(QStringLiteral("dark"));
    const QCommandLineOption project(QStringLiteral("project"), QString(),
                                     QStringLiteral("FOLDER"));
    parser.addOptions({dark, project});
    parser.process(application);
    if (parser.positionalArguments().size() != 1) {
        std::fputs("Usage: window_shots OUT_FOLDER [--dark] [--project FOLDER]\n", stderr);
        return 2;
    }
    if (parser.isSet(dark))
        QApplication::setPalette(darkPalette());
    const Album album(parser.positionalArguments().front());
    MainWindow window;
    window.app.analysisLevel = 1;
    if (parser.isSet(project)) {
        const std::filesystem::path folder = parser.value(project).toStdString();
        std::filesystem::copy(places::samples, folder, std::filesystem::copy_options::recursive);
        window.app.paths.libraryFolder = pathText(folder / "library");
        window.app.paths.projectInputFolder = withSeparator(pathText(folder / "input"));
    }
    window.open();
    shootMainWindow(window, album);
    shootTables(window, album);
    CAboutDlg about;
    about.show();
    album.add(about, "about");
    return 0;
}
