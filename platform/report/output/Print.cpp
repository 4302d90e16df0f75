#include "platform/report/output/Print.h"

#include "platform/report/Report.h"
#include "platform/report/definition/ReportError.h"
#include "platform/report/output/PagePainter.h"
#include "platform/report/output/PrintSystem.h"
#include "platform/report/output/SaveFile.h"
#include "platform/report/viewer/ParameterPrompt.h"
#include "platform/report/viewer/ProgressBox.h"

#include <QApplication>
#include <QPageLayout>
#include <QPagedPaintDevice>
#include <QPainter>
#include <QPdfWriter>
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

/// Paints the pages `from` to `to`, counted from 1, `nextPage` between two of them. False when it was given
/// up.
bool paintPages(const PageDocument& document, QPainter& painter, int from, int to,
                const std::function<void()>& nextPage, const ProgressCall& progress) {
    for (int number = from; number <= to; ++number) {
        if (number > from)
            nextPage();
        paintPage(painter, *document.page(number - 1));
        if (progress && !progress({0, number - from + 1, to - from + 1}))
            return false;
    }
    return true;
}

/// What keeps a page from being printed, "" when nothing does; any other error goes on.
QString hindranceOf(const std::function<void()>& step) {
    try {
        step();
        return {};
    } catch (const base::RunTimeError& error) {
        if (error.number() != errorFile)
            throw;
        const QString& reason = error.description();
        return reason.endsWith(u'.') ? reason.chopped(1) : reason;
    }
}

std::unique_ptr<PrintTarget>& target() {
    static std::unique_ptr<PrintTarget> current = std::make_unique<DefaultPrinter>();
    return current;
}

} // namespace

bool DefaultPrinter::isReady() const {
    return printSystem().hasDefaultPrinter();
}

void DefaultPrinter::print(const PageDocument& document) {
    const std::unique_ptr<Printer> printer = printSystem().defaultPrinter();
    ProgressBox box(QApplication::activeWindow(), QStringLiteral("Print"));
    printPages(document, *printer, 1, document.pageCount(), box.call());
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

QString printDirect(Report& report) {
    bool isReady = false;
    if (const QString hindrance = hindranceOf([&] { isReady = target()->isReady(); }); !hindrance.isEmpty())
        return hindrance;
    if (!isReady)
        return QStringLiteral("No printer is set up on this computer");
    if (!promptForParameters(report, QApplication::activeWindow()))
        return {};
    std::unique_ptr<PageDocument> document;
    {
        ProgressBox box(QApplication::activeWindow(), QStringLiteral("Print"));
        document = report.run(box.call());
    }
    if (!document)
        return {};
    return hindranceOf([&] { target()->print(*document); });
}

bool printPages(const PageDocument& document, Printer& printer, int from, int to,
                const ProgressCall& progress) {
    printer.prepare(document.title(), paperOf(document));
    QPainter painter;
    if (!painter.begin(&printer.pages()))
        failed(printer.name(), QStringLiteral("the printer does not take the job"));
    const double scale = double(printer.resolution()) / unitsPerInch;
    painter.scale(scale, scale);
    const auto nextPage = [&] {
        if (!printer.pages().newPage())
            failed(printer.name(), QStringLiteral("the printer does not take a page"));
    };
    if (!paintPages(document, painter, std::max(from, 1), std::min(to, document.pageCount()), nextPage,
                    progress)) {
        printer.abort();
        return false;
    }
    if (!painter.end() || printer.hasFailed())
        failed(printer.name(), QStringLiteral("the job was not finished"));
    return true;
}

bool exportPdf(const PageDocument& document, const QString& path, const ProgressCall& progress) {
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
        const auto nextPage = [&] {
            if (!writer.newPage())
                failed(path, QStringLiteral("no page can be written"));
        };
        if (!paintPages(document, painter, 1, document.pageCount(), nextPage, progress))
            return false;
        painter.end();
    }
    // commit() writes what is still held back as well, but does not look whether it could
    if (file.error() != QFileDevice::NoError || !file.flush() || !file.commit())
        failed(path, file.errorString());
    return true;
}

} // namespace report
