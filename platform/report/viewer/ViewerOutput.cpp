#include "platform/report/viewer/Viewer.h"

#include "platform/controls/look/Look.h"
#include "platform/controls/screen/ErrorBoundary.h"
#include "platform/controls/screen/MessageBox.h"
#include "platform/report/output/Print.h"
#include "platform/report/output/RowExport.h"
#include "platform/report/viewer/ProgressBox.h"
#include "platform/report/viewer/SaveDialog.h"

#include <QAccessible>
#include <QApplication>
#include <QDir>
#include <QLabel>
#include <QPrintDialog>
#include <QPrinter>
#include <QScopeGuard>
#include <QToolBar>

namespace report {

/// Tells what became of a command, at the bar's end.
void Viewer::addNote() {
    auto* spacer = new QWidget(this);
    spacer->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    m_bar->addWidget(spacer);
    m_note = new QLabel(this);
    m_note->setObjectName(QStringLiteral("note"));
    m_note->setProperty("kind", QStringLiteral("help"));
    m_note->setContentsMargins(8, 0, 12, 0);
    m_bar->addWidget(m_note);
}

void Viewer::print() {
    m_printWanted = isRunning();
    if (!document() || !document()->isComplete())
        return;
    QPrinter printer(QPrinter::HighResolution);
    printer.setDocName(document()->title());
    QPrintDialog dialog(&printer, this);
    dialog.setOption(QAbstractPrintDialog::PrintCurrentPage);
    dialog.setMinMax(1, document()->pageCount());
    const controls::ModalLevel level;
    const bool accepted = dialog.exec() == QDialog::Accepted;
    controls::ErrorBoundary::throwIfStopping();
    if (accepted)
        printOn(printer);
}

void Viewer::printOn(QPrinter& printer) {
    int from = 1;
    int to = document()->pageCount();
    if (printer.printRange() == QPrinter::CurrentPage)
        from = to = m_pages->currentPage() + 1;
    else if (printer.printRange() == QPrinter::PageRange && printer.fromPage() > 0)
        from = printer.fromPage(), to = printer.toPage();
    try {
        ProgressBox box(this, tr("Print"));
        printPages(*document(), printer, from, to, box.call());
    } catch (const base::RunTimeError& error) {
        controls::MsgBox(error.description(), controls::vbExclamation, tr("Print"));
    }
}

void Viewer::askExport() {
    if (!document() || !document()->isComplete())
        return;
    QList<SaveKind> kinds{{tr("PDF documents"), QStringLiteral("pdf")}};
    if (document()->rows())
        kinds << SaveKind{tr("Excel workbooks of the rows"), QStringLiteral("xlsx")}
              << SaveKind{tr("Comma separated rows"), QStringLiteral("csv")};
    const QString path = askSavePath(this, tr("Export"), document()->title(), kinds);
    if (!path.isEmpty())
        exportTo(path);
}

bool Viewer::exportTo(const QString& path) {
    if (!document() || !document()->isComplete())
        return false;
    m_note->clear();
    QString failure;
    bool written = false;
    try {
        QApplication::setOverrideCursor(Qt::WaitCursor);
        const auto done = qScopeGuard([] { QApplication::restoreOverrideCursor(); });
        ProgressBox box(this, tr("Export"));
        if (fileKindOf(path) == FileKind::Pdf)
            written = exportPdf(*document(), path, box.call());
        else if (document()->rows())
            written = exportRows(*document()->rows(), document()->rowsHeading(), path, box.call());
        else
            failure = tr("The report has no rows to export.");
    } catch (const base::RunTimeError& error) {
        failure = error.description();
    }
    if (!failure.isEmpty())
        controls::MsgBox(failure, controls::vbExclamation, tr("Export"));
    else
        tellNote(written ? tr("Saved as %1").arg(QDir::toNativeSeparators(path)) : tr("Nothing was saved"));
    return written;
}

/// The end of a path says more than its beginning.
void Viewer::tellNote(const QString& text) {
    m_note->setText(m_note->fontMetrics().elidedText(text, Qt::ElideMiddle, controls::look::scaled(420)));
    m_note->setToolTip(text);
    m_note->setAccessibleName(text);
    QAccessibleEvent event(m_note, QAccessible::NameChanged);
    QAccessible::updateAccessibility(&event);
}

} // namespace report
