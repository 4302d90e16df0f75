#include "platform/report/definition/DefinitionReader.h"

#include "platform/report/definition/DefinitionAttributes.h"
#include "platform/report/definition/DefinitionNames.h"
#include "platform/report/definition/ReportError.h"
#include "platform/report/evaluation/Formulas.h"

#include <QBuffer>
#include <QImageReader>

#include <algorithm>

namespace report {
namespace {

constexpr qsizetype largestFile = 4 * 1024 * 1024;
constexpr int largestFormula = 10000; // parts, written out
constexpr int largestPicture = 4000;  // pixels a side
const QColor defaultRule(0x9A, 0xA6, 0xB0);
const QColor defaultBar(0x2A, 0x7F, 0x93);
const Length leastChart = Length::fromMm(20);

QSet<int> linkedParameters(const Element& insert) {
    QSet<int> linked;
    for (const Link& link : insert.links)
        linked.insert(link.parameter);
    return linked;
}

} // namespace

DefinitionReader::DefinitionReader(const QByteArray& xml, QString file)
    : m_source(xml), m_file(std::move(file)), m_definition(std::make_shared<ReportDefinition>()) {}

std::shared_ptr<const ReportDefinition> DefinitionReader::read() {
    if (m_source.size() > largestFile)
        failAt(m_file, 1, 1, QStringLiteral("the file is larger than 4 MB"));
    DefinitionNames names = namesOf(m_source, m_file);
    m_names = std::move(names.report);
    m_subNames = std::move(names.subReports);
    m_xml.addData(m_source);
    m_definition->styles.emplace_back();
    readRoot();
    finishFormulas();
    finishInserts();
    checkPage();
    return m_definition;
}

void DefinitionReader::fail(const QString& reason) const {
    failAt(m_file, m_xml.lineNumber(), m_xml.columnNumber() + 1, reason);
}

void DefinitionReader::readChildren(const Children& child) {
    for (;;) {
        switch (m_xml.readNext()) {
        case QXmlStreamReader::StartElement: {
            Attributes attributes(*this);
            const QString name = m_xml.name().toString();
            if (!child(name, attributes))
                fail(QStringLiteral("element %1 is not known here").arg(name));
            break;
        }
        case QXmlStreamReader::EndElement:
        case QXmlStreamReader::EndDocument:
        case QXmlStreamReader::Invalid:
            return;
        case QXmlStreamReader::Characters:
            if (!m_xml.isWhitespace())
                fail(QStringLiteral("text is not expected here"));
            break;
        default:
            break;
        }
    }
}

void DefinitionReader::endElement() {
    readChildren([](const QString&, Attributes&) { return false; });
}

QString DefinitionReader::readText() {
    const QString text = m_xml.readElementText(QXmlStreamReader::ErrorOnUnexpectedElement);
    if (m_xml.hasError())
        fail(QStringLiteral("only text is expected here"));
    return text;
}

void DefinitionReader::readRoot() {
    if (!m_xml.readNextStartElement() || m_xml.name() != QLatin1StringView("report"))
        fail(QStringLiteral("this is no report definition"));
    Attributes attributes(*this);
    m_definition->title = attributes.text("title", {});
    if (attributes.text("version") != QLatin1StringView("1"))
        fail(QStringLiteral("this version of definitions is not known"));
    attributes.finish();
    readChildren([this](const QString& name, Attributes& own) { return readSection(name, own); });
}

bool DefinitionReader::readSection(const QString& name, Attributes& attributes) {
    static const QStringList ofPages{QStringLiteral("page"),       QStringLiteral("watermark"),
                                     QStringLiteral("pageHeader"), QStringLiteral("pageFooter"),
                                     QStringLiteral("subReport"),  QStringLiteral("sheet")};
    if (m_inSubReport && ofPages.contains(name))
        return false;
    struct Reader {
        const char* name;
        void (DefinitionReader::*read)(Attributes&);
    };
    static constexpr Reader readers[] = {
        {"page", &DefinitionReader::readPage},           {"style", &DefinitionReader::readStyle},
        {"parameter", &DefinitionReader::readParameter}, {"table", &DefinitionReader::readTable},
        {"formula", &DefinitionReader::readFormula},     {"group", &DefinitionReader::readGroup},
        {"watermark", &DefinitionReader::readWatermark}, {"subReport", &DefinitionReader::readSubReport},
        {"sheet", &DefinitionReader::readSheet},
    };
    for (const Reader& reader : readers) {
        if (name == QLatin1StringView(reader.name)) {
            (this->*reader.read)(attributes);
            return true;
        }
    }
    struct Section {
        const char* name;
        std::vector<Band> ReportDefinition::*bands;
    };
    static constexpr Section sections[] = {
        {"reportHeader", &ReportDefinition::reportHeaders},
        {"pageHeader", &ReportDefinition::pageHeaders},
        {"details", &ReportDefinition::details},
        {"pageFooter", &ReportDefinition::pageFooters},
        {"reportFooter", &ReportDefinition::reportFooters},
    };
    for (const Section& section : sections) {
        if (name == QLatin1StringView(section.name)) {
            ((*m_definition).*section.bands).push_back(readBand(attributes));
            return true;
        }
    }
    return false;
}

void DefinitionReader::readPage(Attributes& attributes) {
    ReportDefinition& d = *m_definition;
    d.paperWidth = attributes.length("width");
    d.paperHeight = attributes.length("height");
    d.left = attributes.length("left");
    d.top = attributes.length("top");
    d.right = attributes.length("right");
    d.bottom = attributes.length("bottom");
    d.columns = int(attributes.number("columns", 1, 1, 12));
    d.gutter = attributes.length("gutter", {});
    attributes.finish();
    endElement();
}

void DefinitionReader::readStyle(Attributes& attributes) {
    FontStyle style;
    style.name = attributes.text("name");
    style.family = attributes.text("font", {});
    style.points = attributes.points("size", style.points);
    style.bold = attributes.yes("bold");
    style.italic = attributes.yes("italic");
    style.colour = attributes.colour("colour", style.colour);
    attributes.finish();
    m_definition->styles.push_back(style);
    endElement();
}

void DefinitionReader::readParameter(Attributes& attributes) {
    ParameterDefinition parameter;
    parameter.name = attributes.text("name");
    parameter.type = ParameterType(
        attributes.word("type", {QStringLiteral("text"), QStringLiteral("number"), QStringLiteral("date")}));
    parameter.prompt = attributes.text("prompt", parameter.name);
    attributes.finish();
    m_definition->parameters.push_back(parameter);
    endElement();
}

void DefinitionReader::readTable(Attributes& attributes) {
    TableDefinition table;
    table.name = attributes.text("name");
    table.location = attributes.text("location");
    if (!isLocation(table.location))
        fail(QStringLiteral("location is no table's name (such as DATABASE..table)"));
    attributes.finish();
    table.query = readText().simplified();
    if (table.query.isEmpty())
        table.query = QStringLiteral("SELECT * FROM {table}");
    m_definition->tables.push_back(table);
}

void DefinitionReader::readFormula(Attributes& attributes) {
    FormulaDefinition formula;
    formula.name = attributes.text("name");
    attributes.finish();
    m_formulaPlaces.push_back({m_xml.lineNumber(), m_xml.columnNumber() + 1});
    formula.text = readText().trimmed();
    m_definition->formulaExpressions.push_back(expression(formula.text));
    m_definition->formulas.push_back(formula);
}

void DefinitionReader::readGroup(Attributes& attributes) {
    Group group;
    group.name = attributes.text("name");
    group.by = expression(attributes.text("by"));
    group.label = attributes.expression("label");
    group.repeat = attributes.yes("repeat");
    group.newPage = attributes.yes("newPage");
    group.keepTogether = attributes.yes("keepTogether");
    attributes.finish();
    readChildren([&](const QString& name, Attributes& own) {
        if (name != QLatin1StringView("header") && name != QLatin1StringView("footer"))
            return false;
        auto& bands = name == QLatin1StringView("header") ? group.headers : group.footers;
        bands.push_back(readBand(own));
        return true;
    });
    m_definition->groups.push_back(std::move(group));
}

void DefinitionReader::readWatermark(Attributes& attributes) {
    Watermark watermark;
    watermark.value = expression(attributes.text("value"));
    watermark.style = styleIndex(attributes.text("style", {}));
    watermark.degrees = attributes.number("degrees", watermark.degrees, -180, 180);
    attributes.finish();
    m_definition->watermark = std::move(watermark);
    endElement();
}

Band DefinitionReader::readBand(Attributes& attributes) {
    Band band;
    band.height = attributes.length("height");
    band.visible = attributes.expression("visible");
    band.newPageBefore = attributes.yes("newPageBefore");
    band.atBottom = attributes.yes("atBottom");
    band.withRows = attributes.yes("withRows");
    band.tear = attributes.yes("tear");
    band.keepWithNext = attributes.yes("keepWithNext");
    attributes.finish();
    readChildren([&](const QString& name, Attributes& own) {
        static const QStringList known{QStringLiteral("text"),    QStringLiteral("field"),
                                       QStringLiteral("line"),    QStringLiteral("box"),
                                       QStringLiteral("picture"), QStringLiteral("chart"),
                                       QStringLiteral("insert")};
        if (!known.contains(name))
            return false;
        band.elements.push_back(readElement(name, own));
        return true;
    });
    return band;
}

Element DefinitionReader::readElement(const QString& name, Attributes& attributes) {
    Element element;
    element.frame = {attributes.length("x"), attributes.length("y"), attributes.length("width", {}),
                     attributes.length("height", {})};
    element.visible = attributes.expression("visible");
    if (name == QLatin1StringView("chart")) {
        readChart(element, attributes);
    } else if (name == QLatin1StringView("insert")) {
        readInsert(element, attributes);
    } else if (name == QLatin1StringView("text") || name == QLatin1StringView("field")) {
        readField(element, attributes, name == QLatin1StringView("text"));
    } else if (name == QLatin1StringView("picture")) {
        element.kind = Element::Kind::Picture;
        attributes.finish();
        element.picture = readPicture();
    } else {
        element.kind = name == QLatin1StringView("line") ? Element::Kind::Line : Element::Kind::Box;
        readShape(element, attributes);
    }
    return element;
}

void DefinitionReader::readField(Element& element, Attributes& attributes, bool literal) {
    if (element.frame.width.hundredths <= 0)
        fail(QStringLiteral("a text needs a width"));
    element.style = styleIndex(attributes.text("style", {}));
    element.alignment = Alignment(attributes.word(
        "align", {QStringLiteral("left"), QStringLiteral("centre"), QStringLiteral("right")}));
    element.grow = attributes.yes("grow");
    element.tint = attributes.expression("tint");
    element.wrap = attributes.yes("wrap") || element.grow;
    if (literal) {
        attributes.finish();
        element.value.constant = readText();
        return;
    }
    element.value = expression(attributes.text("value"));
    element.format = attributes.text("format", {});
    attributes.finish();
    endElement();
}

void DefinitionReader::readShape(Element& element, Attributes& attributes) {
    element.thickness = attributes.length("thickness", Length::fromMm(0.2));
    element.colour = attributes.colour("colour", defaultRule);
    element.tint = attributes.expression("tint");
    if (element.kind == Element::Kind::Box) {
        element.fill = attributes.colour("fill", {});
        element.radius = attributes.length("radius", {});
    }
    attributes.finish();
    endElement();
}

void DefinitionReader::readChart(Element& element, Attributes& attributes) {
    element.kind = Element::Kind::Chart;
    if (element.frame.width < leastChart || element.frame.height < leastChart)
        fail(QStringLiteral("a chart needs a width and a height of 20 mm"));
    element.label = expression(attributes.text("label"));
    element.value = expression(attributes.text("value"));
    if (attributes.has("group")) {
        const QString group = attributes.text("group");
        element.index = indexOfName(m_names.groups, group);
        if (element.index < 0)
            fail(QStringLiteral("there is no group \"%1\"").arg(group));
    }
    element.format = attributes.text("format", {});
    element.style = styleIndex(attributes.text("style", {}));
    element.colour = attributes.colour("colour", defaultBar);
    element.most = int(attributes.number("most", 20, 1, 100));
    attributes.finish();
    endElement();
}

void DefinitionReader::readInsert(Element& element, Attributes& attributes) {
    element.kind = Element::Kind::SubReport;
    const QString name = attributes.text("report");
    element.index = indexOfName(m_names.subReports, name);
    if (element.index < 0)
        fail(QStringLiteral("there is no sub-report \"%1\"").arg(name));
    attributes.finish();
    readChildren([&](const QString& child, Attributes& own) {
        if (child != QLatin1StringView("link"))
            return false;
        element.links.push_back(readLink(element, own));
        return true;
    });
    m_inserts[element.index].push_back(linkedParameters(element));
}

Link DefinitionReader::readLink(const Element& insert, Attributes& attributes) {
    const QString name = attributes.text("parameter");
    Link link;
    link.parameter = indexOfName(m_subNames[std::size_t(insert.index)].parameters, name);
    if (link.parameter < 0)
        fail(QStringLiteral("the sub-report has no parameter \"%1\"").arg(name));
    if (linkedParameters(insert).contains(link.parameter))
        fail(QStringLiteral("parameter \"%1\" is linked twice").arg(name));
    link.value = expression(attributes.text("value"));
    attributes.finish();
    endElement();
    return link;
}

/// What is linked wherever a sub-report is placed need not be asked for.
void DefinitionReader::finishInserts() {
    for (const auto& [index, inserts] : m_inserts) {
        SubReportDefinition& sub = m_definition->subReports[std::size_t(index)];
        sub.readAhead = false;
        QSet<int> everywhere = inserts.front();
        for (const QSet<int>& linked : inserts) {
            everywhere.intersect(linked);
            sub.readAhead = sub.readAhead || linked.isEmpty();
        }
        sub.linked.assign(everywhere.cbegin(), everywhere.cend());
        std::sort(sub.linked.begin(), sub.linked.end());
    }
}

/// The styles told so far hold inside, too.
void DefinitionReader::readSubReport(Attributes& attributes) {
    SubReportDefinition sub;
    sub.name = attributes.text("name");
    attributes.finish();
    auto inner = std::make_shared<ReportDefinition>();
    inner->styles = m_definition->styles;
    sub.definition = inner;
    std::vector<Place> places;
    const std::size_t index = m_definition->subReports.size();
    const auto change = [&] {
        m_inSubReport = !m_inSubReport;
        m_definition.swap(inner);
        m_formulaPlaces.swap(places);
        std::swap(m_names, m_subNames[index]);
    };
    change();
    readChildren([this](const QString& name, Attributes& own) { return readSection(name, own); });
    finishFormulas();
    change();
    m_definition->subReports.push_back(std::move(sub));
}

QImage DefinitionReader::readPicture() {
    QByteArray bytes = QByteArray::fromBase64(readText().toLatin1());
    QBuffer buffer(&bytes);
    QImageReader reader(&buffer, "png");
    const QSize size = reader.size();
    if (!size.isValid() || size.width() > largestPicture || size.height() > largestPicture)
        fail(QStringLiteral("this is no PNG picture, or too large a one"));
    const QImage picture = reader.read();
    if (picture.isNull())
        fail(QStringLiteral("this is no PNG picture"));
    return picture;
}

void DefinitionReader::finishFormulas() {
    const auto& formulas = m_definition->formulaExpressions;
    if (const int cyclic = cyclicFormula(formulas); cyclic >= 0) {
        const Place& place = m_formulaPlaces[std::size_t(cyclic)];
        failAt(m_file, place.line, place.column,
               QStringLiteral("formula %1 leads back to itself")
                   .arg(m_definition->formulas[std::size_t(cyclic)].name));
    }
    for (std::size_t i = 0; i < formulas.size(); ++i) {
        if (expandedSize(formulas[i], formulas, largestFormula) > largestFormula)
            failAt(m_file, m_formulaPlaces[i].line, m_formulaPlaces[i].column,
                   QStringLiteral("formula %1 is too large").arg(m_definition->formulas[i].name));
    }
}

void DefinitionReader::checkPage() const {
    const ReportDefinition& d = *m_definition;
    const Length least = Length::fromMm(10);
    if (d.paperWidth < d.left + d.right + least || d.columnWidth() < least ||
        d.paperHeight < d.top + d.bottom + least)
        fail(QStringLiteral("the page is missing or leaves no room inside its margins"));
}

Expression DefinitionReader::expression(const QString& text) const {
    try {
        return parseExpression(text, m_names);
    } catch (const ExpressionError& error) {
        fail(QStringLiteral("in \"%1\" at %2: %3").arg(text.left(80)).arg(error.at + 1).arg(error.reason));
    }
}

int DefinitionReader::styleIndex(const QString& name) const {
    const auto& styles = m_definition->styles;
    for (std::size_t i = 0; i < styles.size(); ++i) {
        if (styles[i].name == name)
            return int(i);
    }
    fail(QStringLiteral("there is no style \"%1\"").arg(name));
}

} // namespace report
