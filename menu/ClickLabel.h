#pragma once

#include <QLabel>

namespace menu {

/// A text that can be clicked, or pressed with Enter or Space while it has the focus.
class ClickLabel : public QLabel {
    Q_OBJECT

  public:
    explicit ClickLabel(QWidget* parent = nullptr);

  Q_SIGNALS:
    void Click();

  protected:
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
};

} // namespace menu
