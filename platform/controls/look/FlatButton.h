#pragma once

#include <QAbstractButton>

namespace controls {

/// A card that is pressed: icon, caption, and a muted second line. Space and Enter press it; focus is
/// visible.
class FlatButton : public QAbstractButton {
    Q_OBJECT

  public:
    enum class Shape {
        Tile, ///< icon above the caption, centred (the main buttons); checked shows it as the active one
        Row   ///< icon at the left, caption and second line beside it (the sub-menu)
    };

    explicit FlatButton(QWidget* parent = nullptr);
    void setShape(Shape shape);
    Shape shape() const { return m_shape; }
    void setSecondLine(const QString& text);
    QSize sizeHint() const override;

  protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;

  private:
    void paintTile(QPainter& painter);
    void paintRow(QPainter& painter);

    Shape m_shape = Shape::Row;
    QString m_secondLine;
};

} // namespace controls
