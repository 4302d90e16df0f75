// Saves a first result for one new request after the other: the section's row and two of the ward.

#include "platform/controls/screen/TestDoors.h"
#include "results/frmResultEntry.h"
#include "session/Session.h"
#include "tests/support/workstation/Workstation.h"

#include <QAbstractButton>

namespace {

/// A request of the ward for a bone scan of AGUILAR. Behind the back of the save that is cut.
void addRequest(const QString& request, const QString& ward) {
    session::gConnection->Execute(
        ado::sql("sp_Nuclear_AddRequest '104078','26004078','{}', '1001','5620','204','I', "
                 "'C900J','1001','{}','','1', '','NU'",
                 request, ward));
    session::gConnection->Execute(
        ado::sql("INSERT INTO STATION..tbNurseCommunicationFile (HospNum, IdNum, RequestNum, PatientType, "
                 "RevenueID, ItemID, RequestDate, RecordStatus, ReferenceNum) VALUES "
                 "('104078','26004078','{}','I','NU','1001', '2026-11-21', 'X','C900J')",
                 ward));
    session::gConnection->Execute(
        ado::sql("INSERT INTO STATION..tbNurseLogBook (HospNum, IdNum, RequestNum, PatientType, RevenueID, "
                 "ItemID, RequestDate, RecordStatus, ReferenceNum) VALUES "
                 "('104078','26004078','{}','I','NU','1001', '2026-11-21', 'X','C900J')",
                 ward));
}

void saveResult(tests::Workstation& workstation) {
    static int number = 0;
    ++number;
    const QString request = QString::number(90000 + number);
    const QString ward = QString::number(500000 + number);
    addRequest(request, ward);
    auto& screen = controls::SharedScreen<results::frmResultEntry>::fresh();
    screen.load();
    screen.PatientType = "I";
    screen.RequestNum = request;
    screen.RefNum = "C900J";
    screen.ItemCode = "1001";
    screen.NurseRequestNum = ward;
    screen.setText("txtPName", "AGUILAR, ROSARIO CRUZ");
    screen.setText("txtHospNum", "104078");
    screen.setText("txtIdNum", "26004078");
    screen.setText("lblProcedure", "1001 BONE SCAN, WHOLE BODY");
    screen.setText("txtAttendingDrCode", "201");
    screen.setText("txtRequestingDrCode", "204");
    screen.Show();
    screen.setText("txtCaseNum", QStringLiteral("26-") + request);
    screen.setText("txtConclusion", "Normal");
    auto* btnSave = screen.findChild<QAbstractButton*>(QStringLiteral("btnSave"));
    workstation.save([&] { btnSave->click(); });
    screen.hideScreen();
    controls::release<results::frmResultEntry>();
}

} // namespace

int main(int argc, char** argv) {
    return tests::Workstation::run(argc, argv, saveResult);
}
