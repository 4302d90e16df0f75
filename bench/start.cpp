#include "bench/FirstPaint.h"

#include "app/AppScreens.h"
#include "app/ErrorBox.h"
#include "platform/controls/Application.h"
#include "platform/controls/ErrorBoundary.h"
#include "platform/controls/Look.h"
#include "session/HospitalServer.h"
#include "session/Session.h"

/// The program's own start, up to the first painted window: bench-start FILE.
int main(int argc, char** argv) {
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
