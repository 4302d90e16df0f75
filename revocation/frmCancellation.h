#pragma once

#include "platform/controls/list/ListScreen.h"

#include <memory>

namespace Ui {
class frmCancellation;
}

namespace revocation {

/// Reverses one charged line: marks its request revoked, takes the charge back in the way that fits the
/// account, and tells the wards' files. frmCancelRequest fills it and shows it. What is taken back twice is
/// decided on the server (docs/server.md, "Taking back").
class frmCancellation : public controls::ListScreen {
    Q_OBJECT

  public:
    explicit frmCancellation(QWidget* parent = nullptr);
    ~frmCancellation() override;

    // Set before the screen is loaded, IdNum at least.
    QString ExamCode; ///< the current row's code takes its place
    QString RevenueID;
    QString RequestNum;
    QString NurseRequestNum; ///< of the ward, else the section's own
    QString IdNum;           ///< admission number

    /// Empties the lines and lays their columns out. Loads the screen.
    void Init_Grid();
    /// Behind Init_Grid(): code, description, quantity, amount.
    void showLines(const ado::Recordset& lines);
    void setText(const char* control, const QString& text);

    /// The command came to its end, also where the account was closed: the search is to be reopened.
    bool hasEnded() const { return m_hasEnded; }
    /// Whether the stay may be charged. Nothing here asks.
    bool CanPost(const QString& id) const;

  protected:
    void Form_Load() override;
    /// Leads to the command, from a line: nothing is cancelled by Enter or a double click alone.
    void rowTaken() override;

  private:
    bool CanCancelBilled() const;
    void cmdSave_Click();
    void cancelLine();
    void revokePaid();
    void revokeWithoutAdmission();
    void revokeAdmitted();
    /// Says that the line was taken back.
    void tellRevoked();
    void stampRequest(ado::Recordset& rows);
    void stampWards();
    QString readServerDate() const;
    void reverseCharge(const QString& date, const QString& section);
    void takeBackStock(const QString& date);
    QString text(const char* control) const;
    QString line(int column) const;

    std::unique_ptr<Ui::frmCancellation> m_ui;
    QString m_patientType; ///< "I" or "O"
    bool m_hasEnded = false;
    bool m_isRevoked = false; ///< the line was taken back: a closed account is left as it is
};

} // namespace revocation
