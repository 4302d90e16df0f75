#include "results/frmResult.h"

#include "platform/base/Conversion.h"
#include "platform/controls/grid/FlexGrid.h"
#include "results/ResultLoad.h"
#include "results/frmResultEntry.h"
#include "results/frmResultEntryGFR.h"
#include "results/frmResultEntryMPI.h"
#include "results/frmResultRadioImmuno.h"
#include "session/Session.h"
#include "ui_frmResult.h"

namespace results {

using ado::sql;
using base::Trim;
using controls::MsgBox;
using controls::SharedScreen;

namespace {

// The hidden leading column counts as 0.
enum GridColumn { requestNumber = 1, examCode = 3, resultDate = 5 };

constexpr int widths[] = {100, 1000, 1100, 900, 2500, 1100, 1100, 5};

constexpr controls::ListVariant requestList = {
    .format = " | Request# | Exam Date | Code | Exam | ResultDate |FileNumber ",
    .widths = widths,
    .selectable = controls::ListVariant::Selectable::AsItStands,
    .emptyRow = controls::ListVariant::EmptyRow::Anything};

} // namespace

frmResult::frmResult(QWidget* parent) : ListScreen(parent), m_ui(std::make_unique<Ui::frmResult>()) {
    m_ui->setupUi(this);
    setUpList({.grid = m_ui->grdTable, .select = m_ui->cmdSelect, .close = m_ui->cmdClose}, requestList);
}

frmResult::~frmResult() = default;

void frmResult::Form_Load() {
    ListScreen::Form_Load();
    m_ui->grdTable->setEmptyText(QStringLiteral("Nothing is on file for this patient here."));
}

void frmResult::Init_Grid() {
    layOutGrid();
}

void frmResult::showRequests(const ado::Recordset& requests) {
    if (FormMode == u"C")
        m_ui->bandHeader->setSubtitle(QStringLiteral("Choose the result to revoke"));
    m_ui->bandHeader->setChips({QStringLiteral("Hosp. ") + HospitalNumber});
    m_ui->grdTable->setDataSource(requests);
}

void frmResult::setPatientName(const QString& name) {
    m_ui->lblName->setText(name);
}

void frmResult::rowTaken() {
    m_requestNumber = Trim(cell(requestNumber));
    m_resultDate = Trim(cell(resultDate));
    const QString exam = Trim(cell(examCode));
    ado::Recordset exams = session::ReadForUpdate(
        sql("Select top 1 * from Build_File..tbcoNucExam where NucExamID = '{}'", exam));
    const QString formType = exams.RecordCount() > 0 ? exams.Fields("FormType").text() : QString();
    exams.Close();
    if (formType == u"G")
        LoadGFRResult();
    else if (formType == u"R")
        LoadRadioResult();
    else if (formType == u"T")
        MsgBox(QStringLiteral("No result form are available for theraphy."));
    else
        LoadGenericResult();
}

// ---- the entry screens

namespace {

bool isMode(const QString& formMode) {
    return formMode == u"R" || formMode == u"C";
}

template <typename Screen>
void openFilled(frmResult& list, const QString& requestNumber, const QString& resultDate,
                const LoadVariant& variant) {
    if (!isMode(list.FormMode))
        return;
    Screen& screen = SharedScreen<Screen>::fresh();
    screen.load();
    fillResultScreen(screen, variant, requestNumber, list.FormMode);
    screen.setSavedDate(resultDate);
    list.Unload();
    screen.ShowModal();
}

} // namespace

void frmResult::LoadGenericResult() {
    openFilled<frmResultEntry>(*this, m_requestNumber, m_resultDate, genericLoad);
}

void frmResult::LoadMPIResult() {
    openFilled<frmResultEntryMPI>(*this, m_requestNumber, m_resultDate, perfusionLoad);
}

void frmResult::LoadGFRResult() {
    openFilled<frmResultEntryGFR>(*this, m_requestNumber, m_resultDate, gfrLoad);
}

void frmResult::LoadRadioResult() {
    openFilled<frmResultRadioImmuno>(*this, m_requestNumber, m_resultDate, radioLoad);
}

} // namespace results
