#include "platform/report/viewer/PageView.h"

#include "platform/controls/look/Look.h"
#include "platform/report/output/PagePainter.h"

#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QScrollBar>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>

namespace report {
namespace {

constexpr int margin = 16; // around the pages and between them

QColor withAlpha(QColor colour, int alpha) {
    colour.setAlpha(alpha);
    return colour;
}

} // namespace

PageView::PageView(QWidget* parent) : QAbstractScrollArea(parent) {
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::StrongFocus);
    setAccessibleName(tr("Report pages"));
    // Always there: a bar that comes and goes would change the width that the pages are fitted to.
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    viewport()->setCursor(Qt::IBeamCursor);
}

void PageView::setDocument(std::shared_ptr<const PageDocument> document, const QString& sentence) {
    m_document = std::move(document);
    m_sentence = sentence;
    m_hits.clear();
    m_currentHit = -1;
    m_selectionPage = -1;
    m_toldPage = -1;
    horizontalScrollBar()->setValue(0);
    verticalScrollBar()->setValue(0);
    applyFit();
    updateBars();
    tellPage();
    viewport()->update();
}

double PageView::scale() const {
    return m_zoom * logicalDpiX() / 2540.0;
}

QSize PageView::pageSize() const {
    if (!m_document)
        return {};
    return QSize(int(std::lround(m_document->pageWidth().hundredths * scale())),
                 int(std::lround(m_document->pageHeight().hundredths * scale())));
}

QRect PageView::pageRect(int page) const {
    const QSize size = pageSize();
    const int x = std::max(margin, (viewport()->width() - size.width()) / 2) - horizontalScrollBar()->value();
    const int y = margin + page * (size.height() + margin) - verticalScrollBar()->value();
    return QRect(QPoint(x, y), size);
}

QRectF PageView::onScreen(int page, const Frame& frame) const {
    const QPointF corner = pageRect(page).topLeft();
    return QRectF(corner.x() + frame.x.hundredths * scale(), corner.y() + frame.y.hundredths * scale(),
                  frame.width.hundredths * scale(), frame.height.hundredths * scale());
}

/// The page at a height of the viewport; a gap belongs to the page above it.
int PageView::pageAt(int y) const {
    if (!m_document || m_document->pageCount() == 0)
        return -1;
    const int step = pageSize().height() + margin;
    return std::clamp((y + verticalScrollBar()->value() - margin) / std::max(step, 1), 0,
                      m_document->pageCount() - 1);
}

int PageView::currentPage() const {
    return pageAt(viewport()->height() / 2);
}

void PageView::setFit(Fit fit) {
    m_fit = fit;
    applyFit();
    Q_EMIT zoomChanged();
}

void PageView::setZoom(double zoom) {
    m_fit = Fit::None;
    applyZoom(zoom);
    Q_EMIT zoomChanged();
}

void PageView::applyFit() {
    if (!m_document || m_fit == Fit::None)
        return;
    const double perZoom = logicalDpiX() / 2540.0;
    double zoom = (viewport()->width() - 2 * margin) / (m_document->pageWidth().hundredths * perZoom);
    if (m_fit == Fit::Page)
        zoom = std::min(zoom, (viewport()->height() - 2 * margin) /
                                  (m_document->pageHeight().hundredths * perZoom));
    applyZoom(zoom);
}

/// Keeps the place in the middle of the view where it is.
void PageView::applyZoom(double zoom) {
    const double middle = viewport()->height() / 2.0;
    const double before = pageSize().height() + margin;
    const double place = before > 0 ? (verticalScrollBar()->value() + middle - margin) / before : 0.0;
    const bool atTop = verticalScrollBar()->value() == 0;
    m_zoom = std::clamp(zoom, leastZoom, mostZoom);
    updateBars();
    const double after = pageSize().height() + margin;
    verticalScrollBar()->setValue(atTop ? 0 : int(std::lround(place * after + margin - middle)));
    viewport()->update();
    tellPage();
}

void PageView::updateBars() {
    const QSize size = pageSize();
    const int pages = m_document ? m_document->pageCount() : 0;
    const int height = margin + pages * (size.height() + margin);
    const int width = size.width() + 2 * margin;
    verticalScrollBar()->setRange(0, std::max(0, height - viewport()->height()));
    verticalScrollBar()->setPageStep(viewport()->height());
    verticalScrollBar()->setSingleStep(fontMetrics().height() * 2);
    horizontalScrollBar()->setRange(0, std::max(0, width - viewport()->width()));
    horizontalScrollBar()->setPageStep(viewport()->width());
    horizontalScrollBar()->setSingleStep(fontMetrics().height() * 2);
}

void PageView::tellPage() {
    const int page = currentPage();
    if (page == m_toldPage)
        return;
    m_toldPage = page;
    Q_EMIT pageChanged(page);
}

void PageView::goTo(int page, Length y) {
    if (!m_document || m_document->pageCount() == 0)
        return;
    page = std::clamp(page, 0, m_document->pageCount() - 1);
    const int top = page * (pageSize().height() + margin);
    const int inside = int(y.hundredths * scale());
    verticalScrollBar()->setValue(top + std::max(0, inside - margin));
}

void PageView::reveal(const Hit& hit) {
    const QRectF place = onScreen(hit.page, hit.frame);
    const QRect seen = viewport()->rect().adjusted(0, margin, 0, -margin);
    if (place.top() < seen.top() || place.bottom() > seen.bottom())
        verticalScrollBar()->setValue(verticalScrollBar()->value() + int(place.center().y()) -
                                      seen.center().y());
    if (place.left() < seen.left() || place.right() > seen.right())
        horizontalScrollBar()->setValue(horizontalScrollBar()->value() + int(place.center().x()) -
                                        seen.center().x());
}

