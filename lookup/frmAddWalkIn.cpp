#include "lookup/frmAddWalkIn.h"

#include "lookup/WalkInChecks.h"
#include "platform/base/Conversion.h"
#include "platform/controls/fields/EnterKey.h"
#include "platform/controls/fields/KeyFilter.h"
#include "platform/controls/look/Look.h"
#include "session/Session.h"
#include "session/WorkDone.h"
#include "session/services/Services.h"
#include "ui_frmAddWalkIn.h"

#include <array>

namespace lookup {

using ado::sql;
using controls::KeyRule;
using controls::on;

frmAddWalkIn::frmAddWalkIn(QWidget* parent) : Screen(parent), m_ui(std::make_unique<Ui::frmAddWalkIn>()) {
    m_ui->setupUi(this);
    setEscapeCloses(true);
    controls::look::setPrimary(m_ui->btnSave);
    for (QLineEdit* name : {m_ui->txtLastName, m_ui->txtFirstName, m_ui->txtMiddleName, m_ui->txtHouse,
                            m_ui->txtBarangay, m_ui->txtZipCode})
        controls::setKeyRules(name, KeyRule::UpperCase | KeyRule::BackQuote);
    refuseLetters(m_ui->txtAge);
    connectControls();
}

frmAddWalkIn::~frmAddWalkIn() = default;

void frmAddWalkIn::connectControls() {
    controls::enterMovesOn({m_ui->txtLastName, m_ui->txtFirstName, m_ui->txtMiddleName, m_ui->txtAge,
                            m_ui->optSex_0, m_ui->optSex_1, m_ui->optCivil_0, m_ui->optCivil_1,
                            m_ui->optCivil_2, m_ui->optCivil_3, m_ui->optCivil_4, m_ui->optCivil_5,
                            m_ui->txtHouse, m_ui->txtBarangay});
    likelyDateMovesOn(m_ui->mskBdate);
    on(m_ui->mskBdate, &QLineEdit::editingFinished, this, [this] { mskBdate_LostFocus(); });
    controls::onEnter(m_ui->txtZipCode, [this] { cmdTown_Click(); });
    // A code that is being changed has no town any more.
    on(m_ui->txtZipCode, &QLineEdit::textEdited, this, [this] { m_ui->lblTown->clear(); });
    on(m_ui->cmdTown, &QPushButton::clicked, this, [this] { cmdTown_Click(); });
    on(m_ui->btnSave, &QPushButton::clicked, this, [this] { btnSave_Click(); });
    on(m_ui->btnCancel, &QPushButton::clicked, this, [this] { Unload(); });
}

void frmAddWalkIn::Form_Load() {
    m_ui->lblTown->clear();
    m_ui->txtLastName->setFocus();
}

// ---- birth date and age

int frmAddWalkIn::CalcAge(base::DateTime birthDate) {
    return base::calendarDate(base::today()).year - base::calendarDate(birthDate).year;
}

void frmAddWalkIn::mskBdate_LostFocus() {
    const std::optional<base::DateTime> birthDate = m_ui->mskBdate->date();
    if (birthDate && *birthDate <= base::today())
        m_ui->txtAge->setText(QString::number(CalcAge(*birthDate)));
}

// ---- town

void frmAddWalkIn::cmdTown_Click() {
    session::gCodeFind->SearchMode = true;
    if (!session::gCodeFind->SearchListing(m_ui->txtZipCode->text(), session::clsLookupPad::towns)) {
        m_ui->txtZipCode->setFocus();
        return;
    }
    const session::AddressRecord& address = session::gCodeFind->AddressRecord;
    m_ui->txtZipCode->setText(session::gCodeFind->ResultCode);
    m_ui->lblTown->setText(address.Town + QStringLiteral(", ") + address.Province);
    m_ui->btnSave->setFocus();
}

// ---- save

void frmAddWalkIn::btnSave_Click() {
    if (!isComplete() || !isLikely())
        return;
    const Hourglass busy;
    session::gConnection->BeginTrans();
    const QString number = takeNumber();
    savePatient(number);
    session::gConnection->CommitTrans();
    NewEntry = true;
    IdNum = number;
    session::tellDone({.work = session::Work::WalkIn,
                       .number = number,
                       .patient = QStringLiteral("%1, %2 %3")
                                      .arg(m_ui->txtLastName->text(), m_ui->txtFirstName->text(),
                                           m_ui->txtMiddleName->text())});
    Unload();
}

bool frmAddWalkIn::isComplete() {
    return areGiven({{m_ui->txtFirstName, "Please enter firstname."},
                     {m_ui->txtLastName, "Please enter lastname."},
                     {m_ui->txtMiddleName, "Please enter middlename."},
                     {m_ui->txtAge, "Please enter age."}});
}

bool frmAddWalkIn::isLikely() {
    if (!areWithin({{m_ui->txtLastName, "Lastname", mostOfName},
                    {m_ui->txtFirstName, "Firstname", mostOfName},
                    {m_ui->txtMiddleName, "Middlename", mostOfName},
                    {m_ui->txtHouse, "House and street", mostOfAddress},
                    {m_ui->txtBarangay, "Barangay", mostOfAddress},
                    {m_ui->txtZipCode, "Zip code", mostOfZipCode}}))
        return false;
    return isLikelyBirthDate(m_ui->mskBdate) && isLikelyAge(m_ui->txtAge);
}

/// The next number of the series, which is advanced by it.
QString frmAddWalkIn::takeNumber() {
    ado::Recordset last = session::ReadForUpdate(sql("SELECT * FROM PATIENT_DATA..tbLastWalkInNum"));
    const QString lastNumber = last.Fields("lastopd").text();
    const int number = base::CLng(base::Value(base::Val(lastNumber.mid(1)) + 1));
    const QString hospitalNumber = base::Trim(base::Trim(lastNumber.left(1)) + QString::number(number));
    last.Fields("lastopd").setValue(hospitalNumber);
    last.Fields("transnum").setValue(number);
    last.Update();
    last.Close();
    return hospitalNumber;
}

void frmAddWalkIn::savePatient(const QString& number) {
    const std::array civil = {m_ui->optCivil_0, m_ui->optCivil_1, m_ui->optCivil_2,
                              m_ui->optCivil_3, m_ui->optCivil_4, m_ui->optCivil_5};
    const auto ticked = std::find_if(civil.begin(), civil.end(), [](auto* o) { return o->isChecked(); });
    ado::Recordset patient =
        session::Read(sql("SELECT * FROM PATIENT_DATA..tbCashPatient WHERE hospnum='{}'", number));
    // The number is new unless the series was set back.
    const bool isNew = patient.Eof();
    patient.Close();
    session::Run(sql("spNuclearaddcashpatient '{}','{}','{}','{}','{}','{}','{}','{}','{}','{}','{}','{}'",
                     isNew ? "0" : "1", number, m_ui->txtLastName->text(), m_ui->txtFirstName->text(),
                     m_ui->txtMiddleName->text(), m_ui->txtHouse->text(), m_ui->txtBarangay->text(),
                     m_ui->txtZipCode->text(), m_ui->optSex_0->isChecked() ? "M" : "F",
                     QString::number(ticked - civil.begin()),
                     m_ui->mskBdate->isEmpty() ? QString() : m_ui->mskBdate->Text(), m_ui->txtAge->text()));
}

} // namespace lookup
