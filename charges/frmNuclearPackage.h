#pragma once

#include "charges/PackageScreen.h"

namespace charges {

/// The packages that the hospital admits patients with.
class frmNuclearPackage : public PackageScreen {
    Q_OBJECT

  public:
    explicit frmNuclearPackage(QWidget* parent = nullptr);

  protected:
    ado::Recordset readPackages() const override;
    ado::Recordset readItems(const QString& code) const override;
};

} // namespace charges
