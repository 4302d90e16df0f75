#include "platform/report/Print.h"

#include "platform/report/PagePainter.h"
#include "platform/report/ParameterPrompt.h"
#include "platform/report/Report.h"
#include "platform/report/SaveFile.h"

#include <QApplication>
#include <QPageLayout>
#include <QPainter>
#include <QPdfWriter>
#include <QPrinter>
#include <QPrinterInfo>
#include <QSaveFile>

#include <algorithm>

namespace report {
namespace {

constexpr int unitsPerInch = 2540;

QPageLayout paperOf(const PageDocument& document) {
    const QSizeF paper(document.pageWidth().mm(), document.pageHeight().mm());
    const bool lies = paper.width() > paper.height();
    const QPageSize size(lies ? paper.transposed() : paper, QPageSize::Millimeter, QString(),
                         QPageSize::FuzzyMatch);
    return QPageLayout(size, lies ? QPageLayout::Landscape : QPageLayout::Portrait, QMarginsF());
}

[[noreturn]] void failed(const QString& what, const QString& reason) {
    throw fileError(what, reason);
}

std::unique_ptr<PrintTarget>& target() {
    static std::unique_ptr<PrintTarget> current = std::make_unique<DefaultPrinter>();
    return current;
}

} // namespace

bool DefaultPrinter::isReady() const {
    return !QPrinterInfo::defaultPrinter().isNull();
}

void DefaultPrinter::print(const PageDocument& document) {
    QPrinter printer(QPrinterInfo::defaultPrinter(), QPrinter::HighResolution);
    printPages(document, printer, 1, document.pageCount());
}

void PdfFile::print(const PageDocument& document) {
    exportPdf(document, m_path);
}

void setPrintTarget(std::unique_ptr<PrintTarget> other) {
    target() = other ? std::move(other) : std::make_unique<DefaultPrinter>();
}

void setPrintTarget(const QString& pdfPath) {
    if (pdfPath.isEmpty())
        setPrintTarget(std::unique_ptr<PrintTarget>());
    else
        setPrintTarget(std::make_unique<PdfFile>(pdfPath));
}

bool printDirect(Report& report) {
    if (!target()->isReady())
        return false;
    if (!promptForParameters(report, QApplication::activeWindow()))
        return true;
    report.discardSavedData();
    target()->print(*report.run());
    return true;
}

void printPages(const PageDocument& document, QPrinter& printer, int from, int to) {
    printer.setDocName(document.title());
    printer.setFullPage(true);
    printer.setPageLayout(paperOf(document));
    printer.setFullPage(true);
    QPainter painter;
    if (!painter.begin(&printer))
        failed(printer.printerName(), QStringLiteral("the printer does not take the job"));
    const double scale = double(printer.resolution()) / unitsPerInch;
    painter.scale(scale, scale);
    for (int number = std::max(from, 1); number <= std::min(to, document.pageCount()); ++number) {
        if (number > std::max(from, 1) && !printer.newPage())
            failed(printer.printerName(), QStringLiteral("the printer does not take a page"));
        paintPage(painter, *document.page(number - 1));
    }
    if (!painter.end() || printer.printerState() == QPrinter::Error)
        failed(printer.printerName(), QStringLiteral("the job was not finished"));
}

void exportPdf(const PageDocument& document, const QString& path) {
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        failed(path, file.errorString());
    {
        QPdfWriter writer(&file);
        writer.setTitle(document.title());
        writer.setCreator(QStringLiteral("Visual Kerova - Visual Scintra"));
        writer.setResolution(unitsPerInch);
        writer.setPageLayout(paperOf(document));
        QPainter painter;
        if (!painter.begin(&writer))
            failed(path, QStringLiteral("no page can be written"));
        for (int i = 0; i < document.pageCount(); ++i) {
            if (i > 0 && !writer.newPage())
                failed(path, QStringLiteral("no page can be written"));
            paintPage(painter, *document.page(i));
        }
        painter.end();
    }
    if (!file.commit())
        failed(path, file.errorString());
}

} // namespace report