void PageView::setHits(std::vector<Hit> hits) {
    m_hits = std::move(hits);
    m_currentHit = -1;
    viewport()->update();
}

void PageView::extendHits(std::vector<Hit> hits) {
    m_hits = std::move(hits);
    viewport()->update();
}

void PageView::takeGrowth() {
    updateBars();
    tellPage();
    viewport()->update();
}

void PageView::setCurrentHit(int index) {
    m_currentHit = index;
    if (index >= 0 && std::size_t(index) < m_hits.size())
        reveal(m_hits[std::size_t(index)]);
    viewport()->update();
}

void PageView::paintEvent(QPaintEvent* event) {
    QPainter painter(viewport());
    painter.fillRect(event->rect(), controls::look::page);
    if (!m_document || m_document->pageCount() == 0) {
        painter.setPen(controls::look::muted);
        painter.drawText(viewport()->rect(), Qt::AlignCenter, m_sentence);
        return;
    }
    const int last = pageAt(event->rect().bottom());
    for (int page = pageAt(event->rect().top() - margin); page >= 0 && page <= last; ++page)
        paintSheet(painter, page);
}

void PageView::paintSheet(QPainter& painter, int page) const {
    const QRect sheet = pageRect(page);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    for (int reach = 7; reach > 0; --reach) { // a soft shadow, stronger towards the sheet and below it
        painter.setBrush(withAlpha(controls::look::ink, 4));
        painter.drawRoundedRect(sheet.adjusted(-reach, 3 - reach, reach, reach + 2), reach, reach);
    }
    painter.restore();
    painter.fillRect(sheet, controls::look::card);
    painter.save();
    painter.setClipRect(sheet);
    painter.translate(sheet.topLeft());
    painter.scale(scale(), scale());
    paintPage(painter, *m_document->page(page));
    painter.restore();
    painter.save();
    paintMarks(painter, page);
    painter.restore();
    painter.setPen(controls::look::line);
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(sheet.adjusted(0, 0, -1, -1));
}

void PageView::paintMarks(QPainter& painter, int page) const {
    const auto onPage = [](const Hit& hit, int number) { return hit.page < number; };
    painter.setCompositionMode(QPainter::CompositionMode_Multiply); // the text stays as dark as it was
    auto hit = std::lower_bound(m_hits.begin(), m_hits.end(), page, onPage);
    for (; hit != m_hits.end() && hit->page == page; ++hit) {
        const bool current = hit - m_hits.begin() == m_currentHit;
        const QRectF place = onScreen(page, hit->frame).adjusted(-1, 0, 1, 0);
        painter.fillRect(place, current ? QColor(0xFB, 0xC1, 0x6B) : QColor(0xFF, 0xF0, 0xA8));
        if (current) {
            painter.setPen(controls::look::warn);
            painter.drawRect(place);
        }
    }
    if (page != m_selectionPage)
        return;
    for (const Item& item : selectedRuns().items)
        painter.fillRect(onScreen(page, std::get<TextRun>(item).frame),
                         withAlpha(controls::look::accent, 60));
}

/// The runs that the selection's rectangle touches.
Page PageView::selectedRuns() const {
    Page selected;
    if (!m_document || m_selectionPage < 0)
        return selected;
    const QRectF area = QRectF(m_selectionFrom, m_selectionTo).normalized();
    const std::shared_ptr<const Page> page = m_document->page(m_selectionPage);
    for (const Item& item : page->items) {
        const TextRun* run = std::get_if<TextRun>(&item);
        if (!run || run->degrees != 0)
            continue;
        const Frame& frame = run->frame;
        if (area.intersects(QRectF(frame.x.hundredths, frame.y.hundredths, frame.width.hundredths,
                                   frame.height.hundredths)))
            selected.items.push_back(item);
    }
    return selected;
}

QString PageView::textToCopy() const {
    const QString selected = textOf(selectedRuns());
    if (!selected.isEmpty())
        return selected;
    return currentPage() < 0 ? QString() : textOf(*m_document->page(currentPage()));
}

void PageView::resizeEvent(QResizeEvent* event) {
    QAbstractScrollArea::resizeEvent(event);
    const double before = m_zoom;
    applyFit();
    updateBars();
    tellPage();
    if (m_zoom != before)
        Q_EMIT zoomChanged();
}

void PageView::scrollContentsBy(int dx, int dy) {
    viewport()->scroll(dx, dy);
    tellPage();
}

void PageView::wheelEvent(QWheelEvent* event) {
    if (!(event->modifiers() & Qt::ControlModifier)) {
        QAbstractScrollArea::wheelEvent(event);
        return;
    }
    setZoom(m_zoom * std::pow(1.1, event->angleDelta().y() / 120.0));
    event->accept();
}

void PageView::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton || !m_document)
        return;
    const int page = pageAt(int(event->position().y()));
    m_selectionPage = page;
    m_selectionFrom = m_selectionTo = (event->position() - pageRect(page).topLeft()) / scale();
    viewport()->update();
}

void PageView::mouseMoveEvent(QMouseEvent* event) {
    if (!(event->buttons() & Qt::LeftButton) || m_selectionPage < 0)
        return;
    m_selectionTo = (event->position() - pageRect(m_selectionPage).topLeft()) / scale();
    viewport()->update();
}

} // namespace report
