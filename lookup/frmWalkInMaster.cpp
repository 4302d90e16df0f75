#include "lookup/frmWalkInMaster.h"

#include "lookup/WalkInChecks.h"
#include "lookup/frmAddWalkIn.h"
#include "platform/base/Conversion.h"
#include "platform/controls/fields/EnterKey.h"
#include "platform/controls/fields/KeyFilter.h"
#include "platform/controls/fields/KeyNotes.h"
#include "platform/controls/look/Look.h"
#include "session/Session.h"
#include "ui_frmWalkInMaster.h"

#include <QKeyEvent>

namespace lookup {

using ado::sql;
using base::Trim;
using controls::KeyRule;
using controls::on;

namespace {

enum Tab { searchEntry, editEntry };

/// The zip code comes last, beyond the headers: the list does not show it, the edit needs it.
enum GridColumn {
    hospNum = 1,
    lastName,
    firstName,
    middleName,
    civilStatusID,
    civilStatus,
    sex,
    birthDateColumn,
    age,
    houseStreet,
    barangay,
    town,
    province,
    zipCode
};

constexpr int widths[] = {100, 1100, 1750, 2320, 1500, 1480, 1320, 540, 1280, 540, 2330, 1300, 1450, 1400};

constexpr controls::ListVariant variant = {
    .format = " | HospNum | LastName | FirstName | MiddleName | CivilStatusID | CivilStatus | Sex | "
              "BirthDate | Age | Housestreet | Barangay | Town | Province ",
    .widths = widths,
    .one = "patient",
    .many = "patients",
    .emptyText = "No walk-in patient has a last name that begins so.",
    .most = 200};

QString townText(const QString& townName, const QString& provinceName) {
    return townName.isEmpty() ? QString() : townName + QStringLiteral(", ") + provinceName;
}

} // namespace

frmWalkInMaster::frmWalkInMaster(QWidget* parent)
    : ListScreen(parent), m_ui(std::make_unique<Ui::frmWalkInMaster>()) {
    m_ui->setupUi(this);
    setUpList({.grid = m_ui->grdWalkIn,
               .search = m_ui->txtSearch,
               .select = m_ui->cmdEdit,
               .close = m_ui->cmdClose,
               .hits = m_ui->lblHits},
              variant);
    controls::look::setPrimary(m_ui->cmdSave);
    setRules();
    connectControls();
}

frmWalkInMaster::~frmWalkInMaster() = default;

void frmWalkInMaster::setRules() {
    for (QLineEdit* name : {m_ui->txtLastName, m_ui->txtFirstName, m_ui->txtMiddleName, m_ui->txtAddress1,
                            m_ui->txtAddress2, m_ui->txtZipCode})
        controls::setKeyRules(name, KeyRule::UpperCase | KeyRule::BackQuote);
    refuseLetters(m_ui->txtAge);
    likelyDateMovesOn(m_ui->dtpBirthDate);
    controls::enterMovesOn({m_ui->txtLastName, m_ui->txtFirstName, m_ui->txtMiddleName, m_ui->txtAge,
                            m_ui->cmbSex, m_ui->cmbCivil, m_ui->txtAddress1, m_ui->txtAddress2});
}

void frmWalkInMaster::connectControls() {
    on(m_ui->ssWalkIn, &QTabWidget::currentChanged, this, [this] { ssWalkIn_Click(); });
    on(m_ui->cmdAdd, &QPushButton::clicked, this, [this] { cmdAdd_Click(); });
    on(m_ui->dtpBirthDate, &QLineEdit::editingFinished, this, [this] { dtpBirthDate_LostFocus(); });
    controls::onEnter(m_ui->txtZipCode, [this] { cmdZipCode_Click(); });
    // A code that is being changed has no town any more.
    on(m_ui->txtZipCode, &QLineEdit::textEdited, this, [this] { m_ui->lblTown->clear(); });
    on(m_ui->cmdZipCode, &QPushButton::clicked, this, [this] { cmdZipCode_Click(); });
    on(m_ui->cmdSave, &QPushButton::clicked, this, [this] { cmdSave_Click(); });
    on(m_ui->cmdCancel, &QPushButton::clicked, this, [this] { cmdCancel_Click(); });
}

void frmWalkInMaster::Form_Load() {
    ListScreen::Form_Load();
    m_ui->bandHeader->setSubtitle(session::gHospitalName);
    m_ui->grdWalkIn->setEmptyText(QStringLiteral("Enter lists the patients whose last name begins so."));
    cmdCancel_Click();
    ssWalkIn_Click();
    controls::noteKeys(this, {{"Esc", "While a patient is edited: back to the list"}});
}

void frmWalkInMaster::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape && isEditing())
        controls::ErrorBoundary::guard([this] { cmdCancel_Click(); });
    else
        Screen::keyPressEvent(event);
}

