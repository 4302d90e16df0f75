#include "platform/report/DefinitionAttributes.h"

#include <QBuffer>
#include <QImageReader>

namespace report {
namespace {

constexpr int largestPicture = 4000; // pixels a side
const QColor defaultRule(0x9A, 0xA6, 0xB0);

} // namespace

Band DefinitionReader::readBand(Attributes& attributes) {
    Band band;
    band.height = attributes.length("height");
    band.visible = attributes.expression("visible");
    band.newPageBefore = attributes.yes("newPageBefore");
    band.atBottom = attributes.yes("atBottom");
    attributes.finish();
    readChildren([&](const QString& name, Attributes& own) {
        static const QStringList known{QStringLiteral("text"), QStringLiteral("field"),
                                       QStringLiteral("line"), QStringLiteral("box"),
                                       QStringLiteral("picture")};
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
    if (name == QLatin1StringView("text") || name == QLatin1StringView("field")) {
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
    if (element.kind == Element::Kind::Box) {
        element.fill = attributes.colour("fill", {});
        element.radius = attributes.length("radius", {});
    }
    attributes.finish();
    endElement();
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
