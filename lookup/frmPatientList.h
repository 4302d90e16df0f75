#pragma once

#include "lookup/PatientPicker.h"

namespace lookup {

/// The patients that answer to a query which the caller gives.
class frmPatientList : public PatientPicker {
    Q_OBJECT

  public:
    explicit frmPatientList(QWidget* parent = nullptr);

  protected:
    ado::Statement patientQuery(const QString& current, const QString& searchBy,
                                const QString& text) const override;
    bool addPatient() override;
};

} // namespace lookup
