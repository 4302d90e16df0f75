#include "results/frmResult.h"

#include "platform/base/Conversion.h"
#include "platform/controls/look/Look.h"
#include "results/ResultLoad.h"
#include "results/frmResultEntry.h"
#include "results/frmResultEntryGFR.h"
#include "results/frmResultEntryMPI.h"
#include "results/frmResultRadioImmuno.h"
#include "session/Session.h"
#include "ui_frmResult.h"

#include <QKeyEvent>
#include <QScopedValueRollback>

namespace results {

using ado::sql;
using base::Trim;
using controls::FlexGrid;
using controls::MsgBox;
using controls::on;
using controls::SharedScreen;

namespace {

// The hidden leading column counts as 0.
enum GridColumn { requestNumber = 1, examCode = 3 };

const QString gridFormat = QStringLiteral(" | Request# | Exam Date | Code | Exam | ResultDate |FileNumber ");

} // namespace

frmResult::frmResult(QWidget* parent) : Screen(parent), m_ui(std::make_unique<Ui::frmResult>()) {
    m_ui->setupUi(this);
    setEscapeCloses(true);
    controls::look::setPrimary(m_ui->cmdSelect);
    on(m_ui->grdTable, &FlexGrid::DblClick, this, [this] { cmdSelect_Click(); });
    on(m_ui->grdTable, &FlexGrid::EnterPressed, this, [this] { cmdSelect_Click(); });
    // The Enter that chose the patient must not choose a request too while it is held down.
    on(m_ui->grdTable, &FlexGrid::KeyDown, this, [](QKeyEvent* event) {
        if (event->isAutoRepeat() && (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter))
            event->accept();
    });
    on(m_ui->cmdSelect, &QPushButton::clicked, this, [this] { cmdSelect_Click(); });
    on(m_ui->cmdClose, &QPushButton::clicked, this, [this] { Unload(); });
}

frmResult::~frmResult() = default;

void frmResult::Form_Load() {
    Init_Grid();
    m_ui->grdTable->setRowSelect(true);
    m_ui->grdTable->setEmptyText(QStringLiteral("Nothing is on file for this patient here."));
    m_ui->grdTable->setFocus();
}

void frmResult::Init_Grid() {
    m_ui->grdTable->Clear();
    m_ui->grdTable->setFormatString(gridFormat);
    m_ui->grdTable->setCols(8); // the result set brings one more
    m_ui->grdTable->setColWidths({100, 1000, 1100, 900, 2500, 1100, 1100, 5});
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

void frmResult::cmdSelect_Click() {
    if (m_selecting)
        return;
    const QScopedValueRollback selecting(m_selecting, true);
    dispatch();
}

void frmResult::dispatch() {
    const FlexGrid& grid = *m_ui->grdTable;
    m_requestNumber = Trim(grid.TextMatrix(grid.Row(), requestNumber));
    const QString exam = Trim(grid.TextMatrix(grid.Row(), examCode));
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
void openFilled(frmResult& list, const QString& requestNumber, const LoadVariant& variant) {
    if (!isMode(list.FormMode))
        return;
    Screen& screen = SharedScreen<Screen>::fresh();
    screen.load();
    fillResultScreen(screen, variant, requestNumber, list.FormMode);
    list.Unload();
    screen.ShowModal();
}

} // namespace

void frmResult::LoadGenericResult() {
    openFilled<frmResultEntry>(*this, m_requestNumber, genericLoad);
}

void frmResult::LoadMPIResult() {
    openFilled<frmResultEntryMPI>(*this, m_requestNumber, perfusionLoad);
}

void frmResult::LoadGFRResult() {
    openFilled<frmResultEntryGFR>(*this, m_requestNumber, gfrLoad);
}

void frmResult::LoadRadioResult() {
    openFilled<frmResultRadioImmuno>(*this, m_requestNumber, radioLoad);
}

} // namespace results
