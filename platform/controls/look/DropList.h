#pragma once

#include <QComboBox>

namespace controls {

/// A list that drops down and looks as every other, but draws its arrow by itself. For an arrow of the sheet,
/// an image, the tool kit looks through its folders of plug-ins, once in a program: too long for the log-on.
class DropList : public QComboBox {
  public:
    using QComboBox::QComboBox;

  protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace controls
