#include "tests/long/Saves.h"

#include "entry/RequestScreen.h"
#include "platform/controls/grid/FlexGrid.h"
#include "results/ResultScreen.h"
#include "tests/support/screens/Driver.h"

#include <QAbstractButton>
#include <QCoreApplication>
#include <QLineEdit>

#include <cstring>
#include <stdexcept>

namespace attacks {

namespace {

constexpr const char* requestLines =
    "NU|1001|BONE SCAN|ROUTINE|100.00|1|100.00;UR|40001|SYRINGE||12.00|2|24.00";
constexpr const char* assessedLines =
    "NU|1001|BONE SCAN|ROUTINE|100.00|1|100.00;MD|201|(PF) DR. SANTOS|||1|1500.00";

/// A request of the ward for a bone scan of AGUILAR.
constexpr const char* requestOfAWard =
    "sp_Nuclear_AddRequest '104078','26004078','90001', '1001','5620','204','I', "
    "'C900J','1001','500001','','1', "
    "'','NU';\n"
    "INSERT INTO STATION..tbNurseCommunicationFile (HospNum, IdNum, RequestNum, PatientType, RevenueID, "
    "ItemID, "
    "RequestDate, RecordStatus, ReferenceNum) VALUES ('104078','26004078','500001','I','NU','1001', "
    "'2026-11-21', "
    "'X','C900J');\n"
    "INSERT INTO STATION..tbNurseLogBook (HospNum, IdNum, RequestNum, PatientType, RevenueID, ItemID, "
    "RequestDate, "
    "RecordStatus, ReferenceNum) VALUES ('104078','26004078','500001','I','NU','1001', '2026-11-21', "
    "'X','C900J')";

/// A line of it, charged.
constexpr const char* chargedLine = "sp_Nuclear_AddRequest '104078','26004078','90001', "
                                    "'1001','100','204','I', 'C90001J','1001','90001','','1', "
                                    "'','NU';\n"
                                    "sp_addnurselogbook '104078','26004078', '1001','EXAM','100', "
                                    "'1001','1001', 'C90001J','NU','I','90001','1';\n"
                                    "sp_addbill 'I','26004078','11/21/2026 08:00:00 AM','C90001J', "
                                    "'1001','100','NU','1001','1','','', '104078'";

void asNewResult(QWidget& screen) {
    auto& result = dynamic_cast<results::ResultScreen&>(screen);
    result.RefNum = QStringLiteral("C900J");
    result.ItemCode = QStringLiteral("1001");
    result.NurseRequestNum = QStringLiteral("500001");
}

void forAdmitted(QWidget& screen) {
    dynamic_cast<entry::RequestScreen&>(screen).entry.PatientType = QStringLiteral("I");
}

} // namespace

const std::vector<Save>& saves() {
    static const std::vector<Save> all = [] {
        std::vector<Save> list{
            {.name = "request",
             .screen = "frmRequest",
             .touches = {{"grdPackage", requestLines}},
             .press = "cmdSave"},
            {.name = "request of an out-patient",
             .screen = "frmOutRequest",
             .touches = {{"grdPackage", requestLines}},
             .press = "cmdSave"},
            {.name = "request that a ward sent",
             .screen = "frmNurseCommunication",
             .press = "btnProcess",
             .within = {"cmdSave"}},
            {.name = "request that was paid",
             .screen = "frmListCashComm",
             .touches = {{"txtSearch", "<Enter><Down>"}},
             .press = "cmdSelect",
             .within = {"<Down><Enter>", "cmdSave"}},
            {.name = "request of a package",
             .screen = "frmRequest",
             .touches = {{"cmdPackage", "<Down><Enter><Down><Space><Enter>"}},
             .press = "cmdSave"},
            {.name = "request of a package of the section",
             .screen = "frmRequest",
             .touches = {{"cmdNucCharges", "<Enter><Enter>"}},
             .press = "cmdSave"},
            {.name = "late charges",
             .screen = "frmReceivableEntry",
             .touches = {{"grdPackage", requestLines}},
             .press = "cmdSave",
             .prepare = forAdmitted},
            {.name = "assessment",
             .screen = "frmAssessment",
             .touches = {{"txtHospNum", "104078"}, {"txtSname", "AGUILAR"}, {"grdTable", assessedLines}},
             .press = "btnSave"},
            {.name = "medicines", .screen = "frmPHEntry", .press = "cmdMedOption"},
            {.name = "supplies", .screen = "frmCSEntry", .press = "cmdMedOption"},
            {.name = "cancellation", .screen = "frmCancellation", .press = "cmdSave", .before = chargedLine},
            {.name = "revoked request of a ward", .screen = "frmNurseCommunication", .press = "btnCancel"},
            {.name = "revoked assessment",
             .screen = "frmAssessmentStatus",
             .touches = {{"txtSearch", "<Enter><Down>"}},
             .press = "btnCancel"},
            {.name = "printed prepaid request", .screen = "frmRequestForm", .press = "cmdPrint"},
            {.name = "walk-in",
             .screen = "frmAddWalkIn",
             .touches = {{"txtLastName", "LUNA"},
                         {"txtFirstName", "ANA"},
                         {"txtMiddleName", "REYES"},
                         {"txtAge", "31"}},
             .press = "btnSave"},
            {.name = "data of a walk-in",
             .screen = "frmWalkInMaster",
             .touches = {{"txtSearch", "<Ctrl+A>AQUINO<Enter><Down><Enter>"}, {"txtFirstName", "BEATRIZ"}},
             .press = "cmdSave",
             .before = "spNuclearaddcashpatient '0','W8001','AQUINO','BEA','SORIANO','2 LUNA "
                       "ST','CENTRO','1100','F','2','02/29/1996','30'"},
            {.name = "new exam",
             .screen = "frmBuildFile",
             .touches = {{"btnCancel"}, {"btnNew"}, {"txtDecription", "KNEE SCAN"}, {"txtRateA", "100"}},
             .press = "btnSave"},
            {.name = "exam",
             .screen = "frmBuildFile",
             .touches = {{"txtDecription", "KNEE SCAN"}, {"txtRateA", "100"}},
             .press = "btnSave",
             .parts = 2},
            {.name = "new package",
             .screen = "frmNuclearChargesBuildFile",
             .touches = {{"cmdAdd"}, {"txtPackageID", "N77"}, {"txtPackage", "SEVENTH"}},
             .press = "cmdSave"},
            {.name = "package",
             .screen = "frmNuclearChargesBuildFile",
             .touches = {{"cmdEdit"}, {"txtPackage", "SEVENTH"}},
             .press = "cmdSave"},
            {.name = "clearance for discharge",
             .screen = "frmClearPatient",
             .touches = {{"txtClearRemarks", "PAID"}},
             .press = "cmdSave"},
            {.name = "rights",
             .screen = "frmUserRights",
             .touches = {{"txtEmployeeID", "1001<Enter>"}, {"grdUsers", "<Enter>"}, {"chkSelectAll"}},
             .press = "cmdSave",
             .parts = 2},
            {.name = "new right",
             .screen = "frmProgSettings",
             .touches = {{"cmdAdd"}, {"txtDescription", "ANOTHER"}},
             .press = "cmdSave"},
            {.name = "right",
             .screen = "frmProgSettings",
             .touches = {{"cmdEdit"}, {"txtDescription", "ANOTHER"}},
             .press = "cmdSave"},
            {.name = "password tried wrong",
             .screen = "frmPassword",
             .touches = {{"txtPassword", "other"}},
             .press = "cmdOk"},
        };
        struct Kind {
            const char* screen;
            const char* names[3];
        };
        static constexpr Kind kinds[] = {
            {"frmResultEntry", {"result", "edited result", "revoked result"}},
            {"frmResultEntryGFR", {"GFR result", "edited GFR result", "revoked GFR result"}},
            {"frmResultRadioImmuno", {"assay", "edited assay", "revoked assay"}}};
        for (const Kind& kind : kinds) {
            const Touch number{"txtCaseNum", "26-9001"};
            const Touch other{"txtCaseNum", "26-9002"}; // its own is taken
            list.push_back({kind.names[0], kind.screen, {number}, "btnSave", 1, requestOfAWard, asNewResult});
            list.push_back({kind.names[1],
                            kind.screen,
                            {number, {"btnSave"}, other},
                            "btnSave",
                            1,
                            requestOfAWard,
                            asNewResult});
            list.push_back({kind.names[2],
                            kind.screen,
                            {number, {"btnSave"}},
                            "btnRevoke",
                            1,
                            requestOfAWard,
                            asNewResult});
        }
        return list;
    }();
    return all;
}

namespace {

void putRows(controls::FlexGrid& grid, const QString& text) {
    const QStringList rows = text.split(u';');
    grid.setRows(int(rows.size()) + 1);
    for (int row = 1; row < grid.Rows(); ++row) {
        const QStringList cells = rows[row - 1].split(u'|');
        for (int column = 1; column <= cells.size(); ++column)
            grid.setTextMatrix(row, column, cells[column - 1]);
    }
}

void touch(QWidget& screen, const Touch& one) {
    auto* control = screen.findChild<QWidget*>(QString::fromLatin1(one.control));
    if (!control)
        throw std::runtime_error(std::string("no control ") + one.control);
    const QString text = QString::fromUtf8(one.text);
    if (auto* button = qobject_cast<QAbstractButton*>(control)) {
        button->setEnabled(true);
        if (text.isEmpty())
            button->click();
        else
            tests::runModal([&] { button->click(); },
                            {[&](QWidget& open) { tests::keysToFocus(open, text); }});
    } else if (text.contains(u'<')) {
        tests::keys(*control, text);
    } else if (auto* grid = qobject_cast<controls::FlexGrid*>(control)) {
        putRows(*grid, text);
    } else if (auto* field = qobject_cast<QLineEdit*>(control)) {
        field->setText(text);
    } else {
        throw std::runtime_error(std::string("no text goes into ") + one.control);
    }
}

} // namespace

void fill(QWidget& screen, const Save& save) {
    if (save.prepare)
        save.prepare(screen);
    QCoreApplication::processEvents(); // a first cell opens
    for (const Touch& one : save.touches)
        touch(screen, one);
}

void press(QWidget& screen, const Save& save) {
    std::vector<tests::Step> steps;
    for (const char* what : save.within) {
        steps.push_back([what](QWidget& open) {
            if (std::strchr(what, '<'))
                tests::keysToFocus(open, QString::fromLatin1(what));
            else
                touch(open, {what});
        });
    }
    if (steps.empty())
        touch(screen, {save.press});
    else
        tests::runModal([&] { touch(screen, {save.press}); }, steps);
}

} // namespace attacks
