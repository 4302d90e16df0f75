#pragma once

#include "charges/PackageScreen.h"

namespace charges {

/// The section's own packages. What counts as un-used is what the amount's column says, whatever was marked.
class frmNucCharges : public PackageScreen {
    Q_OBJECT

  public:
    explicit frmNucCharges(QWidget* parent = nullptr);

  protected:
    ado::Recordset readPackages() const override;
    ado::Recordset readItems(const QString& code) const override;
};

} // namespace charges
