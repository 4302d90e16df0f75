#include "tools/scintra-tour/Walk.h"

#include "platform/base/Error.h"

#include <QApplication>
#include <QDir>
#include <QPixmap>
#include <QTimer>

#include <cstdio>
#include <cstdlib>
#include <stdexcept>

namespace tour {

namespace {

constexpr int pauseMilliseconds = 20;
constexpr int mostAttempts = 1000; // 20 seconds for one step

} // namespace

QWidget* windowOnTop(const QString& name) {
    QWidget* top = QApplication::activeModalWidget();
    if (!top) {
        for (QWidget* window : QApplication::topLevelWidgets()) {
            if (window->isVisible() && window->objectName() == name)
                top = window;
        }
    }
    if (!top || !top->isVisible() || top->objectName() != name)
        return nullptr;
    // Where no window manager runs, nothing gives the focus back once a modal window has closed.
    if (!top->isActiveWindow())
        top->activateWindow();
    return top;
}

void missing(const QWidget& window, const QString& name) {
    QStringList seen;
    for (const QWidget* child : window.findChildren<QWidget*>()) {
        if (!child->objectName().isEmpty() && !child->objectName().startsWith(u"qt_"))
            seen += child->objectName();
    }
    throw std::runtime_error(QStringLiteral("%1 has no %2 (it has %3)")
                                 .arg(window.objectName(), name, seen.join(QStringLiteral(", ")))
                                 .toStdString());
}

Walk::Walk(QString folder, const QString& guideFolder) : m_folder(std::move(folder)), m_guide(guideFolder) {}

void Walk::step(const QString& name, Sight sight, Deed deed) {
    m_steps.push_back({name, std::move(sight), std::move(deed)});
}

void Walk::picture(const QString& name, Sight sight) {
    step(QStringLiteral("picture of ") + name, std::move(sight), [this, name](QWidget& window) {
        const QString file = QStringLiteral("%1-%2.png").arg(++m_pictures, 2, 10, QLatin1Char('0')).arg(name);
        QApplication::sendPostedEvents(); // what was changed last is laid out
        const QImage picture = window.grab().toImage();
        if (!picture.save(QDir(m_folder).filePath(file)))
            throw std::runtime_error("the picture cannot be written");
        m_guide.take(name, window, picture);
        std::printf("  %s\n", file.toUtf8().constData());
    });
}

void Walk::start() {
    QTimer::singleShot(0, this, [this] { attempt(); });
}

void Walk::attempt() {
    if (m_next == m_steps.size())
        return;
    const Step step = m_steps[m_next];
    QWidget* window = nullptr;
    try {
        window = step.sight();
    } catch (const std::exception& error) {
        fail(QStringLiteral("The step \"%1\" did not happen: %2.")
                 .arg(step.name, QString::fromUtf8(error.what())));
    }
    if (!window && ++m_attempts > mostAttempts)
        fail(QStringLiteral("The step \"%1\" did not happen: %2.").arg(step.name, whatIsOnScreen()));
    if (window) {
        m_attempts = 0;
        ++m_next;
    }
    // Before the deed: it may open a modal window and come back only when that one has closed.
    QTimer::singleShot(pauseMilliseconds, this, [this] { attempt(); });
    if (window)
        take(step, *window);
}

void Walk::take(const Step& step, QWidget& window) {
    std::printf("%s\n", step.name.toUtf8().constData());
    std::fflush(stdout);
    try {
        step.deed(window);
    } catch (const std::exception& error) {
        fail(QStringLiteral("The step \"%1\" did not happen: %2.")
                 .arg(step.name, QString::fromUtf8(error.what())));
    }
}

QString Walk::whatIsOnScreen() const {
    QStringList names;
    for (const QWidget* window : QApplication::topLevelWidgets()) {
        if (window->isVisible())
            names += window->objectName().isEmpty() ? window->windowTitle() : window->objectName();
    }
    if (names.isEmpty())
        return QStringLiteral("no window is open");
    const QWidget* active = QApplication::activeWindow();
    const QWidget* focus = QApplication::focusWidget();
    return QStringLiteral("open are %1; active is %2, its focus on %3")
        .arg(names.join(QStringLiteral(", ")), active ? active->objectName() : QStringLiteral("none"),
             focus ? focus->objectName() : QStringLiteral("nothing"));
}

void Walk::fail(const QString& why) const {
    QWidget* window = QApplication::activeModalWidget();
    if (!window)
        window = QApplication::activeWindow();
    if (window)
        window->grab().save(QDir(m_folder).filePath(QStringLiteral("failed.png")));
    std::fflush(stdout);
    std::fprintf(stderr, "scintra-tour: %s\n", why.toUtf8().constData());
    std::fflush(stderr);
    std::_Exit(1);
}

} // namespace tour
