#include "charges/frmNucCharges.h"

#include "session/Session.h"

namespace charges {

using ado::sql;
using session::Read;

namespace {

constexpr PackageVariant variant{.screen = "frmNucCharges",
                                 .title = "NUCLEAR CHARGES",
                                 .descriptionInfo = 2,
                                 .unusedColumn = itemAmount,
                                 .marksPicked = true,
                                 .hasLegend = false};

} // namespace

frmNucCharges::frmNucCharges(QWidget* parent) : PackageScreen(variant, parent) {}

ado::Recordset frmNucCharges::readPackages() const {
    return Read(sql("Nuclear..sp_Get_nucPackages 11"));
}

ado::Recordset frmNucCharges::readItems(const QString& code) const {
    return Read(sql("Nuclear..sp_Get_nucPackage_Items '{}'", code));
}

} // namespace charges
