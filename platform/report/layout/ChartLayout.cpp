#include "platform/report/layout/ChartLayout.h"

#include "platform/base/Conversion.h"
#include "platform/base/Format.h"

#include <algorithm>
#include <cmath>

namespace report {
namespace {

const QColor gridColour(0xD9, 0xE0, 0xE6);
const QColor axisColour(0x5C, 0x6B, 0x77);
const Length gap = Length::fromMm(1.5);
const Length thin = Length::fromMm(0.1);
const Length axis = Length::fromMm(0.2);
const Length highestBar = Length::fromMm(9);

struct Bar {
    QString label;
    double amount = 0;
};

Length part(Length whole, double share) {
    return {qint32(std::lround(whole.hundredths * share))};
}

/// 1, 2 or 5 times a power of ten, so that about five steps make the range.
double stepFor(double range) {
    const double rough = range / 5.0;
    const double power = std::pow(10.0, std::floor(std::log10(rough)));
    for (const double factor : {1.0, 2.0, 5.0}) {
        if (rough <= factor * power)
            return factor * power;
    }
    return 10.0 * power;
}

std::vector<Bar> barsOf(const Element& element, Evaluator& evaluator) {
    std::vector<Bar> bars;
    for (qsizetype row = 0; row < evaluator.rowCount(); ++row) {
        if (element.index >= 0 && evaluator.firstGroupBegun(row) > element.index)
            continue;
        const Standpoint standpoint{row, element.index, 0, 0};
        const base::Value amount = evaluator.value(element.value, standpoint);
        bars.push_back({base::Trim(base::textOf(evaluator.value(element.label, standpoint))),
                        amount.isNull() ? 0.0 : base::CDbl(amount)});
    }
    const std::size_t most = std::size_t(element.most);
    if (bars.size() > most) {
        Bar rest{QStringLiteral("Others"), 0};
        for (std::size_t i = most; i < bars.size(); ++i)
            rest.amount += bars[i].amount;
        bars.resize(most);
        bars.push_back(rest);
    }
    return bars;
}

class Chart {
  public:
    Chart(const Element& element, const FontMeasure& measure, const QColor& ink, std::vector<Bar> bars)
        : m_element(element), m_measure(measure), m_ink(ink), m_bars(std::move(bars)) {
        for (const Bar& bar : m_bars) {
            m_least = std::min(m_least, bar.amount);
            m_most = std::max(m_most, bar.amount);
        }
        if (m_most == m_least)
            m_most = m_least + 1.0;
        m_step = stepFor(m_most - m_least);
        m_least = std::floor(m_least / m_step) * m_step;
        m_most = std::ceil(m_most / m_step) * m_step;
    }

    LaidBand draw() {
        const Frame& frame = m_element.frame;
        Length labels;
        Length amounts;
        for (const Bar& bar : m_bars) {
            labels = std::max(labels, m_measure.width(bar.label));
            amounts = std::max(amounts, m_measure.width(shown(bar.amount)));
        }
        labels = std::min(labels, part(frame.width, 0.4));
        m_plot.x = labels + gap;
        m_plot.width = frame.width - m_plot.x - amounts - gap;
        const Length room = frame.height - m_measure.lineHeight() - gap;
        const auto count = qint32(std::max<std::size_t>(m_bars.size(), 1));
        const Length slot{std::min(room.hundredths / count, highestBar.hundredths)};
        m_plot.height = {slot.hundredths * count};
        drawScale();
        for (std::size_t i = 0; i < m_bars.size(); ++i)
            drawBar(m_bars[i], Length{slot.hundredths * qint32(i)}, slot, labels);
        const Length zero = placeOf(0.0);
        m_laid.items.emplace_back(Stroke{zero, {}, zero, m_plot.bottom(), axis, axisColour});
        m_laid.height = frame.height;
        return std::move(m_laid);
    }

  private:
    QString shown(double amount) const {
        if (!m_element.format.isEmpty())
            return base::Format(amount, m_element.format);
        const bool whole = amount == std::round(amount);
        return base::Format(amount, whole ? QStringLiteral("#,##0") : QStringLiteral("#,##0.00"));
    }

    Length placeOf(double amount) const {
        return m_plot.x + part(m_plot.width, (amount - m_least) / (m_most - m_least));
    }

    void text(const QString& line, Length x, Length top, const QColor& colour) {
        TextRun run;
        run.frame = {x, top, m_measure.width(line), m_measure.lineHeight()};
        run.baseline = top + m_measure.ascent();
        run.text = line;
        run.face = m_measure.face();
        run.colour = colour;
        m_laid.items.emplace_back(std::move(run));
    }

    void drawScale() {
        const int steps = int(std::lround((m_most - m_least) / m_step));
        Length taken = Length::fromMm(-1000);
        for (int i = 0; i <= steps; ++i) {
            const double amount = m_least + i * m_step;
            const Length x = placeOf(amount);
            m_laid.items.emplace_back(Stroke{x, {}, x, m_plot.bottom(), thin, gridColour});
            const QString line = shown(amount);
            const Length width = m_measure.width(line);
            const Length left = x - Length{width.hundredths / 2};
            if (left < taken || left + width > m_element.frame.width)
                continue;
            text(line, left, m_plot.bottom() + Length{gap.hundredths / 2}, axisColour);
            taken = left + width + gap;
        }
    }

    void drawBar(const Bar& bar, Length top, Length slot, Length labels) {
        const Length zero = placeOf(0.0);
        const Length end = placeOf(bar.amount);
        const Length margin = part(slot, 0.15);
        const Frame frame{std::min(zero, end), top + margin, std::max(zero, end) - std::min(zero, end),
                          slot - margin - margin};
        if (frame.width > Length())
            m_laid.items.emplace_back(Rectangle{frame, {}, {}, m_element.colour, m_element.colour});
        const Length line = top + Length{(slot - m_measure.lineHeight()).hundredths / 2};
        const QString label = m_measure.elided(bar.label, labels);
        text(label, labels - m_measure.width(label), line, m_ink);
        text(shown(bar.amount), std::max(zero, end) + Length{gap.hundredths / 2}, line, m_ink);
    }

    const Element& m_element;
    const FontMeasure& m_measure;
    const QColor m_ink;
    const std::vector<Bar> m_bars;
    Frame m_plot;
    double m_least = 0, m_most = 0, m_step = 1;
    LaidBand m_laid;
};

} // namespace

LaidBand layChart(const Element& element, Evaluator& evaluator, const FontMeasure& measure,
                  const QColor& ink) {
    return Chart(element, measure, ink, barsOf(element, evaluator)).draw();
}

} // namespace report
