#pragma once

#include <QString>

#include <optional>

namespace controls {
class FlexGrid;
}

namespace session {

/// What a caller gives a request screen: the screen's public properties.
struct RequestEntry {
    QString PatIdNum = {};
    QString PatientType = {}; ///< "I", "O" or "W"
    bool CashBasis = false;   ///< the lines are those of a paid assessment
    bool NurseCommnunication = false;
    QString CashOrNum = {}; ///< official receipt
    double CashPrice = 0;   ///< of the receipt; kept only
    QString NursingRemarks = {};
    QString RequestingNurse = {}; ///< employee id
    QString PatientClass = {};
    QString Classification = {};
};

/// The same for a patient without a bed: the type is fixed.
struct OutRequestEntry {
    QString IdNumber = {};
    bool CashBasis = false;
    QString CashOrNum = {};
    double CashPrice = 0;
    bool NurseCommnunication = false;
    bool chargeEntry = false;
    QString NursingRemarks = {};
    QString RequestingNurse = {};
    bool ShowListPatient = false; ///< kept only
};

/// The grids of a request screen that a package screen fills. Not owned.
struct PackageHandOver {
    controls::FlexGrid* SourceGrid = nullptr;
    controls::FlexGrid* PackageGrid = nullptr;
};

/// What a list of patients came back with.
struct ChosenPatient {
    bool Valid = false;
    QString IdNum = {}; ///< "" when none was chosen
};

/// The out-patient that a search came back with; texts as the search object has them.
struct FoundOutPatient {
    QString IdNumber = {};
    QString BillingDate = {}; ///< "" while the bill is open
    QString InvoiceNumber = {};
    bool LateCharges = false;
};

/// A slip that is wanted once more.
struct SlipAgain {
    QString number = {};
    QString patient = {};     ///< "LAST, FIRST MIDDLE"
    QString IdNum = {};       ///< "" for a walk-in
    QString PatientType = {}; ///< "I" or "O"; of a charge only
};

/// The screens that the menu opens by themselves.
enum class MenuScreen {
    Assessment,
    ListPatient,
    CSEntry,
    PHEntry,
    RequestMaster,
    ResultMaster,
    CancelRequest,
    RePrint,
    AssessmentStatus,
    PatientLedger,
    WalkInMaster,
    BuildFile,
    NuclearChargesBuildFile,
    ReceivableSearch,
    Verification,
    UserRights,
    ListCashComm,
    NurseCommunication,
    PrepaidRequest,
    ListDeposits
};

/// The one way from a folder of screens to another: the program implements it, a test records it. Every call
/// returns when its screen has closed, with what that gave back; a screen that does not exist yet does
/// nothing.
class Screens {
  public:
    virtual ~Screens() = default;
    virtual void showMainMenu() = 0;
    /// The menu is gone and no user follows.
    virtual void endProgram() = 0;

    virtual void open(MenuScreen screen, const QString& formMode = {}) = 0;
    virtual void openRequest(const RequestEntry& entry) = 0;
    virtual void openOutRequest(const OutRequestEntry& entry) = 0;
    virtual void openNuclearPackage(const PackageHandOver& grids) = 0;
    virtual void openNucCharges(const PackageHandOver& grids) = 0;
    /// The save commands of every request screen come on; one that was not there yet is made for it.
    virtual void enableRequestSaves() = 0;
    virtual ChosenPatient openDischargeNotice() = 0;
    virtual void openClearPatient(const QString& IdNum) = 0;
    /// The screen that prints charges again, with the patient found and the slip's row the current one.
    virtual void openRePrint(const SlipAgain& slip) = 0;
    /// The same for an assessment.
    virtual void openAssessmentStatus(const SlipAgain& slip) = 0;

    /// Looks for a registered out-patient, with a list where that is needed; nothing when none was chosen.
    virtual std::optional<FoundOutPatient> findOutPatient(const QString& searchText) = 0;
};

/// Raises 91 while none is installed.
Screens& screens();
/// Not owned; null for none.
void setScreens(Screens* screens);

} // namespace session
