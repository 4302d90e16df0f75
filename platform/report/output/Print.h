#pragma once

#include "platform/report/Progress.h"
#include "platform/report/layout/PageDocument.h"

#include <QString>

namespace report {

class Printer;
class Report;

/// Where direct print goes.
class PrintTarget {
  public:
    virtual ~PrintTarget() = default;
    /// False when there is nothing to print on. Raises 75 when this cannot be told.
    virtual bool isReady() const = 0;
    /// Raises 75 when the job cannot be made.
    virtual void print(const PageDocument& document) = 0;
};

/// The workstation's default printer, without a prompt.
class DefaultPrinter : public PrintTarget {
  public:
    bool isReady() const override;
    void print(const PageDocument& document) override;
};

/// Writes each job over one PDF file.
class PdfFile : public PrintTarget {
  public:
    explicit PdfFile(QString path) : m_path(std::move(path)) {}
    bool isReady() const override { return true; }
    void print(const PageDocument& document) override;

  private:
    QString m_path;
};

/// Sends direct print elsewhere; null: back to the default printer.
void setPrintTarget(std::unique_ptr<PrintTarget> target);
/// Sends direct print into a PDF file; an empty path: back to the default printer.
void setPrintTarget(const QString& pdfPath);

/// Runs the report and prints it at once, without a prompt; parameters that are missing are asked for. ""
/// when it was printed or given up; else what kept it from being printed, a sentence without its stop, and
/// the caller can show the report instead. Without a printer nothing was run.
QString printDirect(Report& report);

/// Prints pages `from` to `to` (from 1, both included) on a printer that is set up. False when `progress`
/// gave it up: the job is taken back where the printer allows it.
bool printPages(const PageDocument& document, Printer& printer, int from, int to,
                const ProgressCall& progress = {});

/// Writes all pages as PDF, text as text. The file is there whole or not at all; raises 75 with the reason.
/// False when `progress` gave it up.
bool exportPdf(const PageDocument& document, const QString& path, const ProgressCall& progress = {});

} // namespace report
