#include "tests/orders/SlipPrinter.h"

#include "platform/report/layout/PageDocument.h"
#include "platform/report/output/Print.h"
#include "session/TestDoors.h"
#include "tests/support/hospital/Days.h"

#include <QDir>
#include <QFile>

#include <gtest/gtest.h>

#include <variant>

namespace tests {

namespace {

QStringList textsOf(const report::PageDocument& document) {
    QStringList texts;
    for (const report::Item& item : document.page(0)->items)
        if (const auto* run = std::get_if<report::TextRun>(&item))
            texts += run->text;
    return texts;
}

/// A printer that is there or not, and keeps the texts of what it was given.
class Printer : public report::PrintTarget {
  public:
    Printer(bool ready, QStringList& texts) : m_ready(ready), m_texts(texts) {}
    bool isReady() const override { return m_ready; }
    void print(const report::PageDocument& document) override {
        for (const QString& text : textsOf(document))
            m_texts += toTestDays(text);
    }

  private:
    bool m_ready;
    QStringList& m_texts;
};

} // namespace

SlipPrinter::SlipPrinter() {
    QDir(m_programFolder.path()).mkdir("Reports");
    QFile definition(m_programFolder.filePath("Reports/Chargeslip.RPT"));
    EXPECT_TRUE(definition.open(QIODevice::WriteOnly));
    QString parameters, fields;
    for (int i = 0; i < 10; ++i) {
        parameters += QStringLiteral("<parameter name=\"P%1\"/>").arg(i);
        fields += QStringLiteral("<field x=\"0mm\" y=\"%2mm\" width=\"150mm\" height=\"6mm\" "
                                 "value=\"&quot;%1: &quot; &amp; {?P%1}\"/>")
                      .arg(i)
                      .arg(i * 7);
    }
    definition.write(
        QStringLiteral("<report version=\"1\" title=\"Slip\"><page width=\"180mm\" height=\"120mm\" "
                       "left=\"10mm\" right=\"10mm\" top=\"10mm\" bottom=\"10mm\"/>%1<table "
                       "name=\"Rooms\" location=\"BUILD_FILE..tbcoRoom\">SELECT TOP 1 RoomID FROM "
                       "{table} ORDER BY RoomID</table><details height=\"80mm\">%2</details></report>")
            .arg(parameters, fields)
            .toUtf8());
    session::setProgramFolder(m_programFolder.path());
    usePrinter(true);
}

SlipPrinter::~SlipPrinter() {
    report::setPrintTarget(QString());
    session::setProgramFolder({});
}

void SlipPrinter::usePrinter(bool ready) {
    report::setPrintTarget(std::make_unique<Printer>(ready, printed));
}

} // namespace tests
