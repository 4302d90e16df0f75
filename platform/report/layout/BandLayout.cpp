#include "platform/report/layout/BandLayout.h"

#include "platform/base/Conversion.h"
#include "platform/base/Error.h"
#include "platform/base/Format.h"
#include "platform/report/definition/ReportError.h"
#include "platform/report/evaluation/Formulas.h"
#include "platform/report/layout/ChartLayout.h"
#include "platform/report/layout/LinkedStrips.h"
#include "platform/report/layout/StripLayout.h"

#include <algorithm>

namespace report {
namespace {

// Of a watermark that the definition knows nothing of: large, and light enough to read through.
const Length markSize = Length::fromPoints(54);
const QColor markColour(0xE2, 0xE7, 0xEB);

// A field holds a paragraph, not a book: beyond this a damaged row would lay out for minutes.
constexpr qsizetype longestText = 200000;

QString shownText(const Element& element, const base::Value& value) {
    QString text = element.format.isEmpty() ? base::textOf(value) : base::Format(value, element.format);
    text.truncate(longestText);
    for (QChar& c : text) {
        if (c.category() == QChar::Other_Control && c != u'\n' && c != u'\r' && c != u'\t')
            c = u' ';
    }
    return text;
}

/// A number is never cut: half an amount is a wrong amount.
bool isNumber(const base::Value& value) {
    return value.asDouble() || value.asInteger() || (value.asText() && base::IsNumeric(value));
}

} // namespace

void moveItem(Item& item, Length dx, Length dy) {
    if (Stroke* stroke = std::get_if<Stroke>(&item)) {
        stroke->x1 += dx;
        stroke->x2 += dx;
        stroke->y1 += dy;
        stroke->y2 += dy;
        return;
    }
    std::visit(
        [&](auto& one) {
            if constexpr (requires { one.frame; }) {
                one.frame.x += dx;
                one.frame.y += dy;
            }
            if constexpr (requires { one.baseline; })
                one.baseline += dy;
        },
        item);
}

BandLayout::BandLayout(std::shared_ptr<const ReportData> data, Evaluator& evaluator)
    : m_data(std::move(data)), m_evaluator(evaluator), m_linked(std::make_unique<LinkedStrips>(m_data)) {}

BandLayout::~BandLayout() = default;

Face BandLayout::faceOf(int style) const {
    const FontStyle& font = m_data->definition->styles.at(std::size_t(style));
    return {font.family, Length::fromPoints(font.points), font.bold, font.italic};
}

bool BandLayout::isVisible(const Band& band, const Standpoint& standpoint) {
    // The first pass does not know the number of pages; a band must come out the same in both.
    Standpoint first = standpoint;
    first.pageCount = 0;
    return m_evaluator.isVisible(band.visible, first);
}

LaidBand BandLayout::lay(const Band& band, const Standpoint& standpoint) {
    std::vector<Placed> placed;
    for (const Element& element : band.elements) {
        if (m_evaluator.isVisible(element.visible, standpoint))
            placed.push_back(place(element, standpoint));
    }
    spread(placed);
    LaidBand laid;
    laid.height = band.height;
    for (const Placed& one : placed) {
        laid.height = std::max(laid.height, band.height + one.shift + one.growth);
        if (one.element->kind == Element::Kind::Field)
            addField(one, laid.items);
        else
            addShape(one, stretchOf(one, placed), laid.items);
    }
    return laid;
}

BandLayout::Placed BandLayout::place(const Element& element, const Standpoint& standpoint) {
    Placed placed;
    placed.element = &element;
    if (element.kind == Element::Kind::Chart || element.kind == Element::Kind::SubReport) {
        placed.inside =
            element.kind == Element::Kind::Chart ? chart(element) : subReport(element, standpoint);
        placed.growth = std::max(Length(), placed.inside.height - element.frame.height);
        return placed;
    }
    placed.tint = tintOf(element, standpoint);
    if (element.kind != Element::Kind::Field)
        return placed;
    const base::Value value = m_evaluator.shownValue(element.value, standpoint);
    const QString text = shownText(element, value);
    placed.value = value;
    placed.rightToLeft = needsShaping(text) && text.isRightToLeft();
    if (!element.wrap) {
        QString line = text;
        line.replace(u'\n', u' ').replace(u'\r', u' ').replace(u'\t', u' ');
        placed.lines << line;
        return placed;
    }
    const FontMeasure& measure = m_measures.of(faceOf(element.style));
    placed.lines = measure.wrapped(text, element.frame.width);
    if (element.grow && !dependsOnPage(element.value, m_data->formulas)) {
        const Length needed{measure.lineHeight().hundredths * qint32(placed.lines.size())};
        placed.growth = std::max(Length(), needed - element.frame.height);
    }
    return placed;
}

QColor BandLayout::tintOf(const Element& element, const Standpoint& standpoint) {
    if (!element.tint)
        return {};
    const QString name = base::Trim(base::textOf(m_evaluator.value(*element.tint, standpoint)));
    if (name.isEmpty())
        return {};
    const QColor colour(name);
    if (!name.startsWith(u'#') || !colour.isValid())
        throw base::RunTimeError(
            errorDamaged, QStringLiteral("The report tints with \"%1\", which is no colour.").arg(name));
    return colour;
}

LaidBand BandLayout::chart(const Element& element) {
    const FontStyle& style = m_data->definition->styles.at(std::size_t(element.style));
    return layChart(element, m_evaluator, m_measures.of(faceOf(element.style)), style.colour);
}

const LaidBand& BandLayout::subReport(const Element& insert, const Standpoint& standpoint) {
    const int index = insert.index;
    if (!insert.links.empty()) {
        Standpoint anyPage = standpoint; // the rows must be the same whichever page asks for them
        anyPage.pageNumber = anyPage.pageCount = 0;
        LinkedValues values;
        for (const Link& link : insert.links)
            values.emplace_back(link.parameter, m_evaluator.value(link.value, anyPage));
        return m_linked->strip(index, values);
    }
    const auto kept = m_subReports.find(index);
    if (kept != m_subReports.end())
        return kept->second;
    return m_subReports[index] = layStrip(m_data->subReports.at(std::size_t(index)));
}

/// What stands below something that has grown moves down as far as that reaches.
void BandLayout::spread(std::vector<Placed>& placed) const {
    if (std::none_of(placed.begin(), placed.end(), [](const Placed& one) { return one.growth > Length(); }))
        return;
    std::vector<Placed*> byTop;
    for (Placed& one : placed)
        byTop.push_back(&one);
    std::stable_sort(byTop.begin(), byTop.end(), [](const Placed* a, const Placed* b) {
        return a->element->frame.y < b->element->frame.y;
    });
    for (std::size_t i = 0; i < byTop.size(); ++i) {
        for (std::size_t above = 0; above < i; ++above) {
            const Placed& other = *byTop[above];
            if (other.growth > Length() && other.element->frame.bottom() <= byTop[i]->element->frame.y)
                byTop[i]->shift = std::max(byTop[i]->shift, other.shift + other.growth);
        }
    }
}

/// A box around a field, or a rule beside it, reaches as far as the field has grown.
Length BandLayout::stretchOf(const Placed& shape, const std::vector<Placed>& all) const {
    const Frame& frame = shape.element->frame;
    Length stretch;
    for (const Placed& other : all) {
        const Frame& inner = other.element->frame;
        if (other.growth > Length() && frame.y <= inner.y && frame.bottom() >= inner.bottom())
            stretch = std::max(stretch, other.shift + other.growth - shape.shift);
    }
    return stretch;
}

void BandLayout::addField(const Placed& placed, std::vector<Item>& items) {
    const Element& element = *placed.element;
    const FontStyle& style = m_data->definition->styles.at(std::size_t(element.style));
    const FontMeasure& measure = m_measures.of(faceOf(element.style));
    const Length lineHeight = measure.lineHeight();
    const Length room = element.frame.height + placed.growth;
    const qsizetype fitting = element.wrap ? std::max(room.hundredths / lineHeight.hundredths, 1) : 1;
    const qsizetype count = std::min<qsizetype>(placed.lines.size(), fitting);
    for (qsizetype i = 0; i < count; ++i) {
        QString text = placed.lines[i];
        if (i + 1 == count && count < placed.lines.size())
            text += QStringLiteral("\u2026");
        if (measure.width(text) > element.frame.width && !isNumber(placed.value))
            text = measure.elided(text, element.frame.width);
        if (base::Trim(text).isEmpty())
            continue;
        TextRun run;
        const Length width = measure.width(text);
        const Length spare = element.frame.width - width;
        run.frame = {element.frame.x, element.frame.y + placed.shift, width, lineHeight};
        run.frame.y.hundredths += qint32(i) * lineHeight.hundredths;
        if (element.alignment == Alignment::Right)
            run.frame.x += spare;
        else if (element.alignment == Alignment::Centre)
            run.frame.x.hundredths += spare.hundredths / 2;
        run.baseline = run.frame.y + measure.ascent();
        run.text = text;
        run.rightToLeft = placed.rightToLeft;
        run.face = measure.face();
        run.colour = placed.tint.isValid() ? placed.tint : style.colour;
        items.emplace_back(std::move(run));
    }
}

void BandLayout::addShape(const Placed& placed, Length stretch, std::vector<Item>& items) const {
    const Element& element = *placed.element;
    Frame frame = element.frame;
    frame.y += placed.shift;
    switch (element.kind) {
    case Element::Kind::Line:
        if (frame.height > Length())
            frame.height += stretch;
        items.emplace_back(Stroke{frame.x, frame.y, frame.right(), frame.bottom(), element.thickness,
                                  placed.tint.isValid() ? placed.tint : element.colour});
        break;
    case Element::Kind::Box:
        frame.height += stretch;
        items.emplace_back(Rectangle{frame, element.thickness, element.radius, element.colour,
                                     placed.tint.isValid() ? placed.tint : element.fill});
        break;
    case Element::Kind::Chart:
    case Element::Kind::SubReport:
        for (Item item : placed.inside.items) {
            moveItem(item, frame.x, frame.y);
            items.push_back(std::move(item));
        }
        break;
    default:
        items.emplace_back(Picture{frame, element.picture});
        break;
    }
}

std::optional<TextRun> BandLayout::watermark(const Standpoint& standpoint) {
    const ReportDefinition& definition = *m_data->definition;
    QString text = m_data->watermark;
    if (text.isEmpty() && definition.watermark)
        text = base::textOf(m_evaluator.value(definition.watermark->value, standpoint));
    text = base::Trim(text).left(200);
    if (text.isEmpty())
        return std::nullopt;
    const bool own = definition.watermark.has_value();
    const FontMeasure& measure =
        m_measures.of(own ? faceOf(definition.watermark->style) : Face{{}, markSize, true, false});
    TextRun run;
    run.frame.width = measure.width(text);
    run.frame.height = measure.lineHeight();
    run.frame.x.hundredths = (definition.paperWidth - run.frame.width).hundredths / 2;
    run.frame.y.hundredths = (definition.paperHeight - run.frame.height).hundredths / 2;
    run.baseline = run.frame.y + measure.ascent();
    run.text = text;
    run.rightToLeft = needsShaping(text) && text.isRightToLeft();
    run.face = measure.face();
    run.colour = own ? definition.styles[std::size_t(definition.watermark->style)].colour : markColour;
    run.degrees = own ? definition.watermark->degrees : Watermark().degrees;
    return run;
}

} // namespace report
