#include "server/demo/Catalogue.h"
#include "server/demo/TableWriter.h"
#include "server/demo/World.h"

namespace demo {

namespace {

struct Station {
    const char* code;
    const char* name;
};
constexpr Station stationList[] = {{"ER", "EMERGENCY ROOM"},     {"2A", "SECOND FLOOR WARD"},
                                   {"2B", "MEDICAL WARD"},       {"3A", "THIRD FLOOR EAST"},
                                   {"3B", "THIRD FLOOR WEST"},   {"4A", "FOURTH FLOOR SUITES"},
                                   {"5A", "FIFTH FLOOR SUITES"}, {"ICU", "INTENSIVE CARE UNIT"}};

struct Company {
    const char* account;
    const char* name;
    bool hmo;
};
constexpr Company companyList[] = {{"HMO01", "ARAW HEALTH PLANS, INC.", true},
                                   {"HMO02", "LUNTIAN CARE SYSTEMS", true},
                                   {"HMO03", "BAYANI MEDICARD GROUP", true},
                                   {"CO101", "KEROVA TEXTILE MILLS", false},
                                   {"CO102", "SILANGAN SHIPPING LINES", false},
                                   {"CO103", "MALIGAYA SUGAR CENTRAL", false},
                                   {"CO104", "PROVINCIAL GOVERNMENT OFFICE", false},
                                   {"CO105", "TALA TELECOM CORP.", false},
                                   {"CO106", "SAN ROQUE TEACHERS COOPERATIVE", false},
                                   {"CO107", "HABAGAT AIRWAYS", false},
                                   {"CO108", "PILAK SAVINGS BANK", false},
                                   {"CO109", "NIYOG OIL PRODUCTS", false}};

void writeExams(World& world) {
    TableWriter table(world.file, "BUILD_FILE..tbcoNucExam",
                      {"NucExamID", "NucExam", "SectionID", "NucSectionID", "FormType", "Classification",
                       "RateA", "RateB", "RateC", "RateD", "RateE", "RateH", "Outpatient", "Fixrate",
                       "Common", "MedicareType", "Status"});
    for (const Exam& exam : exams()) {
        const auto formType =
            exam.formType ? std::optional(QString::fromLatin1(exam.formType)) : std::nullopt;
        const bool therapy = exam.formType && *exam.formType == 'T';
        table.row(exam.code, exam.name, exam.section, therapy ? "T" : "O", formType, exam.classification,
                  exam.rateA, examRate(exam, QStringLiteral("B")), examRate(exam, QStringLiteral("C")),
                  examRate(exam, QStringLiteral("D")), examRate(exam, QStringLiteral("E")),
                  roundedRate(exam.rateA * 1.15), exam.rateA, exam.fixedRate ? "Y" : "N",
                  exam.rateA < 6000 ? "Y" : "N", "N", "A");
    }
}

void writeStock(World& world) {
    TableWriter master(world.file, "INVENTORY..tbInvMaster",
                       {"ItemID", "ItemName", "GenericName", "ItemClass", "Unit", "SellingPriceIn",
                        "SellingPriceOut", "Inactive"});
    TableWriter stock(world.file, "INVENTORY..tbInvStock",
                      {"ItemID", "LocationID", "OnHand", "ReorderPoint"});
    int index = 0;
    for (const Item& item : items()) {
        const bool drug = qstrcmp(item.itemClass, "PH") == 0;
        // The last drug is out of use, so that a refused one can be shown.
        const bool inactive = qstrcmp(item.code, "30016") == 0;
        master.row(item.code, item.name, item.generic, item.itemClass, item.unit, item.price,
                   roundedRate(item.price * 10 * 0.95) / 10, inactive ? 1 : 0);
        stock.row(item.code, drug ? "179" : "224", double(40 + index * 7 % 160), 20.0);
        stock.row(item.code, drug ? "20" : "21", double(400 + index * 31 % 900), 100.0);
        ++index;
    }
}

void writeRooms(World& world) {
    TableWriter stations(world.file, "BUILD_FILE..tbCoStation", {"StationID", "Station"});
    for (const Station& station : stationList)
        stations.row(station.code, station.name);
    TableWriter table(world.file, "BUILD_FILE..tbcoRoom",
                      {"RoomID", "RoomClassID", "StationID", "Rate", "Status"});
    for (const Room& room : rooms())
        table.row(room.roomID, room.roomClass, room.station, 800.0 + 900.0 * (*room.roomClass - 'A'), "A");
}

void writePeople(World& world) {
    TableWriter doctors(
        world.file, "BUILD_FILE..tbcoDoctor",
        {"DoctorID", "LastName", "FirstName", "MiddleName", "Specialty", "ContactNum", "Status"});
    TableWriter readers(world.file, "CARDIO..tbReaderRate", {"DoctorID", "RevenueID", "Percentage"});
    for (int i = 0; i < doctorCount; ++i) {
        const Doctor& doctor = demo::doctors()[std::size_t(i)];
        doctors.row(doctorCode(i), doctor.last, doctor.first, doctor.middle, doctor.specialty,
                    QStringLiteral("0917-555-%1").arg(1000 + i * 37), "A");
        if (qstrcmp(doctor.specialty, "NUCLEAR MEDICINE") == 0) {
            for (const char* revenue : {"FN", "MD"})
                readers.row(doctorCode(i), revenue, feePercentage(QString::fromLatin1(revenue)));
        }
    }
    TableWriter companies(world.file, "BUILD_FILE..tbcoCompany",
                          {"AccountNum", "Company", "IsHMO", "Status"});
    for (const Company& company : companyList)
        companies.row(company.account, company.name, company.hmo ? 1 : 0, "A");
    TableWriter addresses(world.file, "BUILD_FILE..tbCoAddress", {"ZipCode", "Town", "Province"});
    for (const Town& town : towns())
        addresses.row(town.zipCode, town.town, town.province);
}

struct PackageLine {
    const char* package;
    const char* item;
    const char* revenue;
    const char* description;
    double quantity;
    double amount;
    const char* location;
};

constexpr PackageLine nuclearLines[] = {
    {"N01", "1005", "NU", "THYROID SCAN WITH UPTAKE", 1, 2900, ""},
    {"N01", "1212", "NU", "THYROID PANEL (FT3, FT4, TSH)", 1, 2000, ""},
    {"N01", "40001", "UR", "SYRINGE 1 ML", 4, 48, "224"},
    {"N02", "1001", "NU", "BONE SCAN, WHOLE BODY", 1, 4900, ""},
    {"N02", "40015", "UR", "TC-99M MDP DOSE", 1, 950, "224"},
    {"N02", "40005", "UR", "BUTTERFLY SET G23", 1, 46, "224"},
    {"N03", "1024", "NU", "MYOCARDIAL PERFUSION, REST AND STRESS", 1, 14200, ""},
    {"N03", "40017", "UR", "TC-99M SESTAMIBI DOSE", 2, 6800, "224"},
    {"N03", "40013", "UR", "ECG ELECTRODE", 10, 160, "224"},
    {"N03", "30004", "MN", "AMINOPHYLLINE 250 MG AMP", 1, 62, "179"},
    {"N04", "1102", "NU", "RENAL SCAN, DTPA WITH FUROSEMIDE", 1, 6900, ""},
    {"N04", "30001", "MN", "FUROSEMIDE 20 MG/2 ML AMP", 2, 97, "179"},
    {"N04", "40016", "UR", "TC-99M DTPA DOSE", 1, 980, "224"},
    {"N05", "40001", "UR", "SYRINGE 1 ML", 1, 2, "224"},
    {"N05", "40013", "UR", "ECG ELECTRODE", 1, 2, "224"},
};
constexpr const char* nuclearPackages[][3] = {{"N01", "A", "THYROID WORK-UP"},
                                              {"N02", "B", "BONE METASTASES WORK-UP"},
                                              {"N03", "C", "CARDIAC STRESS PACKAGE"},
                                              {"N04", "D", "RENAL FUNCTION PACKAGE"},
                                              {"N05", "E", "SMALL SUPPLIES"}};

constexpr PackageLine admissionLines[] = {
    {"P11", "1001", "NU", "BONE SCAN, WHOLE BODY", 1, 4800, ""},
    {"P11", "1201", "NU", "TSH", 1, 700, ""},
    {"P11", "40003", "UR", "SYRINGE 5 ML", 4, 46, "224"},
    {"P12", "1024", "NU", "MYOCARDIAL PERFUSION, REST AND STRESS", 1, 14000, ""},
    {"P12", "30013", "MN", "NORMAL SALINE 1 L", 2, 192, "179"},
    {"P12", "40007", "UR", "I.V. TUBING, ADULT", 1, 65, "224"},
    {"P13", "1101", "NU", "RENAL SCAN, DTPA WITH GFR", 1, 6200, ""},
    {"P13", "40006", "UR", "I.V. CANNULA G22", 1, 78, "224"},
    {"P14", "1201", "NU", "TSH", 1, 700, ""},
    {"P14", "40003", "UR", "SYRINGE 5 ML", 0, 12, "224"}, // entered without its quantity
};
constexpr const char* admissionPackages[][2] = {{"P11", "EXECUTIVE CHECK-UP, NUCLEAR"},
                                                {"P12", "CARDIAC ADMISSION PACKAGE"},
                                                {"P13", "KIDNEY DONOR PACKAGE"},
                                                {"P14", "THYROID ADMISSION PACKAGE"},
                                                {"P15", "PACKAGE STILL TO BE FILLED"}};

template <std::size_t N>
double writeLines(TableWriter& table, const PackageLine (&lines)[N], const char* package) {
    double gross = 0;
    int number = 0;
    for (const PackageLine& line : lines) {
        if (qstrcmp(line.package, package) != 0)
            continue;
        table.row(package, ++number, line.item, line.revenue, line.description, line.quantity, line.amount,
                  line.location, "1");
        gross += line.amount;
    }
    return gross;
}

void writePackages(World& world) {
    TableWriter packages(world.file, "NUCLEAR..tbNucPackage",
                         {"Code", "PackageLetter", "Description", "Status"});
    TableWriter lines(world.file, "NUCLEAR..tbNucPackageItem",
                      {"Code", "LineNum", "ItemID", "RevenueID", "Description", "Quantity", "Amount",
                       "LocationID", "ItemStatus"});
    for (const auto& package : nuclearPackages) {
        packages.row(package[0], package[1], package[2], 1);
        writeLines(lines, nuclearLines, package[0]);
    }
    TableWriter wardPackages(world.file, "STATION..tbAdmPackage",
                             {"PackageID", "Description", "GrossAmount", "PackageGroup", "Status"});
    TableWriter wardLines(world.file, "STATION..tbAdmPackageItem",
                          {"PackageID", "LineNum", "ItemID", "RevenueID", "Description", "Quantity", "Amount",
                           "LocationID", "ItemStatus"});
    for (const auto& package : admissionPackages)
        wardPackages.row(package[0], package[1], writeLines(wardLines, admissionLines, package[0]), 11, 1);
}

} // namespace

void writeCatalogue(World& world) {
    runOnFile(
        world.file,
        QStringLiteral("UPDATE \"PATIENT_DATA.tbHospitalInfo\" SET Company = 'Kerova General Hospital', "
                       "Address1 = '114 Rizal Avenue, Santa Rosa, Laguna', "
                       "Title = 'Department of Nuclear Medicine', TinNo = '004-117-382-000', "
                       "OPDPassword = 'KEROVA'"));
    writeRooms(world);
    writePeople(world);
    writeExams(world);
    writeStock(world);
    writePackages(world);
}

} // namespace demo
