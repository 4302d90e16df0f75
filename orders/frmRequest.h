#pragma once

#include "entry/RequestScreen.h"

namespace orders {

/// Request entry for one admitted patient; the lines of out-patients and walk-ins are shown, and not posted.
class frmRequest : public entry::RequestScreen {
    Q_OBJECT

  public:
    explicit frmRequest(QWidget* parent = nullptr);
};

} // namespace orders
