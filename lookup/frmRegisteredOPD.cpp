#include "lookup/frmRegisteredOPD.h"

namespace lookup {

namespace {

constexpr PatientPickerVariant variant = {
    .screen = "frmRegisteredOPD",
    .title = "Registered OPD",
    .subtitle = "Registered out-patients",
    .canAddPatient = false,
    .list = {.format = patientFormat,
             .widths = patientWidths,
             .one = "patient",
             .many = "patients",
             .emptyText = "No registered out-patient answers to this text.",
             .most = 200}};

} // namespace

frmRegisteredOPD::frmRegisteredOPD(QWidget* parent) : PatientPicker(variant, parent) {}

ado::Statement frmRegisteredOPD::patientQuery(const QString& current, const QString& searchBy,
                                              const QString& text) const {
    return spOutpatient(current, searchBy, text);
}

ado::Statement frmRegisteredOPD::spOutpatient(const QString& current, const QString& searchBy,
                                              const QString& text) {
    return ado::sql("spGlobal_RegisteredOPD '{}','{}', '{}'", current, searchBy, text);
}

} // namespace lookup
