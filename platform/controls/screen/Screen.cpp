#include "platform/controls/screen/Screen.h"

#include "platform/controls/fields/Keys.h"
#include "platform/controls/fields/MemoWrap.h"
#include "platform/controls/look/HeaderBand.h"
#include "platform/controls/screen/PageRoom.h"

#include <QAbstractButton>
#include <QApplication>
#include <QCloseEvent>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPointer>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QStyle>
#include <QTabWidget>
#include <QToolButton>
#include <QVBoxLayout>
#include <QWindow>

namespace controls {

namespace {

constexpr int objectWasUnloaded = 364;

/// Enter presses the button that it was typed on, and no other that has the focus by the time it arrives
/// there.
class ButtonKeys : public QObject {
  public:
    using QObject::QObject;
    bool eventFilter(QObject* watched, QEvent* event) override {
        auto* button = qobject_cast<QAbstractButton*>(watched);
        if (!button || event->type() != QEvent::KeyPress)
            return false;
        const auto& key = *static_cast<QKeyEvent*>(event);
        if (!isEnter(key))
            return false;
        // A key that is held down goes on repeating itself on the button that took the focus meanwhile.
        if (!key.isAutoRepeat())
            button->click();
        return true;
    }
};

std::vector<Screen*>& openList() {
    static std::vector<Screen*> screens;
    return screens;
}

/// Holds what lies between the band and the commands of a screen that needs more than the desktop. The bars,
/// the wheel and the focus scroll it; keys are the screen's own.
class ScrolledContents : public QScrollArea {
  public:
    explicit ScrolledContents(QWidget* parent) : QScrollArea(parent) {
        setObjectName(QStringLiteral("scrolledContents"));
        setFrameShape(QFrame::NoFrame);
        setFocusPolicy(Qt::NoFocus);
        setWidgetResizable(true);
        connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) {
            if (now && isAncestorOf(now))
                bringIntoSight(*now);
        });
    }

  protected:
    void keyPressEvent(QKeyEvent* event) override { event->ignore(); }

  private:
    void bringIntoSight(QWidget& field) {
        ensureWidgetVisible(&field); // of a text its cursor
        constexpr int aLittleMore = 8;
        const QRect place(field.mapTo(widget(), QPoint()), field.size());
        if (place.height() + 2 * aLittleMore > viewport()->height())
            return;
        for (const int edge : {place.bottom(), place.top()})
            ensureVisible(place.left(), edge, 0, aLittleMore);
    }
};

/// What a screen may fill: the desktop without its bars.
QRect roomFor(const QWidget* parent) {
    // The window-less platform has a desktop of no use; the hospital's smallest one stands in, and for a
    // scale of 200 % the one that such a scale is set on.
    if (QGuiApplication::platformName() == QLatin1String("offscreen")) {
        const double scale = qApp->devicePixelRatio();
        return QRect(QPoint(), scale > 1 ? QSize(1920, 1080) / scale : QSize(1366, 768));
    }
    const QScreen* screen = parent ? parent->screen() : QGuiApplication::primaryScreen();
    return screen ? screen->availableGeometry() : QRect(0, 0, 1366, 768);
}

/// A page of a tab widget lets go of the colours that its labels were given by their kind.
void showKinds(const QWidget& page) {
    for (QLabel* label : page.findChildren<QLabel*>()) {
        if (!label->property("kind").isValid())
            continue;
        label->style()->unpolish(label);
        label->style()->polish(label);
    }
}

constexpr int barHeight = 32;

/// The window's own bar and frame need some of the room.
QSize mostIn(const QRect& room) {
    return room.size() - QSize(16, 48);
}

/// Where a box and its screen close at once, some window managers leave the keys with nobody.
void giveKeysBack() {
    QWidget* next = QApplication::activeModalWidget();
    if (!next && !openList().empty())
        next = openList().back();
    if (next && next->isVisible() && !next->isActiveWindow())
        next->activateWindow();
}

