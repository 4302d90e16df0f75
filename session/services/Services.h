#pragma once

#include "platform/ado/Connection.h"
#include "platform/base/Value.h"

#include <QString>

#include <functional>
#include <memory>

namespace session {

/// Upper-cases key codes.
class KeyPress {
  public:
    /// The key code, upper-cased.
    int AllUppers(int keyCode) const;
};

struct DoctorRef {
    QString Code;
    QString CompleteName; ///< "DR. FIRST MIDDLE LAST"; "" without a doctor
};

struct PatientHistory {
    QString Height;
    QString Weight;
};

/// The master data of one patient; the record last loaded.
class clsPatientMaster {
  public:
    /// False when there is no such patient; the members are then empty.
    bool LoadPatient(const QString& hospitalNumber);
    QString LastName, FirstName, MiddleName;
    QString Sex, BloodType, HospitalNumber;
    QString HouseStreet, Barangay, Town, Province;
    QString Address;       ///< house, barangay, town and province as they are there, joined by ", "
    QString Account;       ///< as clsAdmission::Account
    QString Age;           ///< whole years today; "" without a birth date
    base::Value BirthDate; ///< date, or Null
};

/// One stay of a patient; the record last opened.
class clsAdmission {
  public:
    /// False when there is no such admission; the members are then empty.
    bool OpenAdmission(const QString& idNumber);
    clsPatientMaster Patient;
    QString HospitalNumber, IdNumber, Room;
    base::Value AdmissionDate; ///< date, or Null
    base::Value dischargeDate; ///< date, or Null
    base::Value BillingDate;   ///< date, or Null; a set date means that the bill is closed
    DoctorRef AttendingDoctor1;
    /// "number - company" as shown; " - " when the patient pays personally.
    QString Account;
    QString AccountNumber;
    QString Company; ///< of the account; "" when the patient pays personally
    PatientHistory History;
};

class clsRegistry {
  public:
    /// Joins the session's connection with that connection string. Raises 3709 when there is none.
    void OpenConnection(const QString& connectionString);
    clsAdmission& admission() { return m_admission; }
    clsPatientMaster& patientMaster() { return m_patientMaster; }

  private:
    clsAdmission m_admission;
    clsPatientMaster m_patientMaster;
};

/// Patient validation, for the ledger.
class clsCensusFind {
  public:
    /// False when the connection cannot be joined; `status` then tells why.
    bool InitConnection(const QString& connectionString, QString& status);
    bool ValidatePatient(const QString& hospitalNumber);
    bool ValidateAdmission(const QString& idNumber);
    QString Account;
    clsAdmission Admission;
    clsPatientMaster PatientMaster;
    QString LastName, FirstName, MiddleName, HospitalNumber, IdNumber, HouseStreet, Barangay, Town, Province,
        Room;
    base::Value AdmissionDate, dischargeDate;

  private:
    void takePatient(const clsPatientMaster& patient);
};

struct DoctorRecord {
    QString ResultCode, LastName, FirstName, MiddleName;
};
struct NuclearExamRecord {
    QString ResultCode, NuclearExam, Fixrate;
    base::Value RateA, RateB, RateC, RateD, RateE, RateH,
        Outpatient; ///< numbers; Null where the file has none
};
struct DosageRecord {
    QString ResultCode;
    QString Frequency; ///< times a day
};
struct AddressRecord {
    QString ResultCode, Town, Province;
};

/// The code search dialog.
class clsLookupPad {
  public:
    static constexpr int towns = 0;
    static constexpr int doctors = 1;
    static constexpr int dosages = 16;
    static constexpr int exams = 20; ///< exams of OtherSectionID

