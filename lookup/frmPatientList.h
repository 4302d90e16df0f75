#pragma once

#include "lookup/PatientPicker.h"

#include <functional>

namespace lookup {

/// Registers a walk-in patient in a window of its own; true when there is a new one. None: there is no way
/// to.
using AddWalkIn = std::function<bool()>;
AddWalkIn& addWalkIn();

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