QWidget* openerOf(const Screen* screen) {
    if (QWidget* parent = screen->parentWidget())
        return parent->window();
    QWidget* active = QApplication::activeWindow();
    if (active && active != screen)
        return active;
    for (auto it = openList().rbegin(); it != openList().rend(); ++it)
        if (*it != screen)
            return *it;
    return nullptr;
}

} // namespace

Screen::Screen(QWidget* parent) : QDialog(parent), m_buttonKeys(new ButtonKeys(this)) {
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    setWindowFlag(Qt::WindowMaximizeButtonHint, true);
    setSizeGripEnabled(false);
}

Screen::~Screen() {
    std::erase(openList(), this);
}

const std::vector<Screen*>& Screen::openScreens() {
    return openList();
}

void Screen::load() {
    if (m_unloaded)
        throw base::RunTimeError(objectWasUnloaded, QStringLiteral("Object was unloaded"));
    if (m_loaded)
        return;
    m_loaded = true;
    calmButtons();
    for (QPlainTextEdit* memo : findChildren<QPlainTextEdit*>())
        wrapEndlessWords(memo);
    // Lists that are filled and scrolled before they are seen keep the row heights of that moment.
    for (QWidget* widget : findChildren<QWidget*>())
        widget->ensurePolished();
    for (QTabWidget* tabs : findChildren<QTabWidget*>())
        showKinds(*tabs);
    widenLists(*this);
    Form_Load();
    calmButtons();
}

void Screen::calmButtons() {
    for (QPushButton* button : findChildren<QPushButton*>()) {
        button->setAutoDefault(false);
        button->setDefault(false);
        button->installEventFilter(m_buttonKeys);
    }
    for (QToolButton* button : findChildren<QToolButton*>())
        button->installEventFilter(m_buttonKeys);
}

void Screen::ShowModal() {
    if (isVisible())
        throw base::RunTimeError(base::errors::formAlreadyDisplayed);
    const QPointer<Screen> self(this);
    load();
    if (!self || m_unloaded)
        return; // Form_Load refused
    {
        const ModalLevel level;
        exec();
    }
    if (self && isVisible()) {
        // The loop was ended from outside: it took back that the screen is modal, and a screen that is not
        // would be hidden and still hold up all others.
        setModal(true);
        QDialog::setVisible(false);
        setModal(false);
    }
    if (self)
        std::erase(openList(), this);
    ErrorBoundary::throwIfStopping();
    giveKeysBack();
}

void Screen::Show() {
    const QPointer<Screen> self(this);
    load();
    if (!self || m_unloaded)
        return;
    if (isVisible()) {
        raise();
        activateWindow();
        return;
    }
    setModal(false);
    show();
}

bool Screen::Unload() {
    if (m_unloaded || m_unloading)
        return m_unloaded;
    if (!m_loaded) {
        m_unloaded = true;
        return true;
    }
    m_unloading = true;
    const QPointer<Screen> self(this);
    try {
        bool cancel = false;
        Form_QueryUnload(cancel);
        if (!self)
            return true;
        if (cancel) {
            m_unloading = false;
            return false;
        }
        Form_Unload();
    } catch (...) {
        if (self)
            m_unloading = false;
        throw;
    }
    if (!self)
        return true;
    m_unloading = false;
    m_unloaded = true;
    hide();
    return true;
}

void Screen::hideScreen() {
    hide();
}

void Screen::Form_QueryUnload(bool&) {}

void Screen::setVisible(bool visible) {
    if (visible && !isVisible()) {
        std::erase(openList(), this);
        QWidget* opener = openerOf(this);
        placeOver(opener);
        openList().push_back(this);
        if (opener && opener->windowHandle() && !parentWidget()) {
            winId();
            windowHandle()->setTransientParent(opener->windowHandle());
        }
    } else if (!visible) {
        std::erase(openList(), this);
    }
    QDialog::setVisible(visible);
}

