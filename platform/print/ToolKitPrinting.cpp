#include "platform/report/output/PrintSystem.h"

#include <QPageLayout>
#include <QPrintDialog>
#include <QPrinter>
#include <QPrinterInfo>

namespace {

class ToolKitPrinter : public report::Printer {
  public:
    ToolKitPrinter() : m_printer(QPrinter::HighResolution) {}
    explicit ToolKitPrinter(const QPrinterInfo& of) : m_printer(of, QPrinter::HighResolution) {}

    QString name() const override { return m_printer.printerName(); }
    int resolution() const override { return m_printer.resolution(); }
    void prepare(const QString& title, const QPageLayout& paper) override {
        m_printer.setDocName(title);
        m_printer.setFullPage(true);
        m_printer.setPageLayout(paper);
        m_printer.setFullPage(true);
    }
    QPrinter& pages() override { return m_printer; }
    void abort() override { m_printer.abort(); }
    bool hasFailed() const override { return m_printer.printerState() == QPrinter::Error; }

  private:
    QPrinter m_printer;
};

class ToolKitPrinting : public report::PrintSystem {
  public:
    bool hasDefaultPrinter() const override { return !QPrinterInfo::defaultPrinter().isNull(); }

    std::unique_ptr<report::Printer> defaultPrinter() const override {
        return std::make_unique<ToolKitPrinter>(QPrinterInfo::defaultPrinter());
    }

    report::PrintChoice ask(QWidget* parent, const QString& title, int pageCount,
                            int currentPage) const override {
        auto asked = std::make_unique<ToolKitPrinter>();
        QPrinter& printer = asked->pages();
        printer.setDocName(title);
        QPrintDialog dialog(&printer, parent);
        dialog.setOption(QAbstractPrintDialog::PrintCurrentPage);
        dialog.setMinMax(1, pageCount);
        if (dialog.exec() != QDialog::Accepted)
            return {};
        if (printer.printRange() == QPrinter::CurrentPage)
            return {std::move(asked), currentPage, currentPage};
        if (printer.printRange() == QPrinter::PageRange && printer.fromPage() > 0)
            return {std::move(asked), printer.fromPage(), printer.toPage()};
        return {std::move(asked), 1, pageCount};
    }
};

} // namespace

const report::PrintSystem* scintraPrintSystem() {
    static const ToolKitPrinting system;
    return &system;
}