// ---- the tabs

bool frmWalkInMaster::isEditing() const {
    return m_ui->ssWalkIn->currentIndex() == editEntry;
}

void frmWalkInMaster::ssWalkIn_Click() {
    const bool editing = isEditing();
    for (QWidget* command : {m_ui->cmdAdd, m_ui->cmdEdit})
        command->setVisible(!editing);
    for (QWidget* command : {m_ui->cmdSave, m_ui->cmdCancel})
        command->setVisible(editing);
    setEscapeCloses(!editing);
}

// ---- search entry

void frmWalkInMaster::search() {
    const Hourglass busy;
    ado::Recordset patients = session::Read(sql("spGlobal_CashPatient '0', '{}'", m_ui->txtSearch->text()));
    bindRows(patients);
}

void frmWalkInMaster::cmdAdd_Click() {
    auto& screen = controls::SharedScreen<frmAddWalkIn>::fresh();
    screen.ShowModal();
    if (screen.NewEntry) {
        controls::look::setKind(m_ui->lblHits, QStringLiteral("ok"));
        m_ui->lblHits->setText(QStringLiteral("The patient was added as %1.").arg(screen.IdNum));
    }
    backToSearch();
}

void frmWalkInMaster::rowTaken() {
    showPatient(m_ui->grdWalkIn->Row());
    m_ui->ssWalkIn->setTabEnabled(editEntry, true);
    m_ui->ssWalkIn->setCurrentIndex(editEntry);
    m_ui->txtLastName->setFocus();
    controls::SelectAllText(m_ui->txtLastName);
}

void frmWalkInMaster::showPatient(int row) {
    const controls::FlexGrid& grid = *m_ui->grdWalkIn;
    // A hospital whose list has no zip codes leaves the box empty.
    const auto cell = [&](int column) {
        return column < grid.Cols() ? Trim(grid.TextMatrix(row, column)) : QString();
    };
    m_ui->txtHospNum->setText(cell(hospNum));
    m_ui->txtLastName->setText(cell(lastName));
    m_ui->txtFirstName->setText(cell(firstName));
    m_ui->txtMiddleName->setText(cell(middleName));
    m_ui->txtAddress1->setText(cell(houseStreet));
    m_ui->txtAddress2->setText(cell(barangay));
    m_ui->txtAge->setText(cell(age));
    m_ui->txtZipCode->setText(cell(zipCode));
    m_listHasZipCodes = zipCode < grid.Cols();
    m_ui->lblTown->setText(townText(cell(town), cell(province)));
    const QString letter = cell(sex).left(1);
    m_ui->cmbSex->setCurrentIndex(letter.isEmpty() ? -1
                                                   : m_ui->cmbSex->findText(letter, Qt::MatchStartsWith));
    bool isStatus = false;
    const int status = cell(civilStatusID).toInt(&isStatus);
    m_ui->cmbCivil->setCurrentIndex(isStatus && status < m_ui->cmbCivil->count() ? status : -1);
    m_ui->dtpBirthDate->clear();
    if (const base::Value born(cell(birthDateColumn)); base::IsDate(born))
        m_ui->dtpBirthDate->setDate(base::CDate(born));
    m_shownBirthDate = m_ui->dtpBirthDate->Text();
    m_ui->bandHeader->setChips({QStringLiteral("Hosp. ") + m_ui->txtHospNum->text()});
}

void frmWalkInMaster::goToPatient(const QString& hospitalNumber) {
    for (int row = 1; row <= hits(); ++row) {
        if (Trim(m_ui->grdWalkIn->TextMatrix(row, hospNum)) == hospitalNumber)
            m_ui->grdWalkIn->setCurrentCell(row, hospNum);
    }
}

// ---- edit entry

