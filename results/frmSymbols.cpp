#include "results/frmSymbols.h"

#include "platform/base/Conversion.h"
#include "platform/controls/fields/KeyNotes.h"
#include "platform/controls/fields/Keys.h"
#include "platform/controls/look/Look.h"
#include "ui_frmSymbols.h"

#include <QKeyEvent>

namespace results {

namespace {

constexpr int columns = 6;

/// Where an arrow key goes from a symbol (-1: none is marked yet); -1 for other keys.
int neighbour(int marked, int key) {
    if (key != Qt::Key_Left && key != Qt::Key_Right && key != Qt::Key_Up && key != Qt::Key_Down)
        return -1;
    if (marked < 0)
        return 0;
    const int step = key == Qt::Key_Left    ? -1
                     : key == Qt::Key_Right ? 1
                     : key == Qt::Key_Up    ? -columns
                                            : columns;
    const int next = marked + step;
    return next >= 0 && next < frmSymbols::symbolCount ? next : marked;
}

} // namespace

frmSymbols::frmSymbols(QWidget* parent) : Screen(parent), m_ui(std::make_unique<Ui::frmSymbols>()) {
    m_ui->setupUi(this);
    setEscapeCloses(true);
    controls::look::setPrimary(m_ui->cmdSelect);
    for (int i = 0; i < symbolCount; ++i) {
        Label1[size_t(i)] = findChild<QLabel*>(QStringLiteral("Label1_%1").arg(i));
        Label1[size_t(i)]->setMouseTracking(true);
        Label1[size_t(i)]->installEventFilter(this);
    }
    controls::on(m_ui->cmdSelect, &QPushButton::clicked, this, [this] { cmdSelect_Click(); });
    controls::on(m_ui->Command1, &QPushButton::clicked, this, [this] { Command1_Click(); });
    controls::noteKeys(m_ui->board, {{"Up, Down, Left, Right", "Mark a symbol"}, {"Enter", "Takes it"}});
    m_ui->board->setFocus();
}

frmSymbols::~frmSymbols() = default;

bool frmSymbols::eventFilter(QObject* watched, QEvent* event) {
    for (int i = 0; i < symbolCount; ++i) {
        if (watched != Label1[size_t(i)])
            continue;
        if (event->type() == QEvent::MouseMove) {
            if (i != m_marked)
                m_symbol.clear(); // Enter must not take another one than it shows
            mark(i);
        }
        if (event->type() == QEvent::MouseButtonDblClick)
            controls::ErrorBoundary::guard([&] { Label1_DblClick(i); });
    }
    return Screen::eventFilter(watched, event);
}

void frmSymbols::keyPressEvent(QKeyEvent* event) {
    const int next = neighbour(m_marked, event->key());
    if (next >= 0) {
        mark(next);
        m_symbol = base::Trim(Label1[size_t(next)]->text());
        return;
    }
    if (controls::isEnter(*event) && !m_symbol.isEmpty())
        controls::ErrorBoundary::guard([&] { cmdSelect_Click(); });
    else
        Screen::keyPressEvent(event);
}

void frmSymbols::mark(int index) {
    m_marked = index;
    m_ui->board->setAccessibleName(QStringLiteral("Symbol ") + Label1[size_t(index)]->text().trimmed());
    for (int i = 0; i < symbolCount; ++i) {
        QLabel* label = Label1[size_t(i)];
        const QString kind = i == index ? QStringLiteral("marked") : QStringLiteral("symbol");
        if (label->property("kind").toString() == kind)
            continue;
        controls::look::setKind(label, kind);
        if (i == index)
            label->setCursor(Qt::PointingHandCursor);
        else
            label->unsetCursor();
    }
}

void frmSymbols::Label1_DblClick(int index) {
    m_symbol = base::Trim(Label1[size_t(index)]->text());
    Unload();
}

void frmSymbols::cmdSelect_Click() {
    Unload();
}

void frmSymbols::Command1_Click() {
    m_symbol.clear();
    Unload();
}

/// Leaving by the window's own means gives no symbol either.
void frmSymbols::closeEvent(QCloseEvent* event) {
    m_symbol.clear();
    Screen::closeEvent(event);
}

void frmSymbols::reject() {
    m_symbol.clear();
    Screen::reject();
}

} // namespace results
