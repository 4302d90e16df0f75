#include "lookup/frmPatientList.h"

#include "lookup/frmAddWalkIn.h"

namespace lookup {

namespace {

constexpr PatientPickerVariant variant = {.screen = "frmPatientList",
                                          .title = "Patient List",
                                          .subtitle = "Choose one patient of the list",
                                          .canAddPatient = true,
                                          .list = {.format = patientFormat,
                                                   .widths = patientWidths,
                                                   .one = "patient",
                                                   .many = "patients",
                                                   .emptyText = "No patient answers to this text.",
                                                   .most = 200}};

} // namespace

frmPatientList::frmPatientList(QWidget* parent) : PatientPicker(variant, parent) {}

ado::Statement frmPatientList::patientQuery(const QString& current, const QString& searchBy,
                                            const QString& text) const {
    return PatientQuery.with({{"#1", current}, {"#2", searchBy}, {"#3", text}});
}

bool frmPatientList::addPatient() {
    frmAddWalkIn& entry = controls::SharedScreen<frmAddWalkIn>::fresh();
    entry.ShowModal();
    return entry.NewEntry;
}

} // namespace lookup
