#include "platform/report/ReportDefinition.h"
#include "platform/report/ReportError.h"
#include "tests/platform/report/Bench.h"

#include <QFile>

#include <gtest/gtest.h>

#include <random>

using base::RunTimeError;
using report::ReportDefinition;
using tests::definitionOf;

namespace {

QString readError(const QByteArray& xml) {
    try {
        ReportDefinition::read(xml, QStringLiteral("Some.RPT"));
    } catch (const RunTimeError& error) {
        EXPECT_EQ(error.number(), report::errorDamaged);
        return error.description();
    }
    return {};
}

QByteArray chargeSlip() {
    QFile file(QStringLiteral(SCINTRA_SOURCE_DIR "/Reports/Chargeslip.RPT"));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    return file.readAll();
}

} // namespace

TEST(ReportDefinition, LengthsCarryTheirUnits) {
    const auto definition =
        ReportDefinition::read("<report version=\"1\"><page width=\"8.5in\" height=\"27.94cm\" left=\"36pt\" "
                               "top=\"10mm\" right=\"0mm\" "
                               "bottom=\"0mm\"/></report>",
                               "x");
    EXPECT_EQ(definition->paperWidth.hundredths, 21590);
    EXPECT_EQ(definition->paperHeight.hundredths, 27940);
    EXPECT_EQ(definition->left.hundredths, 1270);
    EXPECT_EQ(definition->top.hundredths, 1000);
}

TEST(ReportDefinition, ErrorsTellFileLineAndColumn) {
    EXPECT_EQ(readError(definitionOf("<detail height=\"5mm\"/>")),
              "Some.RPT: line 5, column 23: element detail is not known here.");
    EXPECT_NE(readError(definitionOf("<details height=\"5mm\" colour=\"red\"/>"))
                  .indexOf("line 5, column 37: attribute colour is not known here"),
              -1);
}

TEST(ReportDefinition, RefusesWhatItDoesNotMean) {
    const auto refused = [](const QString& inside, const char* reason) {
        EXPECT_NE(readError(definitionOf(inside)).indexOf(QLatin1StringView(reason)), -1)
            << qPrintable(inside) << ": " << qPrintable(readError(definitionOf(inside)));
    };
    refused("<details height=\"5\"/>", "is no length");
    refused("<details height=\"-5mm\"/>", "is no length");
    refused("<details height=\"9000mm\"/>", "is no length");
    refused("<details height=\"nanmm\"/>", "is no length");
    refused("<details/>", "attribute height is missing");
    refused("<details height=\"5mm\" newPageBefore=\"maybe\"/>", "is none of: no, yes");
    refused("<details height=\"5mm\"><text x=\"0mm\" y=\"0mm\">a</text></details>", "a text needs a width");
    refused("<details height=\"5mm\"><text x=\"0mm\" y=\"0mm\" width=\"5mm\" style=\"t\">a</text></details>",
            "there is no style \"t\"");
    refused("<details height=\"5mm\"><box x=\"0mm\" y=\"0mm\" fill=\"red\"/></details>", "is no colour");
    refused("<details height=\"5mm\"><picture x=\"0mm\" y=\"0mm\">AAAA</picture></details>",
            "no PNG picture");
    refused("<details height=\"5mm\">words</details>", "text is not expected here");
    refused("<style name=\"t\" size=\"4000pt\"/>", "is out of 1 to 300 pt");
    refused("<style name=\"t\" size=\"0.5pt\"/>", "is out of 1 to 300 pt");
    refused("<parameter name=\"P\"/><parameter name=\"p\"/>", "the name \"p\" is given twice");
    refused("<table name=\"T\" location=\"a..b; DROP TABLE c\"/>", "location is no table's name");
    refused("<group name=\"g\"/>", "attribute by is missing");
    EXPECT_NE(readError("<report version=\"2\"/>").indexOf("this version"), -1);
    EXPECT_NE(readError("<html/>").indexOf("this is no report definition"), -1);
    EXPECT_NE(readError("<report version=\"1\"/>").indexOf("the page is missing"), -1);
    EXPECT_NE(readError("").indexOf("line 1"), -1);
}

