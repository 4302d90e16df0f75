#include "platform/controls/screen/MessageDialog.h"

#include "platform/base/Error.h"
#include "platform/controls/fields/EnterKey.h"
#include "platform/controls/look/Look.h"
#include "platform/controls/screen/MessageBox.h"

#include <QApplication>
#include <QClipboard>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QStyle>

#include <array>

namespace controls {

namespace {

constexpr int buttonMask = 0x0F;
constexpr int iconMask = 0x70;
constexpr int defaultMask = 0x300;

struct BoxButton {
    const char* caption;
    int answer;
};

std::vector<BoxButton> buttonsOf(int style) {
    switch (style & buttonMask) {
    case vbOKOnly:
        return {{"OK", vbOK}};
    case vbOKCancel:
        return {{"OK", vbOK}, {"Cancel", vbCancel}};
    case vbYesNo:
        return {{"&Yes", vbYes}, {"&No", vbNo}};
    default:
        throw base::RunTimeError(base::errors::invalidProcedureCall);
    }
}

struct BoxIcon {
    int style;
    const char* name;
    const QColor* color;
};

QIcon iconOf(int style) {
    static const std::array icons{
        BoxIcon{vbCritical, "error", &look::danger}, BoxIcon{vbQuestion, "question", &look::accent},
        BoxIcon{vbExclamation, "warning", &look::warn}, BoxIcon{vbInformation, "info", &look::accent}};
    for (const BoxIcon& icon : icons)
        if (icon.style == (style & iconMask))
            return look::icon(QString::fromLatin1(icon.name), *icon.color);
    return {};
}

} // namespace

int MessageDialog::leavingAnswer(int style) {
    return buttonsOf(style).back().answer;
}

MessageDialog::MessageDialog(const QString& prompt, int style, const QString& title, QWidget* parent)
    : QDialog(parent), m_prompt(prompt), m_answer(leavingAnswer(style)) {
    setObjectName(QStringLiteral("messageBox"));
    setWindowTitle(title.isEmpty() ? QCoreApplication::applicationName() : title);
    setWindowFlags(Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
                   Qt::WindowCloseButtonHint);
    setAccessibleName(windowTitle());
    setAccessibleDescription(prompt);

    const int gap = look::scaled(14);
    auto* all = new QVBoxLayout(this);
    all->setContentsMargins(0, 0, 0, 0);
    all->setSpacing(0);
    all->setSizeConstraint(QLayout::SetFixedSize);

    auto* body = new QHBoxLayout;
    body->setContentsMargins(gap + look::scaled(8), gap + look::scaled(8), gap + look::scaled(8),
                             gap + look::scaled(8));
    body->setSpacing(gap);
    if (const QIcon icon = iconOf(style); !icon.isNull()) {
        auto* picture = new QLabel(this);
        picture->setObjectName(QStringLiteral("messageIcon"));
        const int side = look::scaled(36);
        picture->setPixmap(icon.pixmap(QSize(side, side), devicePixelRatioF()));
        body->addWidget(picture, 0, Qt::AlignTop);
    }
    auto* text = new QLabel(prompt, this);
    text->setObjectName(QStringLiteral("messageText"));
    text->setTextFormat(Qt::PlainText);
    const QFontMetrics metrics(text->font());
    const int widest = metrics.averageCharWidth() * 64;
    const QSize natural = metrics.size(0, prompt);
    text->setWordWrap(natural.width() > widest);
    text->setMinimumWidth(qBound(metrics.averageCharWidth() * 24, natural.width() + 2, widest));
    text->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    text->setMinimumHeight(look::scaled(36));
    body->addWidget(text, 1);
    all->addLayout(body);

    // The frame around it is the desktop's: its letters are bold, and an icon and a cross stand beside them.
    QFont titleFont = font();
    titleFont.setBold(true);
    const int titleWidth = QFontMetrics(titleFont).horizontalAdvance(windowTitle()) + look::scaled(96);

    auto* bar = new QFrame(this);
    bar->setMinimumWidth(qMin(titleWidth, screen()->availableGeometry().width() - look::scaled(48)));
    bar->setObjectName(QStringLiteral("messageBar"));
    auto* row = new QHBoxLayout(bar);
    row->setContentsMargins(gap, look::scaled(10), gap, look::scaled(10));
    row->setSpacing(look::scaled(8));
    row->addStretch();
    const std::vector<BoxButton> buttons = buttonsOf(style);
    const bool second = (style & defaultMask) == vbDefaultButton2 && buttons.size() > 1;
    for (std::size_t i = 0; i < buttons.size(); ++i)
        addButton(row, QString::fromLatin1(buttons[i].caption), buttons[i].answer, (i == 1) == second);
    all->addWidget(bar);
}

void MessageDialog::addButton(QHBoxLayout* row, const QString& caption, int answer, bool isDefault) {
    auto* button = new QPushButton(caption, this);
    button->setMinimumWidth(look::scaled(88));
    button->setAutoDefault(true);
    if (isDefault) {
        look::setPrimary(button);
        button->setDefault(true);
        button->setFocus();
    }
    connect(button, &QPushButton::clicked, this, [this, answer] {
        m_answer = answer;
        done(answer);
    });
    ignoreHeldKeys(button);
    row->addWidget(button);
    m_buttons << button;
}

void MessageDialog::keyPressEvent(QKeyEvent* event) {
    if (event->matches(QKeySequence::Copy)) {
        QGuiApplication::clipboard()->setText(m_prompt);
        return;
    }
    // A box has no field to type in: the letter alone presses its button.
    if ((event->modifiers() & ~Qt::ShiftModifier) == Qt::NoModifier && !event->text().isEmpty()) {
        for (QPushButton* button : std::as_const(m_buttons)) {
            const qsizetype mark = button->text().indexOf(QLatin1Char('&'));
            if (mark >= 0 &&
                button->text().mid(mark + 1, 1).compare(event->text(), Qt::CaseInsensitive) == 0) {
                button->click();
                return;
            }
        }
    }
    QDialog::keyPressEvent(event);
}

} // namespace controls
