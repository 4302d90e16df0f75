#pragma once

#include "platform/report/viewer/TextFind.h"

#include <QAbstractScrollArea>

namespace report {

/// The pages under each other on the calm ground; paints the visible ones only. Zoom 1 is natural size on a
/// 96 dpi screen.
class PageView : public QAbstractScrollArea {
    Q_OBJECT

  public:
    enum class Fit { Width, Page, None };
    static constexpr double leastZoom = 0.25;
    static constexpr double mostZoom = 4.0;

    explicit PageView(QWidget* parent = nullptr);

    /// Null, or without pages so far: nothing but `sentence` is shown.
    void setDocument(std::shared_ptr<const PageDocument> document, const QString& sentence = {});
    const PageDocument* document() const { return m_document.get(); }

    /// Pages were added, or can be made better now.
    void takeGrowth();
    std::shared_ptr<const PageDocument> sharedDocument() const { return m_document; }

    Fit fit() const { return m_fit; }
    double zoom() const { return m_zoom; }
    void setFit(Fit fit);
    /// Held between 25 and 400 %.
    void setZoom(double zoom);

    /// The page that fills the most of the view, from 0; -1 without pages.
    int currentPage() const;
    /// Brings the place to the top of the view.
    void goTo(int page, Length y = {});
    /// Scrolls only if the place is out of sight.
    void reveal(const Hit& hit);
    void setHits(std::vector<Hit> hits);
    /// The same hits and more behind them.
    void extendHits(std::vector<Hit> hits);
    void setCurrentHit(int index);

    /// Text of the selection, else of the current page.
    QString textToCopy() const;

  Q_SIGNALS:
    void pageChanged(int page);
    void zoomChanged();

  protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;
    void wheelEvent(QWheelEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;

  private:
    double scale() const; ///< pixels for 1/100 mm
    QSize pageSize() const;
    QRect pageRect(int page) const; ///< in the viewport
    QRectF onScreen(int page, const Frame& frame) const;
    int pageAt(int y) const;
    void applyFit();
    void applyZoom(double zoom);
    void updateBars();
    void tellPage();
    void paintSheet(QPainter& painter, int page) const;
    void paintMarks(QPainter& painter, int page) const;
    Page selectedRuns() const;

    std::shared_ptr<const PageDocument> m_document;
    QString m_sentence;
    Fit m_fit = Fit::Width;
    double m_zoom = 1.0;
    int m_toldPage = -1;
    std::vector<Hit> m_hits;
    int m_currentHit = -1;
    int m_selectionPage = -1;
    QPointF m_selectionFrom, m_selectionTo; ///< in 1/100 mm on the page
};

} // namespace report
