#include "bench/FirstPaint.h"

/// The least that a window of this toolkit takes.
int main(int argc, char** argv) {
    QApplication application(argc, argv);
    bench::FirstPaint firstPaint;
    application.installEventFilter(&firstPaint);
    QWidget window;
    window.resize(420, 360);
    window.show();
    return application.exec();
}
