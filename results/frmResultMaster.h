#pragma once

#include "results/ResultPicker.h"

namespace results {

/// The door to saved results, to view and edit (mode "R") or to revoke them.
class frmResultMaster : public ResultPicker {
    Q_OBJECT

  public:
    explicit frmResultMaster(QWidget* parent = nullptr);
};

} // namespace results