    QString MTS_Server;
    QString CompanyName;
    bool SearchMode = true; ///< False: never a dialog, only a complete code is accepted
    QString OtherSectionID;
    /// What the caller's line would cost with an exam; the list of exams shows it while it is set. It sends
    /// nothing to the server.
    std::function<double(const session::NuclearExamRecord&)> ExamPrice;
    void Initialize_Classes();
    void setConnection(ado::Connection& connection) { m_connection = &connection; }
    /// True when a row was chosen: a code that is complete is taken at once, else the list opens (in
    /// SearchMode).
    bool SearchListing(const QString& searchText, int listingCode);
    bool Cancelled() const { return m_cancelled; }
    QString ResultCode, LastName, FirstName, MiddleName;
    session::DoctorRecord DoctorRecord;
    session::NuclearExamRecord NuclearExamRecord;
    session::AddressRecord AddressRecord;
    session::DosageRecord DosageRecord;

  private:
    void forgetRecords();
    void takeRecord(ado::Recordset& row, int listingCode);

    ado::Connection* m_connection = nullptr;
    bool m_cancelled = false;
};

struct ListedPatient {
    QString IdNumber, HospitalNumber, LastName, FirstName, MiddleName, RoomClassID, RoomID, Sex, Age;
    base::Value BirthDate;
    QString Company;     ///< of the account; "" when the patient pays personally
    QString AttendingDr; ///< "LAST, FIRST MIDDLE"; "" without one
};

/// The department's patient lists.
class clsDeptFind {
  public:
    static constexpr int confinedPatients = 205;
    static constexpr int outPatients = 204;

    QString Hospital;
    QString RevenueID;
    void Initialize_Classes();
    void InitConnection(ado::Connection& connection) { m_connection = &connection; }
    bool PatientListing(const QString& searchText, int listingCode, bool showList);
    bool Cancelled() const { return m_cancelled; }
    ListedPatient Inpatient;
    ListedPatient Outpatient;

  private:
    ado::Connection* m_connection = nullptr;
    bool m_cancelled = false;
};

/// The pick list of medicines (DrugsORCSR) and supplies.
class clsFormulist {
  public:
    bool DrugsORCSR = false; ///< True: medicines; False: supplies
    bool InitConnection(ado::Connection& connection);
    /// The chosen item's code or "". A complete code is taken without a dialog. `stockLocation` takes the
    /// location of the item when it was empty.
    QString ShowList(QString& searchText, bool showList, QString& stockLocation);
    /// Title of the next list; "" for the list's own.
    QString ListTitle;
    static constexpr const char* centralSupply = "21";
    /// The same for the hospital's own stores, whatever DrugsORCSR says: medicines, or, of `store`
    /// centralSupply, the supplies that lie there.
    QString ShowList(const QString& searchText, const QString& store = {});

  private:
    ado::Connection* m_connection = nullptr;
};

struct Invent {
    double SellingPriceIn = 0;
    double SellingPriceOut = 0;
};

/// One movement of the stock card, in the order of its 22 arguments.
struct StockCardEntry {
    QString hospitalNumber, admissionNumber, itemCode;
    QString dateTime; ///< "MM/dd/yyyy hh:mm"
    QString chargeSlip;
    double quantity = 0;
    int argument7 = 0;
    double amount = 0;
    QString employeeCode;
    QString dispensing; ///< "PRN"
    QString room, stockDepartment, argument13, extra;
    int argument15 = 0;
    QString stockClass16, stockClass17, argument18;
    // 19 to 21 are left out
    QString argument22; ///< "O"
};

/// Where an item lies; callers have it as a text or as a number. Without one: anywhere.
struct StockLocation {
    StockLocation() = default;
    StockLocation(const QString& code) : text(code) {}
    StockLocation(int number) : text(QString::number(number)) {}
    QString text;
};

class clsDrug {
  public:
    static constexpr int pharmacy = 20; ///< the hospital's own store of medicines

    /// False when the item is not on file there; the members are then empty.
    bool SearchDrug(const QString& code, const StockLocation& at);
    QString DrugCode, DrugName;
    bool Status = false; ///< True: the item is out of use
    session::Invent Invent;
    void AppendStockCard(const StockCardEntry& entry);

  private:
    friend class clsDispense;
    ado::Connection* m_connection = nullptr;
};

class clsDispense {
  public:
    bool InitConnect(ado::Connection& connection);
    clsDrug Drug;
};

} // namespace session
