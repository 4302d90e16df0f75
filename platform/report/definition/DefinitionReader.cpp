#include "platform/report/definition/DefinitionReader.h"

#include "platform/base/Error.h"
#include "platform/report/definition/DefinitionAttributes.h"
#include "platform/report/definition/ReportError.h"
#include "platform/report/evaluation/Formulas.h"

namespace report {
namespace {

constexpr qsizetype largestFile = 4 * 1024 * 1024;
constexpr int deepest = 12;
constexpr int mostElements = 5000;
constexpr int mostFormulas = 300;
constexpr int largestFormula = 10000; // parts, written out

} // namespace

DefinitionReader::DefinitionReader(const QByteArray& xml, QString file)
    : m_source(xml), m_file(std::move(file)), m_definition(std::make_shared<ReportDefinition>()) {}

std::shared_ptr<const ReportDefinition> DefinitionReader::read() {
    if (m_source.size() > largestFile)
        failAt(1, 1, QStringLiteral("the file is larger than 4 MB"));
    collectNames();
    m_xml.addData(m_source);
    m_definition->styles.emplace_back();
    readRoot();
    finishFormulas();
    finishInserts();
    checkPage();
    return m_definition;
}

void DefinitionReader::failAt(qint64 line, qint64 column, const QString& reason) const {
    throw base::RunTimeError(
        errorDamaged,
        QStringLiteral("%1: line %2, column %3: %4.").arg(m_file).arg(line).arg(column).arg(reason));
}

void DefinitionReader::fail(const QString& reason) const {
    failAt(m_xml.lineNumber(), m_xml.columnNumber() + 1, reason);
}

/// The names come from a pass of their own; it meets every fault of the XML itself, and cycles of nesting,
/// first.
void DefinitionReader::collectNames() {
    m_xml.addData(m_source);
    int depth = 0;
    bool inside = false;
    while (!m_xml.atEnd()) {
        const QXmlStreamReader::TokenType token = m_xml.readNext();
        if (token == QXmlStreamReader::DTD)
            fail(QStringLiteral("a document type is not allowed"));
        if (token == QXmlStreamReader::EntityReference)
            fail(QStringLiteral("an entity of its own is not allowed"));
        if (token == QXmlStreamReader::EndElement) {
            --depth;
            inside = inside && depth > 1;
        }
        if (token != QXmlStreamReader::StartElement)
            continue;
        if (++depth > deepest)
            fail(QStringLiteral("the elements are nested too deeply"));
        if (++m_elements > mostElements)
            fail(QStringLiteral("there are too many elements"));
        const QStringView element = m_xml.name();
        collectName(inside ? m_subNames.back() : m_names, element);
        if (depth == 2 && element == QLatin1StringView("subReport")) {
            inside = true;
            m_subNames.emplace_back();
        }
    }
    if (m_xml.hasError())
        fail(m_xml.errorString());
    checkNames(m_names);
    for (const Names& names : m_subNames)
        checkNames(names);
    m_xml.clear();
}

void DefinitionReader::collectName(Names& names, QStringView element) {
    struct Kind {
        const char* element;
        QStringList Names::*list;
    };
    static constexpr Kind kinds[] = {{"parameter", &Names::parameters},
                                     {"table", &Names::tables},
                                     {"formula", &Names::formulas},
                                     {"group", &Names::groups},
                                     {"subReport", &Names::subReports}};
    for (const Kind& kind : kinds) {
        if (element != QLatin1StringView(kind.element))
            continue;
        const QString name = m_xml.attributes().value(QStringLiteral("name")).toString();
        if (name.trimmed().isEmpty())
            fail(QStringLiteral("attribute name is missing"));
        (names.*kind.list) << name;
    }
}

void DefinitionReader::checkNames(const Names& names) const {
    if (names.formulas.size() > mostFormulas)
        fail(QStringLiteral("there are too many formulas"));
    for (const QStringList& list :
         {names.parameters, names.tables, names.formulas, names.groups, names.subReports}) {
        for (qsizetype i = 0; i < list.size(); ++i) {
            if (indexOfName(list, list[i]) != i)
                fail(QStringLiteral("the name \"%1\" is given twice").arg(list[i]));
        }
    }
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
    static const QStringList ofPages{QStringLiteral("page"), QStringLiteral("watermark"),
                                     QStringLiteral("pageHeader"), QStringLiteral("pageFooter"),
                                     QStringLiteral("subReport")};
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

void DefinitionReader::finishFormulas() {
    const auto& formulas = m_definition->formulaExpressions;
    if (const int cyclic = cyclicFormula(formulas); cyclic >= 0) {
        const Place& place = m_formulaPlaces[std::size_t(cyclic)];
        failAt(place.line, place.column,
               QStringLiteral("formula %1 leads back to itself")
                   .arg(m_definition->formulas[std::size_t(cyclic)].name));
    }
    for (std::size_t i = 0; i < formulas.size(); ++i) {
        if (expandedSize(formulas[i], formulas, largestFormula) > largestFormula)
            failAt(m_formulaPlaces[i].line, m_formulaPlaces[i].column,
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
