#pragma once

#include "entry/RequestScreen.h"

namespace orders {

/// Request entry for a patient without a bed: an out-patient on account, or one who comes with a receipt.
class frmOutRequest : public entry::RequestScreen {
    Q_OBJECT

  public:
    explicit frmOutRequest(QWidget* parent = nullptr);

    /// What the caller gives, before the screen is shown.
    void take(const session::OutRequestEntry& given);
    const QString& IdNumber() const { return entry.PatIdNum; }
    /// True when the patient is on the account of an HMO, whose number goes to `AccountNum`; else that stays.
    bool Check_IfHMO(const QString& patientNumber, QString& AccountNum) const;
    bool ShowListPatient = false; ///< kept for callers; nothing here reads it

  protected:
    void fillHeader() override;
    ado::Recordset readNurseLines() const override;
    double inputRate(const session::NuclearExamRecord& exam) const override;
};

} // namespace orders
