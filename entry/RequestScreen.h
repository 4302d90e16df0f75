#pragma once

#include "entry/RequestGrid.h"
#include "entry/RequestPosting.h"
#include "platform/controls/screen/Screen.h"
#include "session/Screens.h"

#include <memory>
#include <span>

class QPushButton;

namespace Ui {
class RequestScreen;
}

namespace entry {

/// A label of the line that tells the department codes.
struct LegendLabel {
    const char* name;
    const char* text;
};

/// Where the request screens differ, besides the statements that they override.
struct RequestVariant {
    const char* screen; ///< name of the screen
    const char* caption;
    const char* title; ///< of the header
    std::span<const LegendLabel> legend;
    RequestGridVariant grid;
    PostingVariant posting;
    bool boxTellsSlip;  ///< the save's box tells the slip's number
    bool hasNucCharges; ///< there are cmdNucCharges and Check1
};

/// The department codes in one caption.
inline constexpr LegendLabel houseLegend[] = {{"Label4",
                                               "Dept. Codes:  NU - Nuclear Procedures;                       "
                                               "         MD/FN - Professional Fee or Readers "
                                               "Fee                           UR - Nuclear Supply"}};

/// A screen that builds lines to charge for one patient, posts them and prints their slip. The caller sets
/// `entry`, then shows it; the caller, not the screen, refuses closed and cash-basis accounts. What a leaf
/// does not override is as for an admitted patient.
class RequestScreen : public controls::Screen {
    Q_OBJECT

  public:
    ~RequestScreen() override;

    session::RequestEntry entry;
    /// Sets up the hidden grid of an assessment's lines.
    void Initialize_TableInput();
    /// Finds the code of the hidden grid's current line and prices it. false: it was not found, or stands
    /// there already, which was said.
    bool LookUpInputLine();
    /// Writes a field of the header by its given name ("txtRoom"), behind load(); raises 461 when there is
    /// none.
    void setText(const char* name, const QString& text);
    /// cmdSave and cmdSavePrint; opening puts them out of use.
    void enableSaves(bool enabled);

  protected:
    RequestScreen(const RequestVariant& variant, QWidget* parent);

    void Form_Load() override;
    void Form_QueryUnload(bool& cancel) override;

    /// The patient's fields, as the screen opens.
    virtual void fillHeader();
    /// The lines of a ward's request.
    virtual ado::Recordset readNurseLines() const;

    /// The price of an exam in the hidden grid.
    virtual double inputRate(const session::NuclearExamRecord& exam) const;
    /// Puts a command of the leaf's own behind the others on the left.
    void addCommand(QPushButton* command);
    /// Puts a part of the leaf's own between the lines and the help.
    void addBelowLines(QWidget* part);

    /// From the row of an out-patient search.
    void fillOutPatient(ado::Recordset stay);

  private:
    void connectControls();
    void layOutPackageItems();
    void showLegend();
    void fillAdmitted();
    void fillWalkIn();
    void showMaster(const QString& lastName, const QString& firstName, const QString& middleName);
    QString patientName() const;
    void readRoomClass();
    void loadNurseLines();
    void loadCashLines();
    void showBand();

    void cmdSave_Click();
    void cmdSavePrint_Click();
    void cmdDoctor_Click(bool withMiddleName);
    void txtDoctor_Enter();
    void cmdPackage_Click();
    void cmdNucCharges_Click();
    void chkPackage_Click();
    void cboPackage_Click();
    session::PackageHandOver packageGrids();

    void SaveRequest();
    void PrintChargeSlip();

    const RequestVariant& m_variant;
    std::unique_ptr<Ui::RequestScreen> m_ui;
    RequestGrid* m_grid = nullptr;
    QString DoctorCode;
    QString AccountName;
    QString RoomClass;
    QString ChargeSlip;
    double GrossAmount = 0;
    bool IsDirty = false;
    bool IsSaved = false;
    bool m_isSaving = false;
};

} // namespace entry
