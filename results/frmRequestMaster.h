#pragma once

#include "results/ResultPicker.h"

namespace results {

/// The door to new results: patients with requests that wait for one.
class frmRequestMaster : public ResultPicker {
    Q_OBJECT

  public:
    explicit frmRequestMaster(QWidget* parent = nullptr);
};

} // namespace results
