#include "tools/scintra-tour/Steps.h"

#include "platform/controls/grid/FlexGrid.h"
#include "platform/controls/look/FlatButton.h"

#include <QAbstractButton>
#include <QApplication>
#include <QLabel>
#include <QTest>

#include <stdexcept>

namespace tour {

namespace {

QWidget* command(QWidget& menu, const char* caption) {
    for (auto* button : menu.findChildren<controls::FlatButton*>()) {
        if (button->isVisible() && button->text() == QLatin1String(caption))
            return button;
    }
    return nullptr;
}

} // namespace

Sight seen(const char* window) {
    return [window] { return windowOnTop(QString::fromLatin1(window)); };
}

Sight focused(const char* window, const char* name) {
    return [window, name]() -> QWidget* {
        QWidget* found = windowOnTop(QString::fromLatin1(window));
        auto* child = found ? found->findChild<QWidget*>(QString::fromLatin1(name)) : nullptr;
        return child && child->isVisible() && child->hasFocus() ? found : nullptr;
    };
}

Sight editing(const char* window, const char* grid, const char* editor, int row, int column) {
    return [window, grid, editor, row, column]() -> QWidget* {
        QWidget* screen = windowOnTop(QString::fromLatin1(window));
        if (!screen)
            return nullptr;
        const auto& lines = control<controls::FlexGrid>(*screen, QString::fromLatin1(grid));
        const auto& box = control<QWidget>(*screen, QString::fromLatin1(editor));
        return box.isVisible() && lines.Row() == row && lines.Col() == column ? screen : nullptr;
    };
}

Sight boxSaying(const QString& text) {
    return [text]() -> QWidget* {
        QWidget* modal = QApplication::activeModalWidget();
        if (!modal)
            return nullptr;
        for (const QLabel* label : modal->findChildren<QLabel*>()) {
            if (label->text() == text)
                return modal;
        }
        return nullptr;
    };
}

void pressEnter(QWidget& window) {
    QTest::keyClick(window.focusWidget() ? window.focusWidget() : &window, Qt::Key_Return);
}

Deed typed(const char* name, const QString& text, Qt::Key key) {
    return [name, text, key](QWidget& window) {
        auto& field = control<QWidget>(window, QString::fromLatin1(name));
        if (!text.isEmpty())
            QTest::keyClicks(&field, text);
        QTest::keyClick(&field, key);
    };
}

Deed clicked(const char* name) {
    return [name](QWidget& window) {
        auto& button = control<QAbstractButton>(window, QString::fromLatin1(name));
        if (!button.isVisible() || !button.isEnabled())
            throw std::runtime_error(std::string(name) + " cannot be clicked");
        QTest::mouseClick(&button, Qt::LeftButton);
    };
}

Sight offered(const char* caption) {
    return [caption]() -> QWidget* {
        QWidget* menu = windowOnTop(QStringLiteral("frmMainMenu"));
        return menu && command(*menu, caption) ? menu : nullptr;
    };
}

Deed commanded(const char* caption) {
    return [caption](QWidget& menu) { QTest::mouseClick(command(menu, caption), Qt::LeftButton); };
}

} // namespace tour
