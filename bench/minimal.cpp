#include "bench/FirstPaint.h"

#include <QLabel>

/// The least that a window with a line of text takes.
int main(int argc, char** argv) {
    QApplication application(argc, argv);
    bench::FirstPaint firstPaint;
    application.installEventFilter(&firstPaint);
    QLabel window(QStringLiteral("Log-on"));
    window.resize(420, 360);
    window.show();
    return application.exec();
}
