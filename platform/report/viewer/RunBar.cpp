#include "platform/report/viewer/RunBar.h"

#include "platform/controls/look/Look.h"
#include "platform/controls/screen/Connect.h"

#include <QAction>
#include <QHBoxLayout>
#include <QLabel>
#include <QLocale>
#include <QProgressBar>
#include <QPushButton>

namespace report {

RunBar::RunBar(QAction* stop, QWidget* parent) : QWidget(parent) {
    m_text = new QLabel(this);
    m_text->setObjectName(QStringLiteral("runText"));
    m_busy = new QProgressBar(this);
    m_busy->setRange(0, 0);
    m_busy->setTextVisible(false);
    m_busy->setFixedWidth(controls::look::scaled(140));
    m_busy->setFixedHeight(controls::look::scaled(14));
    m_stop = new QPushButton(stop->text(), this);
    m_stop->setObjectName(QStringLiteral("runStop"));
    m_stop->setToolTip(stop->toolTip());
    m_stop->setFocusPolicy(Qt::NoFocus); // Escape does it; the focus stays with the pages
    m_stop->setAutoDefault(false);
    controls::on(m_stop, &QPushButton::clicked, stop, [stop] { stop->trigger(); });
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(12, 2, 12, 2);
    row->setSpacing(controls::look::scaled(12));
    row->addWidget(m_busy, 0, Qt::AlignVCenter);
    row->addWidget(m_text, 1);
    row->addWidget(m_stop);
    QSizePolicy policy = m_stop->sizePolicy();
    policy.setRetainSizeWhenHidden(true); // the pages keep their place when the button goes
    m_stop->setSizePolicy(policy);
}

void RunBar::showRunning(const Progress& progress) {
    const QLocale locale(QLocale::English);
    m_text->setText(tr("Reading\u2026 %1 rows, %2 pages")
                        .arg(locale.toString(progress.rows), locale.toString(progress.pages)));
    controls::look::setKind(m_text, {});
    m_busy->show();
    m_stop->show();
}

void RunBar::showStopped() {
    m_text->setText(tr("Stopped: the report is not complete"));
    controls::look::setKind(m_text, QStringLiteral("warn"));
    m_busy->hide();
    m_stop->hide();
}

QString RunBar::text() const {
    return m_text->text();
}

} // namespace report
