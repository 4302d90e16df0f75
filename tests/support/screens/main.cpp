#include "platform/base/DesksLanguage.h"
#include "platform/controls/look/Look.h"
#include "platform/controls/screen/Application.h"
#include "platform/controls/screen/Screen.h"
#include "platform/controls/screen/TestDoors.h"
#include "tests/support/screens/ErrorRecorder.h"
#include "tests/support/screens/MessageScript.h"
#include "tests/support/screens/ModalWatch.h"

#include <QLocale>

#include <gtest/gtest.h>

namespace {

/// Every test starts on a calm program: boxes, errors and modal screens that nobody expects fail it, windows
/// it left open go.
class CalmProgram : public testing::EmptyTestEventListener {
    void OnTestStart(const testing::TestInfo&) override {
        controls::setMessageScript(&tests::MessageScript::refuse);
        controls::ErrorBoundary::setHandler(&tests::ErrorRecorder::refuse);
        m_watch.forget();
    }
    void OnTestEnd(const testing::TestInfo&) override {
        controls::goOn();
        for (controls::Screen* screen : std::vector(controls::Screen::openScreens()))
            screen->hideScreen();
        while (QApplication::overrideCursor())
            QApplication::restoreOverrideCursor();
        QCoreApplication::sendPostedEvents();
    }

    tests::ModalWatch m_watch;
};

} // namespace

int main(int argc, char** argv) {
    base::ignoreDesksLanguage();
    QLocale::setDefault(QLocale::c());
    controls::Application application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    controls::look::apply(application);
    testing::InitGoogleTest(&argc, argv);
    testing::UnitTest::GetInstance()->listeners().Append(new CalmProgram);
    return RUN_ALL_TESTS();
}
