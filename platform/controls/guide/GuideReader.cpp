#include "platform/controls/guide/GuideReader.h"

#include "platform/controls/guide/GuideBrowser.h"
#include "platform/controls/look/Look.h"
#include "platform/controls/screen/Connect.h"

#include <QApplication>
#include <QBoxLayout>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QScreen>
#include <QShortcut>
#include <QWindow>

namespace controls {

namespace {

const QString contents = QStringLiteral("README.md");

QPushButton* commandIn(QBoxLayout* row, const char* name, const char* caption, const char* hint) {
    auto* button = new QPushButton(QString::fromLatin1(caption));
    button->setObjectName(QString::fromLatin1(name));
    button->setToolTip(QString::fromLatin1(hint));
    row->addWidget(button);
    return button;
}

} // namespace

GuideReader::GuideReader(const QString& folder, const QString& title)
    : QWidget(nullptr, Qt::Window), m_search(new QLineEdit(this)), m_browser(new GuideBrowser(folder, this)) {
    setObjectName(QStringLiteral("guideReader"));
    setWindowTitle(title);
    const int gap = look::scaled(8);
    auto* all = new QVBoxLayout(this);
    all->setContentsMargins(gap, gap, gap, gap);
    all->setSpacing(gap);
    auto* row = new QHBoxLayout;
    row->setSpacing(gap);
    QPushButton* back = commandIn(row, "guideBack", "&Back", "Alt+Left");
    QPushButton* first = commandIn(row, "guideContents", "&Contents", "Alt+Home");
    row->addWidget(m_search, 1);
    QPushButton* leave = commandIn(row, "guideClose", "Close", "Esc");
    all->addLayout(row);
    all->addWidget(m_browser, 1);

    m_search->setObjectName(QStringLiteral("guideSearch"));
    m_search->setPlaceholderText(QStringLiteral("Search the guide (Ctrl+F)"));
    m_search->setAccessibleName(QStringLiteral("Search the guide"));
    m_search->setMaxLength(100);
    m_search->setClearButtonEnabled(true);
    back->setEnabled(false);

    on(back, &QPushButton::clicked, this, [this] { m_browser->backward(); });
    on(first, &QPushButton::clicked, this, [this] { m_browser->showPage(contents); });
    on(leave, &QPushButton::clicked, this, [this] { close(); });
    on(m_browser, &QTextBrowser::backwardAvailable, back, [back](bool can) { back->setEnabled(can); });
    on(m_search, &QLineEdit::textEdited, this, [this] { find(); });
    on(m_search, &QLineEdit::returnPressed, this, [this] { takeFirstFound(); });
    on(new QShortcut(QKeySequence::Find, this), &QShortcut::activated, this, [this] {
        m_search->setFocus(Qt::ShortcutFocusReason);
        m_search->selectAll();
    });
    on(new QShortcut(Qt::ALT | Qt::Key_Home, this), &QShortcut::activated, this,
       [this] { m_browser->showPage(contents); });
    on(new QShortcut(Qt::ALT | Qt::Key_Left, this), &QShortcut::activated, this,
       [this] { m_browser->backward(); });
}

void GuideReader::open(const QString& page) {
    if (QWidget* active = QApplication::activeWindow(); active != this)
        m_before = active;
    if (!isVisible())
        place();
    winId();
    standOverModal();
    m_search->clear();
    m_browser->showPage(page);
    if (isMinimized())
        showNormal();
    show();
    raise();
    activateWindow();
    m_browser->setFocus();
}

/// At the right edge of the desktop, so that most of the screen stays seen.
void GuideReader::place() {
    const QScreen* screen = m_before ? m_before->screen() : QGuiApplication::primaryScreen();
    const QRect room = screen ? screen->availableGeometry() : QRect(0, 0, 1366, 768);
    const int titleBar = look::scaled(32);
    if (!testAttribute(Qt::WA_Resized))
        resize(QSize(look::scaled(760), look::scaled(680)).boundedTo(room.size() - QSize(0, titleBar)));
    move(qMax(room.left(), room.right() - width() - look::scaled(8)), room.top() + titleBar);
}

/// A modal window keeps its hands off the windows that stand over it.
void GuideReader::standOverModal() {
    QWindow* modal = QGuiApplication::modalWindow();
    // One that the reader itself stands under holds it up: two windows cannot each stand over the other.
    for (const QWindow* each = modal; each; each = each->transientParent()) {
        if (each == windowHandle())
            return;
    }
    if (windowHandle()->transientParent() != modal)
        windowHandle()->setTransientParent(modal);
}

void GuideReader::find() {
    if (const QString words = m_search->text().trimmed(); words.size() > 1)
        m_browser->showFound(words);
}

/// Enter in the box: to what stands first, or to the page that is shown where nothing was searched.
void GuideReader::takeFirstFound() {
    const auto hits = m_browser->find(m_search->text());
    if (!hits.empty())
        m_browser->showPage(hits.front().link);
    m_browser->setFocus();
}

bool GuideReader::event(QEvent* event) {
    if (event->type() == QEvent::WindowBlocked && windowHandle())
        QMetaObject::invokeMethod(
            this, [this] { standOverModal(); }, Qt::QueuedConnection);
    return QWidget::event(event);
}

void GuideReader::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape)
        close();
    else
        QWidget::keyPressEvent(event);
}

void GuideReader::closeEvent(QCloseEvent* event) {
    QWidget::closeEvent(event);
    // The window knows which of its fields had the focus.
    QWidget* modal = QApplication::activeModalWidget();
    QWidget* next = modal ? modal : m_before.data();
    hide();
    if (next && next->isVisible())
        next->activateWindow();
}

} // namespace controls
