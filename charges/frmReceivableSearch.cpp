#include "charges/frmReceivableSearch.h"

#include "charges/frmReceivableEntry.h"
#include "lookup/FieldText.h"
#include "platform/base/Conversion.h"
#include "platform/controls/grid/FlexGrid.h"
#include "session/Session.h"
#include "ui_frmReceivableSearch.h"

namespace charges {

using ado::sql;
using base::Trim;
using session::Read;

namespace {

// The empty leading column counts as 0. From 9 on they are hidden.
enum GridColumn {
    hospitalNumber = 1,
    admissionNumber = 2,
    lastName = 3,
    firstName = 4,
    middleName = 5,
    room = 6,
    birthDate = 12,
    ageColumn = 13,
    company = 18
};

constexpr int widths[] = {200, 900, 1000, 1800, 1800, 1500, 800, 2000, 2000, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0};

constexpr controls::ListVariant variant = {
    .format = "|Hosp. #|Adm. #|Last Name|First Name|Middle Name|Room #|Adm. Date|Dcr. Date",
    .widths = widths,
    .one = "patient",
    .many = "patients",
    .emptyText = "No billed patient answers to this name.",
    .most = 200,
    .selectable = controls::ListVariant::Selectable::OnceFound};

struct EntryField {
    const char* name;
    GridColumn column;
};

constexpr EntryField entryFields[] = {{"txtHospNum", hospitalNumber}, {"txtIdNum", admissionNumber},
                                      {"txtLname", lastName},         {"txtFname", firstName},
                                      {"txtMname", middleName},       {"txtRoom", room},
                                      {"txtBDate", birthDate},        {"txtCompany", company}};

} // namespace

frmReceivableSearch::frmReceivableSearch(QWidget* parent)
    : ListScreen(parent), m_ui(std::make_unique<Ui::frmReceivableSearch>()) {
    m_ui->setupUi(this);
    setUpList({.grid = m_ui->grdTable,
               .search = m_ui->txtSearch,
               .searchBy = m_ui->cmbSearch,
               .select = m_ui->cmdSelect,
               .close = m_ui->cmdClose,
               .hits = m_ui->lblHits},
              variant);
}

frmReceivableSearch::~frmReceivableSearch() = default;

void frmReceivableSearch::Form_Load() {
    ListScreen::Form_Load();
    m_ui->cmbSearch->addItems({QStringLiteral("Last Name"), QStringLiteral("Admission #")});
    m_ui->cmbSearch->setCurrentIndex(0);
    m_ui->lblLabel->setText(QStringLiteral("    ") + ListCaption);
    m_ui->lblLabel->setVisible(!ListCaption.isEmpty());
    m_ui->chkCurrent->setVisible(!CurrentCaption.isEmpty());
    if (!CurrentCaption.isEmpty())
        m_ui->chkCurrent->setText(CurrentCaption);
    m_ui->txtSearch->setText(PatientRecord);
    backToSearch();
}

void frmReceivableSearch::search() {
    const Hourglass busy;
    ado::Recordset patients = Read(sql("RADIOLOGY..spGlobal_BilledPatients '{}'", m_ui->txtSearch->text()));
    if (bindRows(patients) == 0) {
        m_ui->grdTable->setRows(2);
        layOutGrid();
    }
    setWidths();
}

void frmReceivableSearch::rowTaken() {
    if (IsAccountClosed(Trim(cell(admissionNumber)))) {
        controls::MsgBox(QStringLiteral("Patient`s account has already been closed.\n"
                                        "If you have charges to make, pls. notify the Credit/Collections "
                                        "for further instructions."),
                         controls::vbInformation, QStringLiteral("Message"));
        return;
    }
    openEntry();
}

bool frmReceivableSearch::IsAccountClosed(const QString& id) const {
    ado::Recordset stay =
        base::IsNumeric(id)
            ? Read(sql("Select Latecharges from Patient_data..tbPatient where idnum = '{}'", id))
            : Read(sql("Select Latecharges from Patient_data..tboutPatient where idnum = '{}'", id));
    return stay.Eof() || !lookup::fieldFlag(stay, "LateCharges");
}

QString frmReceivableSearch::age() const {
    const QString known = Trim(cell(ageColumn));
    if (base::Val(known) != 0)
        return known;
    ado::Recordset answer = Read(sql("Laboratory..Lab_GetAge '{}'", Trim(cell(birthDate))));
    // A date that is none may bring no result at all.
    const bool answered = answer.State() == ado::Recordset::adStateOpen && !answer.Eof();
    return answered ? lookup::fieldText(answer, "Age") : QString();
}

void frmReceivableSearch::openEntry() {
    auto& entry = controls::SharedScreen<frmReceivableEntry>::fresh();
    entry.load();
    for (const EntryField& field : entryFields)
        entry.setText(field.name, Trim(cell(field.column)));
    entry.setText("txtAge", age());
    entry.setText("txtDoctorID", {});
    entry.setText("txtDoctor", {});
    entry.ShowModal();
    if (!isUnloaded())
        backToSearch();
}

} // namespace charges
