#pragma once

#include "entry/RequestScreen.h"

class QGroupBox;

namespace controls {
class FlexGrid;
}

namespace charges {

/// Entry of late charges. frmReceivableSearch writes its header behind load() and sets no property; so the
/// save says that it succeeded, and posts nothing.
class frmReceivableEntry : public entry::RequestScreen {
    Q_OBJECT

  public:
    explicit frmReceivableEntry(QWidget* parent = nullptr);

  private:
    void addCommands();
    void addPreviousCharges();
    void ShowPreviousCharges();

    QGroupBox* Frame3 = nullptr;
    controls::FlexGrid* grdPrevious = nullptr;
    bool ListShown = false;
};

} // namespace charges
