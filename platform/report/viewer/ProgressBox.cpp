#include "platform/report/viewer/ProgressBox.h"

#include <QApplication>
#include <QLocale>
#include <QProgressDialog>

namespace report {
namespace {

constexpr qint64 hiddenAtFirst = 1000; // ms
constexpr qint64 betweenLooks = 80;    // ms

} // namespace

ProgressBox::ProgressBox(QWidget* parent, QString what) : m_parent(parent), m_what(std::move(what)) {
    m_sinceBegin.start();
}

ProgressBox::~ProgressBox() {
    if (m_dialog)
        QApplication::restoreOverrideCursor();
}

void ProgressBox::open() {
    QApplication::setOverrideCursor(Qt::ArrowCursor);
    m_level.emplace();
    m_dialog = std::make_unique<QProgressDialog>(m_parent);
    m_dialog->setObjectName(QStringLiteral("progress"));
    m_dialog->setWindowTitle(m_what);
    m_dialog->setCancelButtonText(QProgressDialog::tr("&Cancel"));
    m_dialog->setWindowModality(Qt::ApplicationModal);
    m_dialog->setAutoClose(false);
    m_dialog->setAutoReset(false);
    m_dialog->setMinimumDuration(0);
    m_dialog->setMinimumWidth(m_dialog->fontMetrics().averageCharWidth() * 44);
}

QString ProgressBox::textOf(const Progress& progress) const {
    const QLocale locale(QLocale::English);
    if (progress.ofPages > 0)
        return QProgressDialog::tr("%1 of %2 pages")
            .arg(locale.toString(progress.pages), locale.toString(progress.ofPages));
    if (progress.pages > 0)
        return QProgressDialog::tr("%1 pages").arg(locale.toString(progress.pages));
    return QProgressDialog::tr("%1 rows").arg(locale.toString(progress.rows));
}

bool ProgressBox::operator()(const Progress& progress) {
    if (m_sinceBegin.elapsed() < hiddenAtFirst)
        return true;
    if (!m_dialog)
        open();
    if (!m_sinceShown.isValid() || m_sinceShown.elapsed() >= betweenLooks) {
        m_dialog->setMaximum(progress.ofPages);
        m_dialog->setLabelText(textOf(progress));
        m_dialog->setValue(progress.ofPages > 0 ? progress.pages : 0);
        QApplication::processEvents();
        controls::ErrorBoundary::throwIfStopping();
        m_sinceShown.start();
    }
    return !m_dialog->wasCanceled();
}

ProgressCall ProgressBox::call() {
    return [this](const Progress& progress) { return (*this)(progress); };
}

} // namespace report
