#include "bench/FirstPaint.h"

#include "app/AppScreens.h"
#include "app/ErrorBox.h"
#include "platform/base/DesksLanguage.h"
#include "platform/controls/look/Look.h"
#include "platform/controls/screen/Application.h"
#include "platform/controls/screen/ErrorBoundary.h"
#include "session/Session.h"
#include "session/logon/HospitalServer.h"

/// The program's own start, up to the first painted window: bench-start FILE.
int main(int argc, char** argv) {
    base::ignoreDesksLanguage();
    controls::Application application(argc, argv);
    bench::FirstPaint firstPaint;
    application.installEventFilter(&firstPaint);
    controls::look::apply(application);
    app::AppScreens screens;
    session::setScreens(&screens);
    session::setHospitalFile(application.arguments().value(1));
    app::installBoundary();
    controls::ErrorBoundary::guard([] { session::Main(); });
    return 1;
}
