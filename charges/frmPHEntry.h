#pragma once

#include "charges/ItemRequestScreen.h"

namespace charges {

/// Requests of medicines from the pharmacy.
class frmPHEntry : public ItemRequestScreen {
    Q_OBJECT

  public:
    explicit frmPHEntry(QWidget* parent = nullptr);
};

} // namespace charges