void Screen::placeOver(QWidget* opener) {
    if (m_placed)
        return;
    m_placed = true;
    ensurePolished();
    if (!testAttribute(Qt::WA_Resized))
        adjustSize();
    const QRect room = roomFor(opener);
    const QSize most = mostIn(room);
    const auto isTooLarge = [&] {
        const QSize least = minimumSizeHint();
        return layout() && (least.width() > most.width() || least.height() > most.height());
    };
    if (isTooLarge())
        tighten(*this);
    if (isTooLarge()) // it may be scrolled even so, by a bar at the side
        stackRows(*this, most.width() - style()->pixelMetric(QStyle::PM_ScrollBarExtent));
    if (isTooLarge())
        scrollContents();
    resize(size().expandedTo(minimumSizeHint()).boundedTo(most));
    const QPoint middle = opener && opener->isVisible() ? opener->frameGeometry().center() : room.center();
    QRect place(QPoint(), size() + QSize(0, barHeight));
    place.moveCenter(middle);
    place.moveLeft(qBound(room.left(), place.left(), qMax(room.left(), room.right() - place.width())));
    place.moveTop(qBound(room.top(), place.top(), qMax(room.top(), room.bottom() - place.height())));
    move(place.topLeft());
}

void Screen::growTo(int height) {
    const QRect room = roomFor(this);
    const QSize most = mostIn(room);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest); // what was shown meanwhile counts
    if (auto* area = findChild<QScrollArea*>(QStringLiteral("scrolledContents")))
        area->widget()->setMinimumSize(area->widget()->layout()->minimumSize());
    else if (layout() && minimumSizeHint().height() > most.height())
        scrollContents();
    resize(QSize(width(), qMax(height, minimumSizeHint().height())).boundedTo(most));
    move(x(), qMax(room.top(), qMin(y(), room.bottom() - this->height() - barHeight)));
}

void Screen::scrollContents() {
    QWidget* first = focusWidget(); // does not go along with its parents
    const QWidgetList loose = findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly);
    auto* area = new ScrolledContents(this);
    auto* contents = new QWidget(this);
    QLayout* own = layout();
    auto* band = findChild<HeaderBand*>(QString(), Qt::FindDirectChildrenOnly);
    if (band)
        own->removeWidget(band);
    QWidget* commands = takeCommands(*own, this);
    const int bar = area->verticalScrollBar()->sizeHint().width();
    if (QBoxLayout* column = columnOf(*own)) { // the bar stands in the page's margin
        QMargins around = column->contentsMargins();
        around.setRight(qMax(0, around.right() - bar));
        column->setContentsMargins(around);
    }
    contents->setMinimumSize(own->minimumSize());
    contents->setLayout(own);
    for (QWidget* widget : loose) {
        if (widget != band && !widget->isWindow() &&
            widget->parentWidget() == this) // the layout took along what lies in it
            widget->setParent(contents);
    }
    area->setWidget(contents);
    if (first)
        first->setFocus();
    setMinimumSize(0, 0);
    auto* around = new QVBoxLayout(this);
    around->setContentsMargins(0, 0, 0, 0);
    around->setSpacing(0);
    for (QWidget* part : {static_cast<QWidget*>(band), static_cast<QWidget*>(area), commands}) {
        if (part)
            around->addWidget(part, part == area ? 1 : 0);
    }
    // the bar at the side takes nothing from the contents where there is room for both
    resize(qMax(width(), contents->minimumWidth() + bar), height());
}

void Screen::closeEvent(QCloseEvent* event) {
    if (ErrorBoundary::isStopping()) {
        event->accept();
        return;
    }
    event->ignore();
    const QPointer<Screen> self(this);
    bool closed = false;
    ErrorBoundary::guard([&] { closed = Unload(); });
    if (closed)
        event->accept();
}

void Screen::keyPressEvent(QKeyEvent* event) {
    const bool plain = (event->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
    if (plain && isEnter(*event))
        event->accept(); // a field's Enter ends at its screen
    else
        QDialog::keyPressEvent(event);
}

void Screen::reject() {
    if (!m_escapeCloses)
        return;
    ErrorBoundary::guard([this] { Unload(); });
}

Screen::Hourglass::Hourglass() {
    QApplication::setOverrideCursor(Qt::WaitCursor);
}

Screen::Hourglass::~Hourglass() {
    QApplication::restoreOverrideCursor();
}

void SelectAllText(QLineEdit* field) {
    field->setSelection(0, int(field->text().size()));
}

} // namespace controls
