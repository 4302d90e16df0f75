#pragma once

#include <QLineEdit>

namespace controls {

/// A text box that is mostly looked at: while it is read-only, a text wider than the box ends in an ellipsis,
/// and stands whole in the tool tip.
class ShownText : public QLineEdit {
    Q_OBJECT

  public:
    using QLineEdit::QLineEdit;

    /// Whether the text is shown shortened at present.
    bool isShortened() const;

  protected:
    void paintEvent(QPaintEvent* event) override;
    bool event(QEvent* event) override;

  private:
    QRect textRoom() const;
};

} // namespace controls
