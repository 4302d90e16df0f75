#pragma once

#include "platform/agent/Figure.h"

#include <QWidget>

namespace agent {

/// The window on the desktop: the figure, and beside it what it says. It lies over every other window, takes
/// no focus, and can be clicked over a modal one; what is not painted lets the click through.
class Balloon : public QWidget {
    Q_OBJECT

  public:
    explicit Balloon(const Figure& figure);

    /// The figure's upper left corner on the desktop; kept on the screen.
    void setPlace(QPoint point);
    QPoint place() const { return m_place; }
    void setFrame(const Frame* frame);
    /// "" for no balloon.
    void setSentence(const QString& sentence);
    const QString& sentence() const { return m_sentence; }
    /// Where "Be quiet" can be clicked, and where the figure stands; in this window.
    QRect quietArea() const;
    QRect figureArea() const;
    /// Where something is painted.
    QRegion painted() const;

  Q_SIGNALS:
    void Click();
    void Quiet();

  protected:
    void paintEvent(QPaintEvent* event) override;
    void showEvent(QShowEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void lay();
    void cutOut();
    void draw(QPainter& painter, const QRect& part) const;
    void drawBalloon(QPainter& painter) const;
    QRect textArea() const;

    const Figure& m_figure;
    const Frame* m_frame;
    QString m_sentence;
    QPoint m_place;
    QSize m_figureSize;
    QRect m_balloon;
    bool m_balloonAtRight = true;
};

} // namespace agent
