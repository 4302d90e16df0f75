#pragma once

#include "charges/ItemRequestScreen.h"

namespace charges {

/// Requests of supplies from central supply; patients under cash basis and closed accounts are refused.
class frmCSEntry : public ItemRequestScreen {
    Q_OBJECT

  public:
    explicit frmCSEntry(QWidget* parent = nullptr);

  protected:
    bool mayAskForInPatient(const QString& idNumber) override;
    bool mayAskForOutPatient(const QString& idNumber) override;
};

} // namespace charges
