#include "results/ResultPicker.h"

#include "lookup/PickerKeys.h"
#include "platform/base/Conversion.h"
#include "platform/controls/fields/KeyFilter.h"
#include "platform/controls/look/Look.h"
#include "results/frmResult.h"
#include "session/Session.h"
#include "ui_ResultPicker.h"

#include <QScopedValueRollback>

namespace results {

using base::Trim;
using controls::on;
using lookup::PickerKeys;

namespace {

// The hidden leading column counts as 0.
enum GridColumn { hospitalCode = 1, lastName, firstName, middleName };

enum SearchBy { byAdmissionNumber, byLastName };

constexpr int mostListed = 200; // by the server

const QString gridFormat = QStringLiteral("  |Code |Last Name |First Name |Middle Name |Request Number");

} // namespace

ResultPicker::ResultPicker(const PickerVariant& variant, QWidget* parent)
    : Screen(parent), m_variant(variant), m_ui(std::make_unique<Ui::ResultPicker>()) {
    m_ui->setupUi(this);
    setObjectName(QLatin1String(variant.name));
    setWindowTitle(QLatin1String(variant.caption));
    m_ui->bandHeader->setTitle(QLatin1String(variant.caption));
    m_keys = std::make_unique<PickerKeys>(*m_ui->txtSearch, *m_ui->grdTable);
    setEscapeCloses(true);
    controls::look::setPrimary(m_ui->cmdSelect);
    controls::setKeyRules(m_ui->txtSearch, controls::KeyRule::UpperCase | controls::KeyRule::BackQuote);
    on(m_keys.get(), &PickerKeys::searchEntered, this, [this] { txtSearch_Return(); });
    on(m_keys.get(), &PickerKeys::rowEntered, this, [this] { cmdSelect_Click(); });
    // A blank row can be chosen as well; the keys go to the grid only once it has a patient.
    on(m_ui->grdTable, &controls::FlexGrid::DblClick, this, [this] {
        if (m_keys->hits() == 0)
            cmdSelect_Click();
    });
    on(m_ui->cmdSelect, &QPushButton::clicked, this, [this] { cmdSelect_Click(); });
    on(m_ui->cmdClose, &QPushButton::clicked, this, [this] { Unload(); });
}

ResultPicker::~ResultPicker() = default;

void ResultPicker::Form_Load() {
    const bool revokes = m_variant.passedMode(FormMode) == u"C";
    m_ui->bandHeader->setSubtitle(QLatin1String(revokes ? m_variant.subtitleToRevoke : m_variant.subtitle));
    // The choice is shown only: the server finds a name and a number alike.
    m_ui->cmbSearch->addItems({QStringLiteral("Adm #"), QStringLiteral("Last Name")});
    m_ui->cmbSearch->setCurrentIndex(byLastName);
    m_ui->grdTable->setCols(6);
    FormatGrid();
    m_ui->grdTable->setFormatString(gridFormat);
    m_ui->grdTable->setRowSelect(true);
    m_ui->lblHits->clear();
    m_keys->backToSearch();
}

void ResultPicker::FormatGrid() {
    m_ui->grdTable->Clear();
    m_ui->grdTable->setColWidths({100, 1200, 1800, 1800, 1800});
}

void ResultPicker::txtSearch_Return() {
    int found = 0;
    {
        const Hourglass busy;
        ado::Recordset patients = session::Read(m_variant.search(Trim(m_ui->txtSearch->text())));
        found = patients.RecordCount();
        if (found > 0) {
            FormatGrid();
            m_ui->grdTable->setDataSource(patients);
            m_keys->setHits(found);
        }
        patients.Close();
    }
    QString told = PickerKeys::hitsText(found, QStringLiteral("patient"), QStringLiteral("patients"));
    if (found == 0 && m_keys->hits() > 0)
        told += QStringLiteral(" The list is that of the search before.");
    else if (found >= mostListed)
        told += QStringLiteral(" at most: type more of the name.");
    m_ui->lblHits->setText(told);
    m_keys->backToSearch();
}

void ResultPicker::cmdSelect_Click() {
    if (m_selecting)
        return;
    const QScopedValueRollback selecting(m_selecting, true);
    openRequests();
    if (!isUnloaded())
        m_keys->backToSearch();
}

void ResultPicker::openRequests() {
    const controls::FlexGrid& grid = *m_ui->grdTable;
    const auto cell = [&](int column) { return grid.TextMatrix(grid.Row(), column); };
    frmResult& result = controls::SharedScreen<frmResult>::fresh();
    result.load();
    result.HospitalNumber = Trim(cell(hospitalCode));
    result.setPatientName(cell(lastName) + QStringLiteral(", ") + cell(firstName) + u' ' + cell(middleName));
    ado::Recordset requests = session::Read(m_variant.requests(result.HospitalNumber));
    if (requests.RecordCount() > 0) {
        result.FormMode = m_variant.passedMode(FormMode);
        result.Init_Grid();
        result.showRequests(requests);
    }
    requests.Close();
    result.ShowModal();
}

} // namespace results
