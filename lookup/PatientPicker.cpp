#include "lookup/PatientPicker.h"

#include "platform/base/Conversion.h"
#include "platform/base/Format.h"
#include "platform/controls/grid/FlexGrid.h"
#include "session/Session.h"
#include "ui_PatientPicker.h"

namespace lookup {

using controls::on;

namespace {

enum SearchBy { byLastName, byAdmissionNumber };

// The empty leading column counts as 0.
enum GridColumn { code = 1, admissionDate = 5 };

} // namespace

PatientPicker::PatientPicker(const PatientPickerVariant& variant, QWidget* parent)
    : ListScreen(parent), m_variant(variant), m_ui(std::make_unique<Ui::PatientPicker>()) {
    m_ui->setupUi(this);
    setObjectName(variant.screen);
    setWindowTitle(QString::fromLatin1(variant.title));
    m_ui->bandHeader->setTitle(windowTitle());
    m_ui->bandHeader->setSubtitle(QString::fromLatin1(variant.subtitle));
    if (!variant.canAddPatient)
        delete std::exchange(m_ui->cmdAddWalkIn, nullptr);
    setUpList({.grid = m_ui->grdTable,
               .search = m_ui->txtSearch,
               .searchBy = m_ui->cmbSearch,
               .select = m_ui->cmdSelect,
               .close = m_ui->cmdClose,
               .hits = m_ui->lblHits},
              variant.list);
    on(m_ui->chkCurrent, &QCheckBox::clicked, this, [this] { search(); });
    if (m_ui->cmdAddWalkIn)
        on(m_ui->cmdAddWalkIn, &QPushButton::clicked, this, [this] { cmdAddWalkIn_Click(); });
}

PatientPicker::~PatientPicker() = default;

void PatientPicker::Form_Load() {
    ListScreen::Form_Load();
    m_ui->lblCaption->setText(QStringLiteral("    ") + ListCaption);
    m_ui->cmbSearch->addItems({QStringLiteral("Last Name"), QStringLiteral("Admission #")});
    m_ui->cmbSearch->setCurrentIndex(byLastName);
    m_ui->txtSearch->setText(CurrentCaption);
    m_ui->chkCurrent->setChecked(CurrentCaption.size() < 1);
    if (m_ui->cmdAddWalkIn)
        m_ui->cmdAddWalkIn->setVisible(EnableAddPatient);
    search();
    backToSearch();
}

void PatientPicker::search() {
    const auto number = [](int value) { return base::Format(value, QStringLiteral("0")); };
    const Hourglass busy;
    ado::Recordset patients = session::Read(patientQuery(number(m_ui->chkCurrent->isChecked() ? 1 : 0),
                                                         number(m_ui->cmbSearch->currentIndex()),
                                                         base::Trim(m_ui->txtSearch->text())));
    // Walk-ins have no admission; what stands there is no date.
    const bool dated =
        patients.fieldCount() >= admissionDate &&
        patients.Fields(admissionDate - 1).Name().compare(u"AdmDate", Qt::CaseInsensitive) == 0;
    if (bindRows(patients) == 0)
        return;
    setWidths();
    if (!dated)
        emptyAdmissionDates();
}

void PatientPicker::rowTaken() {
    PatientRecord = currentCells();
    ResultCode = PatientRecord.at(code);
    Valid = true;
    Unload();
}

void PatientPicker::leave() {
    Valid = false;
    Unload();
}

void PatientPicker::cmdAddWalkIn_Click() {
    if (addPatient())
        searchEntered();
}

void PatientPicker::emptyAdmissionDates() {
    for (int row = 1; row <= hits(); ++row)
        m_ui->grdTable->setTextMatrix(row, admissionDate, {});
}

} // namespace lookup
