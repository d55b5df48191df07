// Pictures of the windows for the documents and for the eye:
//
//   window_shots OUT_FOLDER [dark]
//
// The scale comes from QT_SCALE_FACTOR. "dark" sets the palette of a dark desktop; without it the
// pictures have the palette that Qt finds.

#include "dialogs/change_dialog.h"
#include "gui/main_window.h"
#include "support/dark_palette.h"

#include <QApplication>
#include <cstdio>
#include <string>

namespace {

void shoot(QWidget& window, const std::string& file) {
    QCoreApplication::processEvents();
    if (!window.grab().save(QString::fromStdString(file)))
        std::fprintf(stderr, "cannot write %s\n", file.c_str());
}

} // namespace

int main(int argc, char** argv) {
    using namespace partwright::test;
    if (argc < 2) {
        std::fputs("Usage: window_shots OUT_FOLDER [dark]\n", stderr);
        return 2;
    }
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    if (argc > 2)
        QApplication::setPalette(darkPalette());
    const std::string folder = std::string(argv[1]) + "/";
    MainWindow window;
    window.app.analysisLevel = 1;
    window.open();
    shoot(*window.dialog, folder + "main_sdta.png");
    window.find<QTabWidget>("propertySheet").setCurrentIndex(1);
    shoot(*window.dialog, folder + "main_analyses.png");
    window.press("public");
    shoot(*window.dialog, folder + "main_public.png");
    const auto change = [&](int page, int group, const std::string& file) {
        auto& owner = window.session->page(page);
        owner.setDesign(true);
        owner.setFilter(partwright::PageFilter::FullLibrary);
        const auto components = owner.openGroup(group);
        partwright::CComChange1 dialog(*components, {window.app, window.prompt, window.opener},
                                       std::make_shared<partwright::grid::SortFlags>());
        dialog.show();
        dialog.resize(dialog.fontMetrics().averageCharWidth() * 190, dialog.height());
        dialog.grid().setCurrentCell(2, 7);
        shoot(dialog, folder + file);
    };
    change(0, 10, "change_sdta.png");
    change(0, 11, "change_capacitor.png");
    change(1, 9, "change_analyses.png");
    partwright::CAboutDlg about;
    about.show();
    shoot(about, folder + "about.png");
    return 0;
}
