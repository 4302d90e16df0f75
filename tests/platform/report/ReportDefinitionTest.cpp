#include "platform/report/definition/ReportDefinition.h"
#include "platform/report/definition/ReportError.h"
#include "tests/platform/report/Bench.h"

#include <QFile>
#include <QRegularExpression>

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

/// A definition with everything that one can hold but a picture, whose library complains of damage aloud.
QByteArray everyElement() {
    QByteArray xml = definitionOf(
        "<style name=\"t\" font=\"Noto Sans\" size=\"8pt\" bold=\"yes\" italic=\"yes\" colour=\"#0B4F5C\"/>"
        "<parameter name=\"From\" type=\"date\" prompt=\"From day\"/>"
        "<formula name=\"Line\">{A} &amp; If({Quantity} &gt; 1, &quot; x&quot;, {@Tail})</formula>"
        "<formula name=\"Tail\">Running({Quantity}, G)</formula>"
        "<subReport name=\"Sub\"><parameter name=\"P\"/><table name=\"T\" location=\"A..b\">SELECT * FROM "
        "{table} "
        "WHERE A = '{?P}'</table><details height=\"4mm\"><field x=\"0mm\" y=\"0mm\" width=\"9mm\" "
        "value=\"{T.A} &amp; {?P}\"/></details></subReport>"
        "<watermark value=\"{?From}\" style=\"t\" degrees=\"30\"/>"
        "<group name=\"G\" by=\"{B}\" label=\"Upper({B})\" repeat=\"yes\" newPage=\"yes\" "
        "keepTogether=\"yes\">"
        "<header height=\"5mm\"><insert report=\"Sub\" x=\"1mm\" y=\"0mm\" height=\"3mm\"><link "
        "parameter=\"P\" "
        "value=\"{B}\"/></insert></header><footer height=\"5mm\"><field x=\"0mm\" y=\"0mm\" width=\"20mm\" "
        "value=\"Sum({Quantity}, G)\" format=\"#,##0.00\" align=\"right\"/></footer></group>"
        "<reportHeader height=\"4mm\"><box x=\"0mm\" y=\"0mm\" width=\"9mm\" height=\"3mm\" radius=\"1mm\" "
        "fill=\"#E7EEF2\" tint=\"&quot;#FFEE00&quot;\"/></reportHeader><pageHeader height=\"4mm\" "
        "withRows=\"yes\" visible=\"PageNumber &gt; 0\"><text "
        "x=\"0mm\" "
        "y=\"0mm\" width=\"9mm\">A</text></pageHeader>"
        "<details height=\"5mm\"><field x=\"0mm\" y=\"0mm\" width=\"20mm\" height=\"4mm\" grow=\"yes\" "
        "style=\"t\" value=\"{@Line}\"/><line x=\"0mm\" y=\"5mm\" width=\"20mm\" "
        "thickness=\"0.1mm\"/></details>"
        "<pageFooter height=\"4mm\"><field x=\"0mm\" y=\"0mm\" width=\"30mm\" value=\"PageNumber &amp; "
        "&quot;/&quot; &amp; PageCount\"/></pageFooter>"
        "<reportFooter height=\"30mm\" newPageBefore=\"yes\" atBottom=\"yes\"><chart x=\"0mm\" y=\"0mm\" "
        "width=\"60mm\" height=\"25mm\" label=\"{B}\" value=\"Sum({Quantity})\" group=\"G\" most=\"3\"/>"
        "<insert report=\"Sub\" x=\"0mm\" y=\"26mm\"/></reportFooter>");
    return xml.replace("bottom=\"10mm\"/>", "bottom=\"10mm\" columns=\"2\" gutter=\"2mm\"/>");
}

std::shared_ptr<report::ReportData> dataFor(const std::shared_ptr<const ReportDefinition>& definition) {
    auto data = std::make_shared<report::ReportData>();
    data->definition = definition;
    for (std::size_t i = 0; i < definition->tables.size(); ++i)
        data->tables.push_back(
            tests::ScriptedProvider::rowsOf(
                "ItemID,Description,Quantity,Price,Amount,RevenueID,A,B",
                {{"1", "BONE SCAN", 1, 2.0, 2.0, "NU", "a", "x"}, {"2", "GFR", 2, 2.0, 4.0, "NU", "b", "y"}})
                .rows);
    data->parameters.resize(definition->parameters.size());
    data->formulas = definition->formulaExpressions;
    for (const report::SubReportDefinition& sub : definition->subReports) {
        const std::shared_ptr<const report::ReportData> inner = dataFor(sub.definition);
        data->subReports.push_back(inner);
        data->linked.push_back([inner](const report::LinkedValues&) { return inner; });
    }
    return data;
}

/// How many of the damaged texts could be read, and were laid out.
int layOutDamaged(const QByteArray& whole, int rounds) {
    std::mt19937 random(20261121);
    const QByteArray signs = "<>\"&/= {}()?@#-0a9m\x00\xff";
    int read = 0;
    for (int round = 0; round < rounds; ++round) {
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
            report::layout(dataFor(definition))->page(0);
        } catch (const RunTimeError&) {
        }
    }
    return read;
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
    const QString sub = "<subReport name=\"S\"><parameter name=\"P\"/></subReport><details height=\"5mm\">"
                        "<insert report=\"S\" x=\"0mm\" y=\"0mm\">%1</insert></details>";
    refused(sub.arg("<link parameter=\"Q\" value=\"1\"/>"), "the sub-report has no parameter \"Q\"");
    refused(sub.arg("<link parameter=\"P\"/>"), "attribute value is missing");
    refused(sub.arg("<link value=\"1\"/>"), "attribute parameter is missing");
    refused(sub.arg("<link parameter=\"P\" value=\"1\"/>").replace("<link", "<lnk"),
            "element lnk is not known");
    refused(sub.arg("<link parameter=\"P\" value=\"1\"/><link parameter=\"p\" value=\"2\"/>"),
            "parameter \"p\" is linked twice");
    refused(sub.arg("<link parameter=\"P\" value=\"1 +\"/>"), "in \"1 +\" at 4");
    refused(sub.arg("<link parameter=\"P\" value=\"1\" to=\"2\"/>"), "attribute to is not known here");
    refused(sub.arg("<link parameter=\"P\" value=\"1\">words</link>"), "text is not expected here");
    refused("<pageHeader height=\"5mm\" withRows=\"1\"/>", "is none of: no, yes");
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
    for (const QByteArray& whole : {chargeSlip().trimmed(), everyElement().trimmed()}) {
        for (qsizetype length = 0; length < whole.size(); length += 37) {
            const QString fault = readError(whole.left(length));
            EXPECT_TRUE(
                QRegularExpression("^Some.RPT: line [0-9]+, column [0-9]+: .+\\.$").match(fault).hasMatch())
                << length << ": " << qPrintable(fault);
        }
    }
}

TEST(ReportDefinition, DamageNeverDoesMoreThanRaise) {
    EXPECT_GT(layOutDamaged(chargeSlip(), 3000), 100); // the damage reached the layout, too
    EXPECT_EQ(readError(everyElement()), "");
    EXPECT_GT(layOutDamaged(everyElement(), 3000), 100);
}
