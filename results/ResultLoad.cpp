#include "results/ResultLoad.h"

#include "platform/base/Conversion.h"
#include "session/Session.h"

namespace results {

using ado::sql;
using session::Read;

namespace {

constexpr FieldColumn requestTexts[] = {
    {"txtAccountName", "Company"},
    {"txtAddress", "Address"},
    {"txtAge", "Age"},
    {"txtBDate", "BirthDate"},
    {"txtExamDate", "TransDate"},
    {"txtHospNum", "HospNum"},
    {"txtIdNum", "IdNum"},
    {"txtRoomID", "RoomID"},
    {"txtSex", "Sex"},
    {"txtRequestingDrCode", "requestdoccode"},
    {"txtRequestingDr", "RequestDocName"},
};

constexpr const char* entryCommands[] = {"btnEdit", "btnPrint", "btnSavePrint", "btnSave", "btnClear"};
constexpr const char* revokeCommand[] = {"btnRevoke"};
constexpr const char* clearCommand[] = {"btnClear"};

void fill(ResultScreen& screen, ado::Recordset& row, std::span<const FieldColumn> texts) {
    for (const FieldColumn& one : texts)
        screen.setText(one.field, row.Fields(one.column).text());
}

void fillRequest(ResultScreen& screen, const LoadVariant& variant, ado::Recordset& request) {
    const auto text = [&](const char* column) { return request.Fields(column).text(); };
    screen.setText("txtPName",
                   text("LastName") + QStringLiteral(", ") + text("FirstName") + u' ' + text("MiddleName"));
    fill(screen, request, requestTexts);
    fill(screen, request, std::array{variant.doctorCode, variant.doctorName});
    screen.setText("lblProcedure", text("ItemID") + u' ' + text("NucExam"));
    screen.ItemCode = text("ItemID");
    screen.PatientType = text("PatientType");
    screen.RefNum = text("RefNum");
    screen.NurseRequestNum = text("NurseRequestNum");
}

void setUpToEdit(ResultScreen& screen, const LoadVariant& variant) {
    screen.setPoint(ResultPoint::Saved);
    screen.showCommands(viewCommands, true);
    screen.enableFields(clearCommand, false);
    screen.enableFields(variant.disabledToEdit, false);
    screen.lockCaseNum(true);
}

void setUpToRevoke(ResultScreen& screen, const LoadVariant& variant) {
    screen.setPoint(ResultPoint::ToRevoke);
    screen.showCommands(entryCommands, false);
    screen.showCommands(revokeCommand, true);
    screen.enableFields(variant.disabledToRevoke, false);
}

void fillResult(ResultScreen& screen, const LoadVariant& variant, const QString& requestNumber, bool edits) {
    ado::Recordset result =
        Read(edits ? variant.resultToEdit(requestNumber) : variant.resultToRevoke(requestNumber));
    if (result.RecordCount() > 0) {
        fill(screen, result, variant.texts);
        if (edits && variant.fillTable)
            variant.fillTable(screen, result);
        edits ? setUpToEdit(screen, variant) : setUpToRevoke(screen, variant);
    }
    result.Close();
}

} // namespace

void fillResultScreen(ResultScreen& screen, const LoadVariant& variant, const QString& requestNumber,
                      const QString& formMode) {
    const bool edits = formMode == u"R";
    screen.RequestNum = requestNumber;
    ado::Recordset request = Read(sql("sp_Nuclear_ResultEntry '{}'", requestNumber));
    QString status;
    if (request.RecordCount() > 0) {
        fillRequest(screen, variant, request);
        status = request.Fields("requeststatus").text();
    }
    request.Close();
    screen.showCommands(edits ? FieldNames(viewCommands) : variant.hiddenAtFirstToRevoke, false);
    if (edits)
        screen.lockCaseNum(false);
    if (status == u"W")
        fillResult(screen, variant, base::Trim(requestNumber), edits);
}

} // namespace results
