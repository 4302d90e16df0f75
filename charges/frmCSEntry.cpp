#include "charges/frmCSEntry.h"

#include "lookup/FieldText.h"
#include "session/Session.h"

namespace charges {

using ado::sql;
using controls::MsgBox;
using controls::vbInformation;
using controls::vbOKOnly;
using lookup::fieldFlag;

namespace {

constexpr ItemRequestVariant variant{.screen = "frmCSEntry",
                                     .caption = "Central Supply Request Entry",
                                     .subtitle = "Supplies from the hospital's central supply",
                                     .hasItemFrame = true,
                                     .grid = {.requestType = "CS",
                                              .listTitle = "List of Supplies",
                                              .isSupply = true,
                                              .duplicateOfCode = "Can't Request the Same Supply!",
                                              .duplicateFromList = "Can't Request the Same Medicine!"}};

const QString title = QStringLiteral("Message");

} // namespace

frmCSEntry::frmCSEntry(QWidget* parent) : ItemRequestScreen(variant, parent) {}

bool frmCSEntry::mayAskForInPatient(const QString& idNumber) {
    ado::Recordset marks =
        session::Read(sql("SELECT * FROM PATIENT_DATA..tbPatient2 WHERE IdNum = '{}'", idNumber));
    const bool isCashBasis = !marks.Eof() && fieldFlag(marks, "Askcashbasis");
    const bool isClosed = !marks.Eof() && fieldFlag(marks, "OkeyPH");
    marks.Close();
    if (isCashBasis)
        MsgBox(QStringLiteral("Patient's account has been placed under cash basis."), vbInformation, title);
    else if (isClosed)
        MsgBox(QStringLiteral("Patient's account has already been closed."), vbInformation, title);
    return !isCashBasis && !isClosed;
}

bool frmCSEntry::mayAskForOutPatient(const QString& idNumber) {
    ado::Recordset marks =
        session::Read(sql("SELECT AskCashbasis FROM PATIENT_DATA..tbPatient2 WHERE IdNum = '{}'", idNumber));
    const bool isCashBasis = !marks.Eof() && fieldFlag(marks, "Askcashbasis");
    marks.Close();
    if (isCashBasis)
        MsgBox(QStringLiteral(
                   "Cannot post charges because the patient's account has been made under cash basis. "),
               vbOKOnly, title);
    return !isCashBasis;
}

} // namespace charges
