#pragma once

#include <QLabel>

namespace controls {

/// A label that lays its plain line out once where the tool kit's does three times, each time that a screen
/// opens. Its sizes are a QLabel's; one with rich text, a picture, a frame or broken lines is one in all.
class Caption : public QLabel {
  public:
    using QLabel::QLabel;
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

  private:
    bool isPlainLine() const;
};

} // namespace controls
