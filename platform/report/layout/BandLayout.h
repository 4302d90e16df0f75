#pragma once

#include "platform/report/evaluation/Evaluator.h"
#include "platform/report/layout/FontMeasure.h"
#include "platform/report/layout/Page.h"

#include <map>
#include <memory>

namespace report {

/// A band with its values filled in; items count from the band's top left corner.
struct LaidBand {
    Length height;
    std::vector<Item> items;
};

class LinkedStrips;

/// Moves an item on its page.
void moveItem(Item& item, Length dx, Length dy);

/// Fills bands in: the one place that knows how a field becomes lines of text.
class BandLayout {
  public:
    BandLayout(std::shared_ptr<const ReportData> data, Evaluator& evaluator);
    ~BandLayout();

    LaidBand lay(const Band& band, const Standpoint& standpoint);
    bool isVisible(const Band& band, const Standpoint& standpoint);
    /// The watermark's run in the middle of the paper; nothing when it has no text.
    std::optional<TextRun> watermark(const Standpoint& standpoint);

  private:
    struct Placed {
        const Element* element;
        QStringList lines;
        base::Value value;
        Length shift; ///< how far what grows above moved it down
        Length growth;
        bool rightToLeft = false;
        QColor tint;       ///< of a text or line, or a box's fill
        LaidBand inside{}; ///< what a chart or a sub-report is made of
    };

    Placed place(const Element& element, const Standpoint& standpoint);
    void spread(std::vector<Placed>& placed) const;
    void addField(const Placed& placed, std::vector<Item>& items);
    void addShape(const Placed& placed, Length stretch, std::vector<Item>& items) const;
    LaidBand chart(const Element& element);
    const LaidBand& subReport(const Element& insert, const Standpoint& standpoint);
    /// Invalid when the element keeps its own.
    QColor tintOf(const Element& element, const Standpoint& standpoint);
    Length stretchOf(const Placed& shape, const std::vector<Placed>& all) const;
    Face faceOf(int style) const;

    std::shared_ptr<const ReportData> m_data;
    Evaluator& m_evaluator;
    FontMeasures m_measures;
    std::map<int, LaidBand> m_subReports; ///< laid out once; they know nothing of pages
    std::unique_ptr<LinkedStrips> m_linked;
};

} // namespace report