/// The age follows a date that was changed; one that stood already keeps the age that is on file.
void frmWalkInMaster::dtpBirthDate_LostFocus() {
    const std::optional<base::DateTime> born = m_ui->dtpBirthDate->date();
    if (m_ui->dtpBirthDate->Text() == m_shownBirthDate || !born || *born > base::today())
        return;
    m_shownBirthDate = m_ui->dtpBirthDate->Text();
    m_ui->txtAge->setText(QString::number(frmAddWalkIn::CalcAge(*born)));
}

void frmWalkInMaster::cmdZipCode_Click() {
    ado::Recordset address = session::Read(
        sql("SELECT * FROM BUILD_FILE..tbCoAddress WHERE Zipcode = '{}'", m_ui->txtZipCode->text()));
    const bool found = !address.Eof();
    if (found)
        m_ui->lblTown->setText(Trim(address.Fields("Town").text()) + QStringLiteral(", ") +
                               Trim(address.Fields("Province").text()));
    address.Close();
    if (found) {
        m_ui->cmdSave->setFocus();
    } else {
        m_ui->lblTown->setText(QStringLiteral("No town has this zip code."));
        m_ui->txtZipCode->setFocus();
        controls::SelectAllText(m_ui->txtZipCode);
    }
}

void frmWalkInMaster::cmdCancel_Click() {
    m_ui->ssWalkIn->setCurrentIndex(searchEntry);
    m_ui->ssWalkIn->setTabEnabled(editEntry, false);
    m_ui->bandHeader->setChips({});
    backToSearch();
}

// ---- save

void frmWalkInMaster::cmdSave_Click() {
    dtpBirthDate_LostFocus(); // the command's letter leaves no field
    if (!isLikely())
        return;
    const QString number = Trim(m_ui->txtHospNum->text());
    if (!writePatient()) {
        refuseField(m_ui->txtLastName, QStringLiteral("The patient %1 is not on file any more.").arg(number));
        return;
    }
    controls::MsgBox(QStringLiteral("Record Saved."), controls::vbInformation);
    search();
    goToPatient(number);
    cmdCancel_Click();
}

bool frmWalkInMaster::isLikely() {
    if (!areGiven(
            {{m_ui->txtFirstName, "Please enter firstname."}, {m_ui->txtLastName, "Please enter lastname."}}))
        return false;
    if (!areWithin({{m_ui->txtLastName, "Lastname", mostOfName},
                    {m_ui->txtFirstName, "Firstname", mostOfName},
                    {m_ui->txtMiddleName, "Middlename", mostOfName},
                    {m_ui->txtAddress1, "House and street", mostOfAddress},
                    {m_ui->txtAddress2, "Barangay", mostOfAddress},
                    {m_ui->txtZipCode, "Zip code", mostOfZipCode}}))
        return false;
    return isLikelyBirthDate(m_ui->dtpBirthDate) && isLikelyAge(m_ui->txtAge);
}

bool frmWalkInMaster::writePatient() {
    const Hourglass busy;
    ado::Recordset patient = session::ReadForUpdate(
        sql("SELECT * FROM PATIENT_DATA..tbCashPatient WHERE hospnum='{}'", Trim(m_ui->txtHospNum->text())));
    const bool found = !patient.Eof();
    if (found) {
        const auto set = [&](const char* field, const base::Value& value) {
            patient.Fields(field).setValue(value);
        };
        set("LastName", m_ui->txtLastName->text());
        set("FirstName", m_ui->txtFirstName->text());
        set("MiddleName", m_ui->txtMiddleName->text());
        const std::optional<base::DateTime> born = m_ui->dtpBirthDate->date();
        set("BirthDate", born ? base::Value(*born) : base::Value());
        set("Age", m_ui->txtAge->text());
        set("Sex", m_ui->cmbSex->currentText().left(1));
        const int status = m_ui->cmbCivil->currentIndex();
        set("Civilstatusid", status < 0 ? QString() : QString::number(status));
        set("HouseStreet", m_ui->txtAddress1->text());
        set("Barangay", m_ui->txtAddress2->text());
        // A code that was never shown is not lost by what was typed beside it.
        if (m_listHasZipCodes || m_ui->txtZipCode->isModified())
            set("ZipCode", m_ui->txtZipCode->text());
        patient.Update();
    }
    patient.Close();
    return found;
}

} // namespace lookup
