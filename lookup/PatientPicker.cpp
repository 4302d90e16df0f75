#include "lookup/PatientPicker.h"

#include "lookup/PickerKeys.h"
#include "platform/base/Conversion.h"
#include "platform/base/Format.h"
#include "platform/controls/fields/KeyFilter.h"
#include "platform/controls/look/Look.h"
#include "session/Session.h"
#include "ui_PatientPicker.h"

namespace lookup {

using controls::on;

namespace {

enum SearchBy { byLastName, byAdmissionNumber };

// The empty leading column counts as 0.
enum GridColumn { code = 1, admissionDate = 5 };

const QString gridFormat = QStringLiteral(" | Adm # | Last Name | First Name | Middle Name | Adm. Date ");

} // namespace

PatientPicker::PatientPicker(const PatientPickerVariant& variant, QWidget* parent)
    : Screen(parent), m_variant(variant), m_ui(std::make_unique<Ui::PatientPicker>()) {
    m_ui->setupUi(this);
    setObjectName(variant.screen);
    setWindowTitle(QString::fromLatin1(variant.title));
    m_ui->bandHeader->setTitle(windowTitle());
    m_ui->bandHeader->setSubtitle(QString::fromLatin1(variant.subtitle));
    if (!variant.canAddPatient)
        delete std::exchange(m_ui->cmdAddWalkIn, nullptr);
    m_keys = std::make_unique<PickerKeys>(*m_ui->txtSearch, *m_ui->grdTable);
    setEscapeCloses(true);
    controls::look::setPrimary(m_ui->cmdSelect);
    controls::setKeyRules(m_ui->txtSearch, controls::KeyRule::UpperCase | controls::KeyRule::BackQuote);
    on(m_ui->chkCurrent, &QCheckBox::clicked, this, [this] { chkCurrent_Click(); });
    on(m_ui->cmbSearch, &QComboBox::activated, this, [this] { cmbSearch_Click(); });
    on(m_keys.get(), &PickerKeys::searchEntered, this, [this] { txtSearch_Return(); });
    on(m_keys.get(), &PickerKeys::rowEntered, this, [this] { cmdSelect_Click(); });
    on(m_ui->cmdSelect, &QPushButton::clicked, this, [this] { cmdSelect_Click(); });
    on(m_ui->cmdClose, &QPushButton::clicked, this, [this] { cmdClose_Click(); });
    if (m_ui->cmdAddWalkIn)
        on(m_ui->cmdAddWalkIn, &QPushButton::clicked, this, [this] { cmdAddWalkIn_Click(); });
}

PatientPicker::~PatientPicker() = default;

void PatientPicker::Form_Load() {
    m_ui->lblCaption->setText(QStringLiteral("    ") + ListCaption);
    m_ui->cmbSearch->addItems({QStringLiteral("Last Name"), QStringLiteral("Admission #")});
    m_ui->cmbSearch->setCurrentIndex(byLastName);
    m_ui->txtSearch->setText(CurrentCaption);
    m_ui->chkCurrent->setChecked(CurrentCaption.size() < 1);
    if (m_ui->cmdAddWalkIn)
        m_ui->cmdAddWalkIn->setVisible(EnableAddPatient);
    m_ui->grdTable->setFormatString(gridFormat);
    setWidths();
    runQuery();
    m_keys->backToSearch();
}

void PatientPicker::chkCurrent_Click() {
    runQuery();
}

void PatientPicker::cmbSearch_Click() {
    m_keys->backToSearch();
}

void PatientPicker::txtSearch_Return() {
    runQuery();
    m_keys->backToSearch();
}

void PatientPicker::cmdSelect_Click() {
    if (m_keys->hits() == 0)
        return;
    PatientRecord = m_keys->currentCells();
    ResultCode = PatientRecord.at(code);
    Valid = true;
    Unload();
}

void PatientPicker::cmdClose_Click() {
    Valid = false;
    Unload();
}

void PatientPicker::cmdAddWalkIn_Click() {
    if (!addPatient())
        return;
    runQuery();
    m_keys->backToSearch();
}

void PatientPicker::runQuery() {
    const auto number = [](int value) { return base::Format(value, QStringLiteral("0")); };
    const Hourglass busy;
    ado::Recordset patients = session::Read(patientQuery(number(m_ui->chkCurrent->isChecked() ? 1 : 0),
                                                         number(m_ui->cmbSearch->currentIndex()),
                                                         base::Trim(m_ui->txtSearch->text())));
    m_keys->setHits(patients.RecordCount());
    m_ui->grdTable->setDataSource(patients);
    if (m_keys->hits() > 0) {
        setWidths();
        // Walk-ins have no admission; what stands there is no date.
        if (patients.fieldCount() < admissionDate ||
            patients.Fields(admissionDate - 1).Name().compare(u"AdmDate", Qt::CaseInsensitive) != 0)
            emptyAdmissionDates();
    }
    patients.Close();
    m_ui->cmdSelect->setEnabled(m_keys->hits() > 0);
    PickerKeys::showPatientHits(*m_ui->lblHits, m_keys->hits());
    m_ui->grdTable->setEmptyText(QString::fromLatin1(m_variant.emptyText));
}

void PatientPicker::setWidths() {
    m_ui->grdTable->setColWidths({200, 1000, 2000, 2000, 2000, 1500});
}

void PatientPicker::emptyAdmissionDates() {
    for (int row = 1; row <= m_keys->hits(); ++row)
        m_ui->grdTable->setTextMatrix(row, admissionDate, {});
}

} // namespace lookup
