#include "platform/report/RunBar.h"

#include "platform/controls/Look.h"

#include <QAction>
#include <QHBoxLayout>
#include <QLabel>
#include <QLocale>
#include <QProgressBar>
#include <QToolButton>

namespace report {

RunBar::RunBar(QAction* stop, QWidget* parent) : QWidget(parent) {
    m_text = new QLabel(this);
    m_text->setObjectName(QStringLiteral("runText"));
    m_busy = new QProgressBar(this);
    m_busy->setRange(0, 0);
    m_busy->setTextVisible(false);
    m_busy->setFixedWidth(controls::look::scaled(140));
    m_busy->setFixedHeight(controls::look::scaled(6));
    m_stop = new QToolButton(this);
    m_stop->setObjectName(QStringLiteral("runStop"));
    m_stop->setDefaultAction(stop);
    m_stop->setToolButtonStyle(Qt::ToolButtonTextOnly);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(12, 2, 12, 2);
    row->addWidget(m_text);
    row->addWidget(m_busy);
    row->addWidget(m_stop);
    row->addStretch(1);
}

void RunBar::showRunning(const Progress& progress) {
    const QLocale locale(QLocale::English);
    m_text->setText(tr("Reading\u2026 %1 rows, %2 pages")
                        .arg(locale.toString(progress.rows), locale.toString(progress.pages)));
    m_busy->show();
    m_stop->show();
}

void RunBar::showStopped() {
    m_text->setText(tr("Stopped: the report is not complete"));
    m_busy->hide();
    m_stop->hide();
}

QString RunBar::text() const {
    return m_text->text();
}

} // namespace report
