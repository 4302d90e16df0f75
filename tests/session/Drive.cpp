#include "tests/session/Drive.h"

#include "platform/controls/screen/TestDoors.h"
#include "tests/support/screens/MessageScript.h"
#include "tests/support/screens/ModalWatch.h"

#include <QApplication>
#include <QTimer>

#include <optional>
#include <stdexcept>

namespace tests {

void whileModal(const std::function<void()>& opener, const std::function<void(controls::Screen&)>& driver) {
    bool driven = false;
    std::optional<ModalWatch::Driver> driving(std::in_place);
    QTimer timer;
    timer.setSingleShot(true);
    QObject::connect(&timer, &QTimer::timeout, [&] {
        driven = true;
        driving.reset(); // a screen that comes over this one, or behind it, has nobody
        auto* screen = qobject_cast<controls::Screen*>(QApplication::activeModalWidget());
        if (!screen) {
            ADD_FAILURE() << "no screen came up";
            return;
        }
        screen->activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(screen));
        EXPECT_TRUE(QTest::qWaitForWindowExposed(screen));
        QCoreApplication::processEvents(); // nobody types before the screen is seen
        try {
            driver(*screen);
        } catch (const std::exception& error) {
            ADD_FAILURE() << error.what();
        }
        if (screen == QApplication::activeModalWidget()) {
            ADD_FAILURE() << "the screen was left open";
            screen->Unload();
        }
    });
    timer.start(0);
    opener();
    EXPECT_TRUE(driven) << "no modal loop ran";
}

QWidget& childOf(QWidget& parent, const char* name) {
    auto* found = parent.findChild<QWidget*>(QString::fromLatin1(name));
    if (!found) {
        QStringList there;
        for (const QWidget* child : parent.findChildren<QWidget*>())
            there += child->objectName();
        throw std::runtime_error("no " + std::string(name) + " among " + there.join(u' ').toStdString());
    }
    return *found;
}

Boxes::Boxes(std::vector<int> answers) : m_answers(std::move(answers)) {
    controls::setMessageScript([this](const QString& prompt, int style, const QString& title) {
        shown.push_back({prompt, style, title});
        if (shown.size() > m_answers.size()) {
            ADD_FAILURE() << "an unexpected box: " << prompt.toStdString();
            return controls::vbCancel;
        }
        return m_answers[shown.size() - 1];
    });
}

Boxes::~Boxes() {
    controls::setMessageScript(MessageScript::refuse);
    EXPECT_EQ(shown.size(), m_answers.size());
}

} // namespace tests
