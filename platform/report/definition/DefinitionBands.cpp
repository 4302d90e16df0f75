#include "platform/report/definition/DefinitionAttributes.h"

#include <QBuffer>
#include <QImageReader>

#include <algorithm>

namespace report {
namespace {

constexpr int largestPicture = 4000; // pixels a side
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

} // namespace report