TEST(ReportDefinition, NoDocumentTypeAndNoEntity) {
    EXPECT_NE(
        readError(
            "<!DOCTYPE report [<!ENTITY e SYSTEM \"file:///etc/passwd\">]><report version=\"1\">&e;</report>")
            .indexOf("a document type is not allowed"),
        -1);
    EXPECT_FALSE(
        readError(definitionOf("<details height=\"5mm\"><text x=\"0mm\" y=\"0mm\" width=\"9mm\">&e;</text>"
                               "</details>"))
            .isEmpty());
}

TEST(ReportDefinition, CyclicFormulasAreRefused) {
    EXPECT_NE(
        readError(definitionOf("<formula name=\"a\">{@b}</formula>\n<formula name=\"b\">1 + {@c}</formula>\n"
                               "<formula name=\"c\">Upper({@a})</formula>"))
            .indexOf("leads back to itself"),
        -1);
    EXPECT_NE(readError(definitionOf("<formula name=\"a\">{@a}</formula>")).indexOf("line 5, column"), -1);
    EXPECT_EQ(readError(definitionOf(
                  "<formula name=\"a\">{@b} &amp; {@b}</formula><formula name=\"b\">1</formula>")),
              "");
}

TEST(ReportDefinition, FormulasThatDoubleThemselvesAreRefused) {
    QString inside = "<formula name=\"f0\">1</formula>";
    for (int i = 1; i < 60; ++i)
        inside += QString("<formula name=\"f%1\">{@f%2} + {@f%2}</formula>").arg(i).arg(i - 1);
    EXPECT_NE(readError(definitionOf(inside)).indexOf("is too large"), -1);
}

TEST(ReportDefinition, SizeDepthAndNumberAreBounded) {
    EXPECT_NE(readError(definitionOf(QString(5 * 1024 * 1024, u' '))).indexOf("larger than 4 MB"), -1);
    EXPECT_NE(readError(QByteArray("<a>").repeated(100000)).indexOf("nested too deeply"), -1);
    EXPECT_NE(readError(definitionOf(QString("<details height=\"5mm\"/>").repeated(6000)))
                  .indexOf("too many elements"),
              -1);
    QString formulas;
    for (int i = 0; i < 400; ++i)
        formulas += QString("<formula name=\"f%1\">1</formula>").arg(i);
    EXPECT_NE(readError(definitionOf(formulas)).indexOf("too many formulas"), -1);
}

TEST(ReportDefinition, EveryTruncationIsAnErrorWithAPlace) {
    const QByteArray whole = chargeSlip().trimmed();
    for (qsizetype length = 0; length < whole.size(); length += 37)
        EXPECT_NE(readError(whole.left(length)).indexOf(": line "), -1) << length;
}

TEST(ReportDefinition, DamageNeverDoesMoreThanRaise) {
    const QByteArray whole = chargeSlip();
    std::mt19937 random(20261121);
    const QByteArray signs = "<>\"&/= {}()?@#-0a9m\x00\xff";
    int read = 0;
    for (int round = 0; round < 3000; ++round) {
        QByteArray damaged = whole;
        for (unsigned change = 0; change < 1 + random() % 2; ++change) {
            const qsizetype at = qsizetype(random() % unsigned(damaged.size()));
            if (random() % 3 == 0)
                damaged.remove(at, 1 + random() % 30);
            else
                damaged[at] = signs[qsizetype(random() % unsigned(signs.size()))];
        }
        try {
            const auto definition = ReportDefinition::read(damaged, "Some.RPT");
            ++read;
            auto data = std::make_shared<report::ReportData>();
            data->definition = definition;
            for (std::size_t i = 0; i < definition->tables.size(); ++i)
                data->tables.push_back(
                    tests::ScriptedProvider::rowsOf("ItemID,Description,Quantity,Price,Amount,RevenueID",
                                                    {{"1", "BONE SCAN", 1, 2.0, 2.0, "NU"}})
                        .rows);
            data->parameters.resize(definition->parameters.size());
            data->formulas = definition->formulaExpressions;
            report::layout(std::move(data))->page(0);
        } catch (const RunTimeError&) {
        }
    }
    EXPECT_GT(read, 100); // the damage reached the layout, too
}
