#pragma once

#include <QString>

#include <memory>

class QPagedPaintDevice;
class QPageLayout;
class QWidget;

namespace report {

/// A printer that is set up. It may be a PDF file: where the computer has no printer, and where the dialog
/// was told so.
class Printer {
  public:
    virtual ~Printer() = default;

    virtual QString name() const = 0;
    /// Dots an inch.
    virtual int resolution() const = 0;
    /// Before the first page: the job's title, and the paper, all of which is printed on.
    virtual void prepare(const QString& title, const QPageLayout& paper) = 0;
    /// What is painted on, page after page; the printer's own.
    virtual QPagedPaintDevice& pages() = 0;
    /// Takes the job back where the printer allows it.
    virtual void abort() = 0;
    virtual bool hasFailed() const = 0;
};

/// What was answered in the system's dialog: no printer when it was given up. Pages count from 1, both are
/// included.
struct PrintChoice {
    std::unique_ptr<Printer> printer;
    int from = 1;
    int to = 1;
};

/// Who prints on this computer. The tool kit's part for it (platform/print) is a module that is loaded with
/// the first print: linked, it made every start of the program longer.
class PrintSystem {
  public:
    virtual ~PrintSystem() = default;

    virtual bool hasDefaultPrinter() const = 0;
    virtual std::unique_ptr<Printer> defaultPrinter() const = 0;
    /// Asks for printer and pages. `currentPage` is the one that the dialog calls so.
    virtual PrintChoice ask(QWidget* parent, const QString& title, int pageCount, int currentPage) const = 0;
};

/// The one that is kept. Raises 75 as long as the module is missing.
const PrintSystem& printSystem();

/// Loads the module of that path; raises 75 when it is none.
const PrintSystem& loadPrintSystem(const QString& module);

} // namespace report

/// The module's one function.
extern "C" const report::PrintSystem* scintraPrintSystem();
