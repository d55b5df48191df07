#pragma once

// A Change Component dialog over the shipped tables, worked as a person works it.

#include "editing/session_fixture.h"
#include "gui/change_driver.h"
#include "support/recording_opener.h"

namespace partwright::test {

template <class Record>
class Driver : public Dialog<Record>, public ChangeDriver {
public:
    RecordingOpener opener;
    std::unique_ptr<CComChange1> dialog;

    void openDialog() {
        dialog = std::make_unique<CComChange1>(*this->session,
                                               DialogServices{this->app, this->prompt, opener},
                                               std::make_shared<grid::SortFlags>());
        drive(*dialog);
        dialog->show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(dialog.get()));
    }
};

using SdtaDriver = Driver<SdtaComponent>;
using AsrDriver = Driver<AsrComponent>;

} // namespace partwright::test
