#pragma once

#include <QLineEdit>

namespace controls {

/// A text box that is mostly looked at: while it is read-only, a text wider than the box ends in an ellipsis,
/// and stands whole in the tool tip.
class ShownText : public QLineEdit {
    Q_OBJECT
    /// A text that the box always has room for; "" is a short number of the hospital.
    Q_PROPERTY(QString roomFor READ roomFor WRITE setRoomFor)

  public:
    using QLineEdit::QLineEdit;

    QString roomFor() const { return m_roomFor; }
    void setRoomFor(const QString& text);

    /// Whether the text is shown shortened at present.
    bool isShortened() const;
    QSize minimumSizeHint() const override;

  protected:
    void paintEvent(QPaintEvent* event) override;
    bool event(QEvent* event) override;

  private:
    QRect textRoom() const;

    QString m_roomFor;
};

} // namespace controls
