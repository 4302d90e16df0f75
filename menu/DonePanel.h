#pragma once

#include "session/WorkDone.h"

#include <QWidget>

class QFrame;
class QLabel;

namespace controls {
class FlexGrid;
}

namespace menu {

/// The list of what its user has carried out since the log-on. It reads nothing from the server. It takes the
/// room that is left over, and stays out of sight where that is too little for a row.
class DonePanel : public QWidget {
    Q_OBJECT

  public:
    explicit DonePanel(QWidget* parent = nullptr);

    /// The focus to the list. False while it is out of sight.
    bool enterList();

  Q_SIGNALS:
    /// Enter or a double click on something that can be looked at once more.
    void again(const session::WorkDone& done);

  protected:
    void resizeEvent(QResizeEvent* event) override;

  private:
    void refresh();
    void takeRow();
    void showWhatEnterDoes();

    QFrame* m_card;
    QLabel* m_heading;
    QLabel* m_hint;
    controls::FlexGrid* m_list;
};

} // namespace menu
