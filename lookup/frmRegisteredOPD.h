#pragma once

#include "lookup/PatientPicker.h"

namespace lookup {

/// The stays of registered out-patients, by a statement of its own.
class frmRegisteredOPD : public PatientPicker {
    Q_OBJECT

  public:
    explicit frmRegisteredOPD(QWidget* parent = nullptr);

  protected:
    ado::Statement patientQuery(const QString& current, const QString& searchBy,
                                const QString& text) const override;

  private:
    static ado::Statement spOutpatient(const QString& current, const QString& searchBy, const QString& text);
};

} // namespace lookup
