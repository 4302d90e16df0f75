#include "session/Session.h"

#include "platform/base/Conversion.h"
#include "platform/base/Error.h"
#include "platform/controls/screen/MessageBox.h"
#include "session/Screens.h"
#include "session/WorkDone.h"
#include "session/logon/clsCurrentUser.h"
#include "session/services/Services.h"

namespace session {

std::unique_ptr<clsCurrentUser> gUser;
ado::Connection* gConnection = nullptr;
QString gEmployeeCode;
QString gServerPassword;
QString gDeptCode;
QString gSectionCode;
QString gDeptLetter;
bool gIsNuclearDept = false;
QString gHospitalName;
QString gHospitalAddress;
QString gHospitalTitle;
QString gHospitalTin;
bool gInventoryEntry = false;
QString gCodeFindDummy;
std::unique_ptr<KeyPress> gKeyPress;
std::unique_ptr<clsRegistry> gPatient;
clsAdmission* gAdmission = nullptr;
clsPatientMaster* gPatientMaster = nullptr;
std::unique_ptr<clsCensusFind> gPatientFind;
std::unique_ptr<clsLookupPad> gCodeFind;
std::unique_ptr<clsDeptFind> gDeptFind;
std::unique_ptr<clsFormulist> gFormulist;
std::unique_ptr<clsDispense> gDispense;
base::DateTime gServerDate;

namespace {

void readHospitalInfo() {
    ado::Recordset hospital = Read(ado::sql("Select * from PATIENT_DATA..tbHospitalInfo"));
    gHospitalName = base::Trim(hospital.Fields("Company").text());
    gHospitalAddress = base::Trim(hospital.Fields("Address1").text());
    gHospitalTitle = base::Trim(hospital.Fields("Title").text());
    gHospitalTin = base::Trim(hospital.Fields("TinNo").text());
    hospital.Close();
    gCodeFindDummy.clear();
}

void createServices() {
    gKeyPress = std::make_unique<KeyPress>();
    gPatient = std::make_unique<clsRegistry>();
    gPatientFind = std::make_unique<clsCensusFind>();
    gCodeFind = std::make_unique<clsLookupPad>();
    gDeptFind = std::make_unique<clsDeptFind>();
    gFormulist = std::make_unique<clsFormulist>();
    gDispense = std::make_unique<clsDispense>();
}

void wireCodeFind() {
    gCodeFind->MTS_Server.clear();
    gCodeFind->Initialize_Classes();
    gCodeFind->CompanyName = gHospitalName;
    gCodeFind->SearchMode = true;
    gCodeFind->setConnection(gUser->sqlconnection());
}

void wireDeptFind() {
    gDeptFind->Initialize_Classes();
    gDeptFind->InitConnection(gUser->sqlconnection());
    gDeptFind->Hospital = gHospitalName;
    gDeptFind->RevenueID = gDeptCode;
}

void joinPatientServices() {
    gConnection = &gUser->sqlconnection();
    gConnection->setCursorLocation(ado::Connection::adUseClient);
    gPatient->OpenConnection(gConnection->ConnectionString());
    gAdmission = &gPatient->admission();
    gPatientMaster = &gPatient->patientMaster();
}

bool openServices() {
    gUser->sqlconnection().setDefaultDatabase(QStringLiteral("NUCLEAR"));
    gServerPassword = gUser->serverpassword();
    readHospitalInfo();
    createServices();
    wireCodeFind();
    gEmployeeCode = gUser->employeecode();
    wireDeptFind();
    if (!gPatientFind->InitConnection(gUser->sqlconnection().ConnectionString(), gCodeFindDummy))
        return false;
    joinPatientServices();
    if (!gFormulist->InitConnection(gUser->sqlconnection())) {
        controls::MsgBox(QStringLiteral("Cannot load supplies list."), controls::vbCritical);
        return false;
    }
    if (!gDispense->InitConnect(gUser->sqlconnection())) {
        controls::MsgBox(QStringLiteral("Cannot load supplies information."), controls::vbCritical);
        return false;
    }
    return true;
}

} // namespace

void InitDepartment(const QString& number) {
    if (number != QLatin1StringView(departmentNumber))
        return;
    gDeptLetter = QStringLiteral("J");
    gSectionCode = QStringLiteral("NU");
    gDeptCode = QStringLiteral("NU");
    gIsNuclearDept = true;
}

void Main() {
    InitDepartment(QString::fromLatin1(departmentNumber));
    forgetSession();
    gUser = std::make_unique<clsCurrentUser>();
    gUser->setPasswordDeptCode(QString::fromLatin1(departmentNumber));
    gUser->ShowMain();
    if (gUser->Connected() && openServices())
        screens().showMainMenu();
}

bool wireSession(std::unique_ptr<clsCurrentUser> user) {
    InitDepartment(QString::fromLatin1(departmentNumber));
    forgetSession();
    gUser = std::move(user);
    return openServices();
}

void forgetSession() {
    forgetWorkDone();
    gConnection = nullptr;
    gAdmission = nullptr;
    gPatientMaster = nullptr;
    gDispense.reset();
    gFormulist.reset();
    gDeptFind.reset();
    gCodeFind.reset();
    gPatientFind.reset();
    gPatient.reset();
    gKeyPress.reset();
    gUser.reset();
    for (QString* text : {&gEmployeeCode, &gServerPassword, &gHospitalName, &gHospitalAddress,
                          &gHospitalTitle, &gHospitalTin, &gCodeFindDummy})
        text->clear();
}

void LogOff() {
    forgetWorkDone();
    if (gUser && gUser->sqlconnection().State() != ado::Connection::adStateClosed)
        gUser->sqlconnection().Close();
}

ado::Connection& sharedConnection() {
    if (gConnection)
        return *gConnection;
    if (!gUser)
        throw base::RunTimeError(base::errors::objectNotSet);
    return gUser->sqlconnection();
}

ado::Recordset Read(const ado::Statement& statement) {
    ado::Recordset recordset;
    recordset.Open(statement, sharedConnection(), ado::CursorType::Dynamic, ado::LockType::ReadOnly, -1);
    return recordset;
}

ado::Recordset ReadForUpdate(const ado::Statement& statement) {
    ado::Recordset recordset;
    recordset.Open(statement, sharedConnection(), ado::CursorType::Dynamic, ado::LockType::Optimistic, -1);
    return recordset;
}

void Run(const ado::Statement& statement) {
    sharedConnection().Execute(statement);
}

} // namespace session
