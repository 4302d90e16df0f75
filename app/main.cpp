#include "app/AppScreens.h"
#include "app/ErrorBox.h"
#include "platform/base/CommandLine.h"
#include "platform/base/DesksLanguage.h"
#include "platform/controls/look/Look.h"
#include "platform/controls/screen/Application.h"
#include "platform/controls/screen/ErrorBoundary.h"
#include "platform/controls/screen/Screen.h"
#include "session/Session.h"

#include <cstdio>

namespace {

void tellUsage() {
    std::puts(
        "Usage: visual-scintra\n\n"
        "Starts with the log-on: on the hospital of this computer, which is made on the first one, or on\n"
        "that of an ODBC data source.\n\n"
        "  --help      tell this\n"
        "  --version   tell the program's version");
}

} // namespace

int main(int argc, char** argv) {
    base::ignoreDesksLanguage();
    if (base::answeredAtOnce(argc, argv, tellUsage))
        return 0;
    controls::Application application(argc, argv);
    QGuiApplication::setDesktopFileName("visual-scintra");
    // Between two users no window is open for a moment; the menu says when the program ends.
    QGuiApplication::setQuitOnLastWindowClosed(false);
    controls::look::apply(application);

    app::AppScreens screens;
    session::setScreens(&screens);
    app::installBoundary();

    controls::ErrorBoundary::guard([] { session::Main(); });
    int exitCode = controls::ErrorBoundary::isStopping() ? 1 : 0;
    if (exitCode == 0 && !controls::Screen::openScreens().empty())
        exitCode = QCoreApplication::exec();
    session::setScreens(nullptr);
    return exitCode;
}
