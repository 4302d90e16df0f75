#include "charges/frmNuclearPackage.h"

#include "session/Session.h"

namespace charges {

using ado::sql;
using session::Read;

namespace {

constexpr PackageVariant variant{.screen = "frmNuclearPackage",
                                 .title = "NUCLEAR PACKAGE",
                                 .descriptionInfo = 1,
                                 .unusedColumn = itemStatus,
                                 .marksPicked = false,
                                 .hasLegend = true};

} // namespace

frmNuclearPackage::frmNuclearPackage(QWidget* parent) : PackageScreen(variant, parent) {}

ado::Recordset frmNuclearPackage::readPackages() const {
    return Read(sql("STATION..sp_Get_AdmPackages 11"));
}

ado::Recordset frmNuclearPackage::readItems(const QString& code) const {
    return Read(sql("STATION..sp_Get_ADMPackage_Items '{}'", code));
}

} // namespace charges
