#pragma once

#include <QString>

namespace session {

/// What a caller gives the in-patient request screen.
struct RequestEntry {
    QString PatIdNum = {};
    QString PatientType = {}; ///< "I", "O" or "W"
    bool CashBasis = false;
    bool NurseCommnunication = false;
    QString CashOrNum = {};
    double CashPrice = 0;
    QString NursingRemarks = {};
    QString RequestingNurse = {};
    QString PatientClass = {};
    QString Classification = {};
};

/// What a caller gives the out-patient request screen.
struct OutRequestEntry {
    QString IdNumber = {};
    bool CashBasis = false;
    QString CashOrNum = {};
    double CashPrice = 0;
    bool NurseCommnunication = false;
    bool chargeEntry = false;
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

/// A package screen works on the request screen's grids.
struct PackageHandOver;

/// Opens screens of other folders. The program implements it, a test records it. Every call returns when the
/// screen has closed; a screen that does not exist yet does nothing.
class Screens {
  public:
    virtual ~Screens() = default;
    virtual void showMainMenu() = 0;
    virtual void open(MenuScreen screen, const QString& formMode = {}) = 0;
    virtual void openRequest(const RequestEntry& entry) = 0;
    virtual void openOutRequest(const OutRequestEntry& entry) = 0;
    /// False when there is no such screen yet: the caller then leaves gInventoryEntry as it is.
    virtual bool openNuclearPackage(PackageHandOver& grids) = 0;
    virtual bool openNucCharges(PackageHandOver& grids) = 0;
};

Screens& screens();
/// Not owned; null makes screens() raise 91.
void setScreens(Screens* screens);

} // namespace session
