#pragma once

#include <QWidget>

namespace menu {

/// The place of one child whose text changes all the time: it fills the room, and nothing around it is laid
/// out anew for it.
class StillRoom : public QWidget {
    Q_OBJECT

  public:
    explicit StillRoom(QWidget* parent = nullptr) : QWidget(parent) {
        setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    }
    QSize sizeHint() const override;

  protected:
    void resizeEvent(QResizeEvent* event) override;
};

} // namespace menu
