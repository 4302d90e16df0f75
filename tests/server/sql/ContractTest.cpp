#include "tests/server/sql/Hospital.h"

#include "platform/base/Error.h"

#include <QDir>
#include <QRegularExpression>
#include <QSet>

namespace {

/// How a screen calls a procedure, and the columns that it gets. `<adm>`, `<out>`, `<hosp>`, `<cash>`,
/// `<request>`,
/// `<slip>`, `<or>`, `<prepaid>` and `<notice>` stand for numbers of the demo hospital.
struct Contract {
    const char* call;
    /// As the server gives them, in order; "" for a procedure that only writes.
    const char* columns;
};

constexpr const char* regularColumns = "HospNum;LastName;FirstName;MiddleName;AdmDate;Sex;BirthDate;Age;"
                                       "HouseStreet;Barangay;Town;Province;CivilStatus";
constexpr const char* cashColumns =
    "HospNum;LastName;FirstName;MiddleName;CivilStatusID;CivilStatus;Sex;BirthDate;Age;"
    "HouseStreet;Barangay;Town;Province;ZipCode";
constexpr const char* outColumns =
    "IdNum;LastName;FirstName;MiddleName;AdmDate;HospNum;AccountNum;Company;DcrDate;"
    "BillingDate;Sex;BirthDate;Age;HouseStreet;Barangay;Town;Province;CivilStatus;"
    "InvoiceNumber;LateCharges;OPDStatus";
constexpr const char* listColumns =
    "Hosp.No.;Adm.No.;Patient Name;Billed Date;Charging Status;NucStatus;DcrDate";
constexpr const char* lineColumns = "RevenueID;ItemID;Exam;Amount;Quantity;RequestNum";
constexpr const char* checkColumns =
    "ID;IdNum;RequestNum;ItemID;referencenum;RecordStatus;processby;processdate";
constexpr const char* masterColumns = "HospNum;LastName;FirstName;MiddleName;RequestNum";
constexpr const char* requestColumns = "RequestNum;ExamDate;ItemID;NucExam;ResultDate;FileNumber;RefNum";
constexpr const char* inquiryColumns = "Receipt #;Payment From;transaction Date;Amount;Transaction Type";
constexpr const char* packageItemColumns = "Hidden;Mark;Code;Revenue;Description;Qty;Amt;Location;ItemStatus";
constexpr const char* monthlyColumns =
    "TransDate;RefNum;IdNum;HospNum;PatientKind;PatientName;ItemID;Description;Quantity;Amount;DoctorName";
constexpr const char* incomeColumns =
    "TransDate;RefNum;PatientKind;PatientName;ItemID;Description;Quantity;Amount;RevenueID";

constexpr Contract contracts[] = {
    {"STATION..Nurse_CheckExamStatus '<adm>','30001','PH'",
     "LogBookID;RequestNum;ItemID;Description;RequestDate;UserID"},
    {"STATION..Nurse_CheckExam_Posted '<adm>','30001','PH'",
     "LogBookID;RequestNum;ItemID;Description;ProcessDate;ProcessBy"},
    {"sp_Nuclear_DeleteRevokedData", ""},
    {"Patient_Data..sp_adm_censusallpatient '2026/11/21',''",
     "RoomClassID;RoomID;Station;IdNum;HospNum;PatientName;Age;Sex;AdmDate;DcrDate;DoctorName;Company"},
    {"PATIENT_DATA..sp_adm_censusbystation '2026/11/21',''",
     "StationID;Station;RoomID;RoomClassID;IdNum;HospNum;PatientName;Age;Sex;AdmDate;DcrDate;DoctorName;"
     "Company"},
    {"sp_Nuclear_NurseCommunication",
     "RequestDate;Adm.No.;Patient Name;RoomID;ExamCode;Exam Description;Remarks;UserID;"
     "PatientType;RequestNum;HospNum;Classification"},
    {"NUCLEAR..sp_Nuclear_PrepaidCheckRequest 'NU'", "RequestNum;RefNum;IdNum"},
    {"Nuclear..spNuclear_LoadDischargeNoticeCount", "recCount"},
    {"NUCLEAR..spNuclear_GetSavedUserRights '1001'", ""},
    {"NUCLEAR..spNuclear_SaveUserRights '1007','|1|2','1001'", ""},
    {"NUCLEAR..spNuclear_SaveProgramSettings 'A','0','NEW RIGHT','A'", ""},
    {"NUCLEAR..spNuclear_SearchProgramAccess ''", "ItemID;Description;Status"},
    {"NUCLEAR..spNuclear_SearchNuclearUsers '5',''", "Employee Code;Employee Name;Position"},
    {"BUILD_FILE..spBuild_LogUserUpdate '1001','User Rights','SAVE/EDIT USER RIGHTS; EmployeeCode:1002'", ""},
    {"spGlobal_RegularPatients '','1', '<hosp>'", regularColumns},
    {"spGlobal_RegularPatients '0','0','S'", regularColumns},
    {"spGlobal_RegularPatients '1','0',''", regularColumns},
    {"spGlobal_CashPatient '0', 'S'", cashColumns},
    {"spGlobal_CashPatient '1', '<cash>'", cashColumns},
    {"spGlobal_RegisteredOPD '0','1', '<out>'", outColumns},
    {"spGlobal_RegisteredOPD '1','0', ''", outColumns},
    {"spGlobal_RegisteredOPD '0','0', 'S'", outColumns},
    {"sp_Nuclear_SearchRevenue '1','NU'", "RevenueID;Revenue;WithItems;SearchInventory;LocationID;InvCode"},
    {"sp_Nuclear_SearchRevenue '2','N'", "recCount"},
    {"spNuclear_SearchRevenue '0',''", "Revenue;RevenueID"},
    {"spNuclear_SearchRevenue '1','NU'", "RevenueID;Revenue;WithItems;SearchInventory;LocationID;InvCode"},
    {"spNuclear_LoadExamEntry '1001'",
     "RevenueID;ExamID;Exam;SectionID;Section;RateA;RateB;RateC;RateD;RateE;Status;Classification"},
    {"sp_Nuclear_getpatientbylastname 'I','S'", listColumns},
    {"sp_Nuclear_getpatientbyfirstname 'I','S',' A'", listColumns},
    {"sp_Nuclear_getpatientbyidnum 'I','<adm>'", listColumns},
    {"sp_Nuclear_getpatientbyhospnum 'I','<hosp>'", listColumns},
    {"sp_Nuclear_getpatientbylastname 'O','S'", listColumns},
    {"spNuclearaddcashpatient '0','W9001','CRUZ','JUAN','D','1 RIZAL AVE','CENTRO','1000','M','1','','40'",
     ""},
    {"spNuclearsearchoutpatient '<out>'", "IdNum;HospNum;AdmDate;doctorid1;AccountNum"},
    {"sp_Nuclear_searchoutpatient '<out>'",
     "IdNum;HospNum;LastName;FirstName;MiddleName;Sex;BirthDate;BloodType;Age;AdmDate;"
     "doctorid1;DoctorName;AccountNum;Company;Height;Weight;BillingDate;LateCharges"},
    {"spNuclearsearchcashpatient '<cash>'", "HospNum;LastName;FirstName;MiddleName;Age;Sex;BirthDate"},
    {"Nuclear..sp_Nuclear_commsearchexam '<adm>','A'", lineColumns},
    {"spNuclearcommsearchexam '<out>'", lineColumns},
    {"sp_Nuclear_getcashexam '<or>'", "ItemID;Exam;Quantity;Amount"},
    {"spNuclear_PackageList", "PackageName"},
    {"spNuclear_ShowPackage '','A'", "RevenueID;ItemID;Exam;Quantity;Price;Amount"},
    {"sp_Nuclear_IncRefNum", ""},
    {"sp_Nuclear_IncRequestNum", ""},
    {"sp_Nuclear_AddRequest '104001','<adm>','90001', '1001','5200','204','I', 'C1J','1001','90001','','1', "
     "'','NU'",
     ""},
    {"sp_checknursecommunicationfile '0','I','NU','1001','<adm>','7000001'", checkColumns},
    {"sp_checknurselogbook '1','I','<adm>','NU','1001','7000001'", checkColumns},
    {"sp_addnurselogbook '104001','<adm>', '1001','BONE SCAN','5200', '1001','1001', "
     "'C1J','NU','I','90001','1'",
     ""},
    {"sp_addbill 'I','<adm>','11/21/2026 08:30:00 AM','C1J', '1001','5200','NU','1001','1','','', '104001'",
     ""},
    {"STATION..sp_Save_PackageItems_Unused '<adm>','N01','1005','NU','1','2900','','1001','C1J'", ""},
    {"sp_Nuclear_DumpChargeSlip '1001','BONE SCAN','1','5200','5200', '1001', 'NU'", ""},
    {"INVENTORY..sp_AppendStockCard '104001','<adm>','30001','11/21/2026 "
     "08:30','C1J',1,0,48.5,'1001','PRN','201','179','',"
     "'',0,'PH','PH','',NULL,NULL,NULL,'O'",
     ""},
    {"RADIOLOGY..Radiology_CheckIfHMO '<out>'", "AccountNum"},
    {"spNuclear_CheckCashAsses 'NU','1001','NU5001'", "AssessID;RefNum;ItemID"},
    {"spNuclear_AddCashAsses 'W1001','','CRUZ, JUAN D','11/21/2026 08:30:00 AM', 'NU9999','1001','5200', "
     "'1001','NU7777','NU'  "
     ",'', '204','1'",
     ""},
    {"sp_Nuclear_ReportResult '<adm>','<request>'",
     "PatientName;Sex;BirthDate;Age;Address;RoomID;Company;ExamDate;NucExam;IsRevoked;RequestNum;"
     "HospNum;IdNum;CaseNumber;ItemID;ResultDate;Dose;Radiopharmaceutical;Route;Projections;"
     "Protocol;Isotope;Interpretation;Conclusion;ClinicalHistory;Technique;StressDetails;"
     "StressImages;RestingImages;QuantitativeData;FractionRest;FractionStress;EDVRest;EDVStress;"
     "ESVRest;ESVStress;SVRest;SVStress;WallMotionRest;WallMotionStress;Left1;Left2;Left3;Left4;"
     "Left5;Left6;Left7;Right1;Right2;Right3;Right4;Right5;Right6;Right7;Scale;Weight;Height;"
     "Remarks;AttendingDoc;Cardiologist;RequestDoc;Encoder"},
    {"sp_Nuclear_ReportResultRadio '<adm>','<request>'",
     "PatientName;Sex;BirthDate;Age;Address;RoomID;Company;ExamDate;NucExam;IsRevoked;RequestNum;"
     "HospNum;IdNum;CaseNumber;ItemID;ResultDate;Dose;Radiopharmaceutical;Route;Projections;"
     "Weight;Height;Technologist;Calcitonin;AntiTG;TG;AntiTPO;TSH;FreeT4;FreeT3;T4;T3;"
     "Progesterone;Cortisol;DHEA;HGH;HLH;HFSH;AFP;BHCG;PSA;Osteocalcin;CPeptide;SHBG;Insulin;"
     "SecondCalcitonin;SecondAntiTG;SecondTG;SecondAntiTPO;SecondTSH;SecondFreeT4;SecondFreeT3;"
     "SecondT4;SecondT3;SecondProgesterone;SecondCortisol;SecondDHEA;SecondHGH;SecondHLH;"
     "SecondHFSH;SecondAFP;SecondBHCG;SecondPSA;SecondOsteocalcin;SecondCPeptide;SecondSHBG;"
     "SecondInsulin;AttendingDoc;RequestDoc;Encoder"},
    {"sp_Nuclear_RequestMaster ''", masterColumns},
    {"sp_Nuclear_getRequest '<hosp>'", requestColumns},
    {"sp_Nuclear_ResultMaster ''", masterColumns},
    {"sp_Nuclear_GetResult '<hosp>'", requestColumns},
    {"sp_Nuclear_ResultEntry '<request>'", "RequestNum;LastName;FirstName;MiddleName;Company;Address;Age;"
                                           "BirthDate;TransDate;HospNum;IdNum;RoomID;Sex;"
                                           "AttendingDocCode;AttendingDocName;CardiologistCode;Cardiologist;"
                                           "requestdoccode;RequestDocName;ItemID;NucExam;PatientType;"
                                           "RefNum;NurseRequestNum;requeststatus"},
    {"sp_Nuclear_FileResult "
     "'<request>','26-90001','104001','<adm>','I','1001','201','204','1001','11/21/2026 8:30:00 AM'",
     ""},
    {"sp_Nuclear_SaveResult '104001','<adm>','<request>','26-90002','I','201','204','1001','5 "
     "mCi','MDP','IV','AP','TEXT','NORMAL',"
     "'NONE','60','165','1001','11/21/2026 8:30:00 AM',''",
     ""},
    {"sp_Nuclear_SaveResultMPI "
     "'104001','<adm>','<request>','26-90003','I','204','204','1024','MIBI','BRUCE','','','','','','',"
     "'60|65','|','|','|','|','NORMAL','60','165','1001','11/21/2026 8:30:00 AM',''",
     ""},
    {"sp_Nuclear_SaveResultGFR "
     "'104001','<adm>','<request>','26-90004','I','201','204','1101','5','DTPA','IV','P','60','165','1001',"
     "'11/21/2026 8:30:00 AM','TC', '1', '2', '3', '4', '5', '6', '7', '8','9','10','11','12', '13','14', "
     "'98'",
     ""},
    {"sp_Nuclear_SaveResultRadio "
     "'104001','<adm>','<request>','26-90005','I','201','204','1201','5','','','','60','165','1001',"
     "'11/21/2026 8:30:00 "
     "AM','1','2','3','4','5','6','7','8','9','10','11','12','13','14','15','16','17','18','19','20','21','"
     "21',"
     "'n1','n2','n3','n4','n5','n6','n7','n8','n9','n10','n11','n12','n13','n14','n15','n16','n17','n18','"
     "n19','n20','n21','n22',"
     "'TECH'",
     ""},
    {"sp_Nuclear_CancelResult '<request>'", ""},
    {"sp_Nuclear_CancelNurseRequest '<adm>','7000001'", ""},
    {"sp_Nuclear_CashLink ''",
     "OrNumber;PatientName;Exam;TransDate;Amount;UserID;DoctorID;Requesting Doctor"},
    {"NUCLEAR..sp_Nuclear_PrepaidSearchRequest 'NU'",
     "Patient Name;Exam;TransDate;HospNum;IdNum;RequestNum;RefNum"},
    {"NUCLEAR..sp_Nuclear_GetPrepaidPatientInfo '<prepaid>'",
     "IdNum;RefNum;HospNum;LastName;FirstName;MiddleName;Age;Sex;RoomID;RoomClassID;HouseStreet;Barangay;"
     "ZipCode;Town;Province;"
     "DoctorName"},
    {"NUCLEAR..sp_Nuclear_RequestFormInfo '<prepaid>', '<out>'",
     "Code;Exam;Quantity;Amount;TransDate;UserID;RequestNum;RefNum"},
    {"sp_Nuclear_ReportRequestForm '<prepaid>'", "RefNum;RequestNum;IdNum;HospNum;PatientName;Age;Sex;"
                                                 "BirthDate;RoomID;HouseStreet;Barangay;Town;Province;"
                                                 "DoctorName;TransDate;ItemID;Exam;Quantity"},
    {"NUCLEAR..sp_Nuclear_PrepaidUpdatePrintStatus '<prepaid>'", ""},
    {"sp_Nuclear_GetCancelRequest_new'S',1", "Last Name;First Name;Middle Name;RoomID;Exam;Trans. "
                                             "Date;RequestNum;UserID;Hosp. No.;Adm. No.;RefNum;RevenueID;"
                                             "NurseRequestNum;ItemID;Request No."},
    {"sp_Nuclear_getCancelRequest_new '<request>', 4 ",
     "Last Name;First Name;Middle Name;RoomID;Exam;Trans. Date;RequestNum;UserID;Hosp. No.;Adm. "
     "No.;RefNum;RevenueID;"
     "NurseRequestNum;ItemID;Request No."},
    {"spGlobal_CashUpdate '<or>','NU','1001',''", ""},
    {"CARDIO..spGlobal_CashUpdate '<slip>','NU','1001',''", ""},
    {"sp_Nuclear_MarkCancelled '<slip>','<adm>','1001'", ""},
    {"sp_AppendStockCard 'PC','104001','<adm>','30001','11/21/2026 08:30:00 AM','PC', "
     "'<slip>','2','-97','1001','PRN','179'",
     ""},
    {"sp_Nuclear_ChargesbyPatient '<adm>'",
     "RefNum;TransDate;ItemID;Description;Quantity;Amount;UserID;requestdoctorname"},
    {"sp_Nuclear_ChargesbySlip '<slip>','1001','1001'", ""},
    {"sp_Nuclear_AssessmentStatus ''", "PatientName;Code;Exam;Quantity;RefNum;Amount;Status;RecordStatus;"
                                       "AssessID;IdNum;RevenueID;RequestDoctor"},
    {"sp_Nuclear_RevokeAssessment '2'", ""},
    {"RADIOLOGY..spGlobal_BilledPatients 'S'", "HospNum;IdNum;LastName;FirstName;MiddleName;RoomID;AdmDate;"
                                               "DcrDate;BillingDate;LateCharges;Sex;BirthDate;Age;DoctorID1;"
                                               "AccountNum;HouseStreet;Barangay;Company;InvoiceNumber"},
    {"Laboratory..Lab_GetAge '11/22/1980'", "Age"},
    {"Nuclear..spGetNuclearCharges '<adm>'",
     "Department;Code;ChargeSlip #;Particular;Price;Quantity;Amount;Transdate;UserName"},
    {"STATION..Nurse_AppendNurseLogBook '104001','<adm>','I','30001','48.5','1','PRN','PH','11/21/2026 "
     "08:30:00 AM','PH','204','',"
     "'1001','','FUROSEMIDE','NU','N','','0','0','0',0",
     ""},
    {"STATION..sp_Get_AdmPackages 11", "Mark;Code;Description;GrossAmount"},
    {"STATION..sp_Get_ADMPackage_Items 'P11'", packageItemColumns},
    {"Nuclear..sp_Get_nucPackages 11", "Mark;Code;Description;GrossAmount"},
    {"Nuclear..sp_Get_nucPackage_Items 'N01'", packageItemColumns},
    {"Nuclear..Help_SearchNucPackage '3',''", "Code;Description;Status"},
    {"Nuclear..sp_Nuclear_Insert_Update_Package 'N09', 'NEW PACKAGE', '1'", ""},
    {"build_file..sp_Bui_Find_Revenue_Center_Items 'NU'",
     "Dummy;NucExam;NucExamID;NucSectionID;RateA;RateB;RateC;RateD;RateE;Fixrate;Status"},
    {"build_file..sp_Bui_Show_Item_Details 'NU','1001'",
     "NucExamID;NucExam;RateA;RateB;RateC;RateD;RateE;common;Status;Fixrate;MedicareType;NucSectionID"},
    {"sp_Bui_Find_Last_Item_Number 'NU'", "lastnumber"},
    {"sp_Bui_Insert_Item 'NU','1305','NEW EXAM','1','2','3','4','5','Y','A','N','Y'", ""},
    {"build_File..sp_Bui_Update_Item_Details 'NU','1001','BONE SCAN','1','2','3','4','5','Y','A','N','Y'",
     ""},
    {"Nuclear..spNuclear_LoadDischargeNotice ",
     "PatientName;RoomID;IdNum;DischargeNurse;NoticeDate;ClearDate"},
    {"RADIOLOGY..spRadio_PendingRequestPatient '<adm>','NU'",
     "CommunicationID;RequestNum;ItemID;RequestDate"},
    {"Nuclear..spNuclear_LoadDischargeNoticePatient '<notice>'",
     "LastName;FirstName;MiddleName;HospNum;IdNum;AdmDate;RoomID;Doctor;OrderDate;NoticeDate;DischargeNurse;"
     "Remarks;ClearDate;"
     "ClearRemarks;UserID"},
    {"Nuclear..spNuclear_GetForDischargePatientChages '<adm>'",
     "ChargeSlip#;Code;Particular;Qty;Amount;IssueDate"},
    {"Nuclear..spNuclear_ClearPatientForDischarge '<notice>','NO BALANCE','1001'", ""},
    {"NUCLEAR..sp_Nuclear_PatientLedger '<adm>','I'",
     "TransDate;RevenueID;Revenue;Kind;RefNum;ItemID;Description;Quantity;Charge;Credit;Amount"},
    {"Nuclear..spCash_InquiryList '<or>'", inquiryColumns},
    {"Nuclear..spCharge_InquiryList '<slip>'", inquiryColumns},
    {"spNuclear_GetPatientDeposit",
     "PatientName;HospNum;IdNum;TransDate;RoomID;ORNumber;Amount;Balance;UserID;RoomClassID;StationID"},
    {"NUCLEAR..sp_Nuclear_ReportTransactions '10/01/2026','11/21/2026'",
     "TransDate;RefNum;RequestNum;IdNum;HospNum;PatientKind;PatientName;RevenueID;ItemID;Description;"
     "Quantity;Amount;UserID"},
    {"NUCLEAR..sp_Nuclear_ReportMonthly '10/01/2026','11/21/2026'", monthlyColumns},
    {"NUCLEAR..sp_Nuclear_ReportMonthlyPerExam '10/01/2026','11/21/2026'", monthlyColumns},
    {"NUCLEAR..sp_Nuclear_ReportStatistics '10/01/2026','11/21/2026'",
     "ItemID;Description;Section;InPatients;OutPatients;CashPatients;Requests;Amount"},
    {"NUCLEAR..sp_Nuclear_ReportCancelled '10/01/2026','11/21/2026'",
     "RevokeDate;TransDate;RefNum;RequestNum;IdNum;HospNum;PatientKind;PatientName;ItemID;Description;"
     "Quantity;Amount;UserID;RevokedBy;RevokedByName"},
    {"NUCLEAR..sp_Nuclear_ReportRequestingDoctor '10/01/2026','11/21/2026'",
     "DoctorID;DoctorName;TransDate;RefNum;PatientKind;PatientName;ItemID;Description;Quantity;Amount"},
    {"NUCLEAR..sp_Nuclear_ReportDailyIncome 'A','11/19/2026'", incomeColumns},
    {"NUCLEAR..sp_Nuclear_ReportDailyIncome 'B','11/19/2026'", incomeColumns},
    {"NUCLEAR..sp_Nuclear_ReportAudit '10/01/2026','11/21/2026','3'",
     "PatientKind;TransDate;RefNum;RequestNum;IdNum;HospNum;PatientName;ItemID;Description;Quantity;Amount;"
     "UserID;UserName;LineStatus"},
    {"NUCLEAR..sp_Nuclear_ReportReaders '10/01/2026','11/21/2026'",
     "DoctorID;Reader;CaseNumber;ResultDate;PatientName;PatientKind;ItemID;Description;Amount;Percentage;"
     "Fee"},
    {"NUCLEAR..sp_Nuclear_CensusSummary 'PATIENT_DATA','2026/11/21'",
     "StationID;Station;ClassA;ClassB;ClassC;ClassD;ClassE;ClassOther;Patients"},
    {"CARDIO..sp_Cardio_ReportCommission 'NU','10/01/2026','11/21/2026'",
     "DoctorID;DoctorName;TransDate;RefNum;RevenueID;PatientKind;PatientName;Amount;Percentage;Commission"},
    {"CARDIO..sp_Cardio_ReportCommissionPaid 'NU','10/01/2026','11/21/2026'",
     "DoctorID;DoctorName;PaidDate;RefNum;RevenueID;ItemID;Description;Amount;UserID;UserName;PatientName"},
};

class Contracts : public tests::Hospital {
  protected:
    QString filled(const char* call) {
        QString text = QString::fromLatin1(call);
        const std::pair<const char*, const char*> marks[] = {
            {"<adm>", "SELECT TOP 1 IdNum FROM NUCLEAR..tbNucMaster WHERE IdNum NOT LIKE 'O%' AND "
                      "RequestStatus = '' ORDER BY IdNum"},
            {"<out>",
             "SELECT TOP 1 IdNum FROM PATIENT_DATA..tbOutPatient WHERE DcrDate IS NULL ORDER BY IdNum"},
            {"<hosp>",
             "SELECT TOP 1 HospNum FROM NUCLEAR..tbNucMaster WHERE RequestStatus = 'W' ORDER BY RequestNum"},
            {"<cash>", "SELECT TOP 1 hospnum FROM PATIENT_DATA..tbCashPatient ORDER BY hospnum"},
            {"<request>", "SELECT TOP 1 RequestNum FROM NUCLEAR..tbNucMaster WHERE RequestStatus = '' ORDER "
                          "BY RequestNum"},
            {"<slip>",
             "SELECT TOP 1 RefNum FROM NUCLEAR..tbNucMaster WHERE RequestStatus = '' ORDER BY RequestNum"},
            {"<or>", "SELECT TOP 1 ORNumber FROM BILLING..tbCashAssessment WHERE RecordStatus = '1' ORDER BY "
                     "AssessID"},
            {"<prepaid>",
             "SELECT TOP 1 RefNum FROM NUCLEAR..tbNucPrepaid WHERE PrintStatus = '' ORDER BY RequestNum"},
            {"<notice>", "SELECT TOP 1 IdNum FROM STATION..tbDischargeNotice ORDER BY IdNum"}};
        for (const auto& [mark, query] : marks) {
            if (text.contains(QLatin1String(mark)))
                text.replace(QLatin1String(mark), value(QString::fromLatin1(query)));
        }
        return text;
    }
};

TEST_F(Contracts, EveryProcedureTakesItsArgumentsAndGivesItsColumns) {
    for (const Contract& contract : contracts) {
        const QString text = filled(contract.call);
        QStringList names;
        try {
            for (const ado::Column& column : rows(text).columns)
                names << column.name;
        } catch (const base::RunTimeError& error) {
            ADD_FAILURE() << text.toStdString() << "\n" << error.description().toStdString();
            continue;
        }
        QString expected = QString::fromLatin1(contract.columns);
        if (contract.columns == checkColumns)
            expected.replace(QLatin1String("ID;IdNum"), text.contains(QLatin1String("logbook"))
                                                            ? QLatin1String("LogBookID;IdNum")
                                                            : QLatin1String("CommunicationID;IdNum"));
        EXPECT_EQ(names.join(u';').toStdString(), expected.toStdString()) << contract.call;
    }
}

TEST_F(Contracts, NoProcedureIsLeftOut) {
    QSet<QString> called;
    for (const Contract& contract : contracts) {
        const QString text = QString::fromLatin1(contract.call);
        const QString name = text.left(text.indexOf(QRegularExpression(QStringLiteral("['\\s]|$"))));
        const QString database = name.contains(QLatin1String("..")) ? name.section(QStringLiteral(".."), 0, 0)
                                                                    : QStringLiteral("NUCLEAR");
        called.insert((database + u'/' + name.section(QStringLiteral(".."), -1)).toUpper());
    }
    const QDir root(QStringLiteral(SCINTRA_SOURCE_DIR "/server/sql"));
    for (const QString& database : root.entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
        const QDir procedures(root.filePath(database + QStringLiteral("/procedures")));
        for (const QString& file : procedures.entryList(QDir::Files))
            EXPECT_TRUE(called.contains((database + u'/' + file.chopped(4)).toUpper())) << file.toStdString();
    }
}

TEST_F(Contracts, ArgumentsOfAnotherNumberAreRefused) {
    EXPECT_THROW(rows(QStringLiteral("sp_Nuclear_AddRequest '1'")), base::RunTimeError);
    EXPECT_THROW(rows(QStringLiteral("sp_Nuclear_IncRefNum '1'")), base::RunTimeError);
}

} // namespace
