#include "platform/report/output/PagePainter.h"

#include "platform/report/layout/FontMeasure.h"

#include <QPainter>

namespace report {
namespace {

QRectF rectOf(const Frame& frame) {
    return QRectF(frame.x.hundredths, frame.y.hundredths, frame.width.hundredths, frame.height.hundredths);
}

class Painting {
  public:
    explicit Painting(QPainter& painter) : m_painter(painter) {}

    void operator()(const Rectangle& box) {
        m_painter.setPen(box.thickness > Length() ? QPen(box.colour, box.thickness.hundredths)
                                                  : QPen(Qt::NoPen));
        m_painter.setBrush(box.fill.isValid() ? QBrush(box.fill) : QBrush(Qt::NoBrush));
        if (box.radius > Length())
            m_painter.drawRoundedRect(rectOf(box.frame), box.radius.hundredths, box.radius.hundredths);
        else
            m_painter.drawRect(rectOf(box.frame));
    }

    void operator()(const Stroke& stroke) {
        m_painter.setPen(QPen(stroke.colour, stroke.thickness.hundredths, Qt::SolidLine, Qt::FlatCap));
        m_painter.drawLine(QPointF(stroke.x1.hundredths, stroke.y1.hundredths),
                           QPointF(stroke.x2.hundredths, stroke.y2.hundredths));
    }

    void operator()(const Picture& picture) { m_painter.drawImage(rectOf(picture.frame), picture.image); }

    void operator()(const TextRun& run) {
        if (m_face != run.face) {
            m_painter.setFont(fontOf(run.face));
            m_face = run.face;
        }
        m_painter.setPen(run.colour);
        if (run.degrees == 0) {
            drawLine(run, QPointF(run.frame.x.hundredths, run.baseline.hundredths));
            return;
        }
        const QRectF frame = rectOf(run.frame);
        m_painter.save();
        m_painter.translate(frame.center());
        m_painter.rotate(run.degrees);
        drawLine(run, QPointF(-frame.width() / 2, run.baseline.hundredths - frame.center().y()));
        m_painter.restore();
    }

  private:
    void drawLine(const TextRun& run, QPointF baseline) {
        if (run.rightToLeft || needsShaping(run.text))
            ShapedLine(run.text, m_painter.font(), run.rightToLeft).draw(m_painter, baseline);
        else
            m_painter.drawText(baseline, run.text);
    }

    QPainter& m_painter;
    Face m_face{QString(), Length{-1}, false, false}; // none yet
};

} // namespace

void paintPage(QPainter& painter, const Page& page) {
    painter.save();
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing |
                           QPainter::SmoothPixmapTransform);
    Painting painting(painter);
    for (const Item& item : page.items)
        std::visit(painting, item);
    painter.restore();
}

} // namespace report
