#include "platform/report/viewer/FindBar.h"

#include "platform/controls/fields/Keys.h"
#include "platform/controls/look/Look.h"
#include "platform/controls/screen/Connect.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QToolButton>

namespace report {
namespace {

QToolButton* toolButton(const QString& icon, const QString& toolTip, QWidget* parent) {
    auto* button = new QToolButton(parent);
    button->setIcon(controls::look::icon(icon));
    button->setToolTip(toolTip);
    button->setAccessibleName(toolTip);
    button->setAutoRaise(true);
    return button;
}

} // namespace

FindBar::FindBar(QWidget* parent) : QWidget(parent) {
    setObjectName(QStringLiteral("findBar"));
    m_text = new QLineEdit(this);
    m_text->setObjectName(QStringLiteral("findText"));
    m_text->setPlaceholderText(tr("Find in the report"));
    m_text->setMaximumWidth(320);
    m_count = new QLabel(this);
    m_count->setObjectName(QStringLiteral("findCount"));
    m_count->setProperty("kind", QStringLiteral("help"));
    QToolButton* previous = toolButton(QStringLiteral("previous"), tr("Previous hit (Shift+F3)"), this);
    QToolButton* next = toolButton(QStringLiteral("next"), tr("Next hit (F3)"), this);
    QToolButton* leave = toolButton(QStringLiteral("cross"), tr("Close the search (Esc)"), this);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(14, 4, 14, 4);
    row->setSpacing(8);
    row->addWidget(m_text);
    row->addWidget(previous);
    row->addWidget(next);
    row->addWidget(m_count);
    row->addStretch();
    row->addWidget(leave);
    controls::on(m_text, &QLineEdit::textChanged, this,
                 [this](const QString& text) { Q_EMIT textChanged(text); });
    controls::on(previous, &QToolButton::clicked, this, [this] { Q_EMIT step(-1); });
    controls::on(next, &QToolButton::clicked, this, [this] { Q_EMIT step(1); });
    controls::on(leave, &QToolButton::clicked, this, [this] { close(); });
}

void FindBar::begin() {
    show();
    m_text->setFocus(Qt::ShortcutFocusReason);
    m_text->selectAll();
}

QString FindBar::text() const {
    return m_text->text();
}

void FindBar::setCount(int current, int count, bool searching) {
    if (m_text->text().isEmpty())
        m_count->clear();
    else if (count == 0)
        m_count->setText(searching ? tr("Searching\u2026") : tr("Not found"));
    else
        m_count->setText(tr("%1 of %2").arg(current + 1).arg(count) +
                         (searching ? QStringLiteral("\u2026") : QString()));
}

/// Escape closes the search first, whatever else it would do around it.
bool FindBar::event(QEvent* event) {
    if (event->type() == QEvent::ShortcutOverride &&
        static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape) {
        event->accept();
        return true;
    }
    return QWidget::event(event);
}

void FindBar::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape)
        close();
    else if (controls::isEnter(*event))
        Q_EMIT step(event->modifiers() & Qt::ShiftModifier ? -1 : 1);
    else
        QWidget::keyPressEvent(event);
}

void FindBar::close() {
    hide();
    Q_EMIT closed();
}

} // namespace report
