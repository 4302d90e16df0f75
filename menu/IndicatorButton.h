#pragma once

#include <QColor>
#include <QToolButton>

namespace menu {

/// A button that blinks: its back colour is set by whoever makes it do so.
class IndicatorButton : public QToolButton {
    Q_OBJECT

  public:
    explicit IndicatorButton(QWidget* parent = nullptr) : QToolButton(parent) {}
    /// Invalid before the first one was set: none.
    QColor backColor() const { return m_backColor; }
    void setBackColor(const QColor& color);

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    QColor m_backColor;
};

} // namespace menu
