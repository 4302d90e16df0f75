#include "tests/revocation/ChargedLine.h"

#include "platform/base/Conversion.h"

#include <QDate>

#include <algorithm>

namespace tests {

namespace {

/// Of the slip, in the rows of a procedure; their amounts together.
struct Found {
    int lines = 0;
    double sum = 0;
};

Found ofSlip(const TestHospital& hospital, const QString& call, const QString& slip) {
    const ado::Rows rows = hospital.run(call);
    int reference = -1, amount = -1;
    for (int i = 0; i < int(rows.columns.size()); ++i) {
        if (rows.columns[std::size_t(i)].name == u"RefNum")
            reference = i;
        if (rows.columns[std::size_t(i)].name == u"Amount")
            amount = i;
    }
    Found found;
    for (qsizetype row = 0; row < rows.count(); ++row) {
        if (base::textOf(rows.at(row, reference)) != slip)
            continue;
        ++found.lines;
        found.sum += base::textOf(rows.at(row, amount)).toDouble();
    }
    return found;
}

} // namespace

Charged outPatients(const TestHospital& hospital) {
    Charged line;
    line.admission = hospital.value(
        "SELECT MIN(IdNum) FROM PATIENT_DATA..tbOutPatient WHERE BillingDate IS NULL AND DcrDate IS NULL");
    line.hospNum = hospital.value("SELECT HospNum FROM PATIENT_DATA..tbOutPatient WHERE IdNum = '" +
                                  line.admission + "'");
    return line;
}

Charged paidLine() {
    Charged line;
    line.slip = QStringLiteral("OR9001");
    line.admission.clear();
    line.hospNum = QStringLiteral("W1001");
    return line;
}

Charged temporary() {
    Charged line;
    line.admission = QStringLiteral("T1001");
    line.hospNum = QStringLiteral("W1001");
    return line;
}

Charged fee() {
    Charged line;
    line.revenue = QStringLiteral("MD");
    line.item = QStringLiteral("201");
    line.amount = 1500.5;
    return line;
}

Charged supply() {
    Charged line;
    line.revenue = QStringLiteral("MN");
    line.item = QStringLiteral("30001");
    line.amount = 97;
    line.quantity = 2;
    return line;
}

void post(const TestHospital& hospital, const Charged& line) {
    const QString ward = line.ward.isEmpty() ? line.request : line.ward;
    const bool isPaid = line.slip.startsWith("OR");
    const bool isStock = line.revenue == "UR" || line.revenue == "MN";
    const QString amount = QString::number(line.amount);
    const QString quantity = QString::number(line.quantity);
    hospital.run(
        QStringLiteral("sp_Nuclear_AddRequest '%1','%2','%3', '%4','%5','204','I', '%6','1001','%7','','%8', "
                       "'','%9'")
            .arg(line.hospNum, line.admission, line.request, line.item, amount, line.slip,
                 isPaid ? QString() : ward, quantity, line.revenue));
    hospital.run(QStringLiteral(
                     "sp_addnurselogbook '%1','%2', '%3','LINE','%4', '1001','1001', '%5','%6','I','%7','%8'")
                     .arg(line.hospNum, line.admission, line.item, amount, isPaid ? QString() : line.slip,
                          line.revenue, ward, quantity));
    if (isPaid) {
        hospital.run(
            QStringLiteral(
                "spNuclear_AddCashAsses '%1','','CRUZ, JUAN','11/21/2026 08:00:00 AM','%2','%3','%4',"
                "'1002','NU9001','NU','NU','204','1'")
                .arg(line.hospNum, line.request, line.item, amount));
        hospital.run(
            QStringLiteral("UPDATE BILLING..tbCashAssessment SET RecordStatus = '1', ORNumber = '%1' WHERE "
                           "RefNum = 'NU9001'")
                .arg(line.slip));
    } else if (isStock) {
        hospital.run(
            QStringLiteral(
                "INVENTORY..sp_AppendStockCard '%1','%2','%3','11/21/2026 08:00','%4',%5,0,%6,'1001',"
                "'PRN','301','','','',0,'CS','CS','',NULL,NULL,NULL,'O'")
                .arg(line.hospNum, line.admission, line.item, line.slip, quantity, amount));
    } else if (!line.admission.startsWith("T")) {
        hospital.run(
            QStringLiteral(
                "sp_addbill '%1','%2','11/21/2026 08:00:00 AM','%3', '%4','%5','%6','1001','%7','','',"
                " '%8'")
                .arg(line.admission.startsWith("26") ? "I" : "O", line.admission, line.slip, line.item,
                     amount, line.revenue, quantity, line.hospNum));
    }
}

// ---- the books

void PrintTo(const Books& books, std::ostream* out) {
    *out << "bill " << books.bill << ", stock " << books.stock << ", receipts " << books.receipts
         << ", listed " << books.listed << " (" << books.listedSum << "), cancelled " << books.cancelled
         << ", copies " << books.copies << ", status '" << books.status.toStdString() << "'";
}

namespace {

/// From the day before the tests' own to now: a desk that is a process of its own keeps the computer's clock.
QString period() {
    const QDate end = std::max(QDate(2026, 11, 22), QDate::currentDate());
    return QStringLiteral("'11/20/2026','%1'").arg(end.toString(QStringLiteral("MM/dd/yyyy")));
}

} // namespace

Books books(const TestHospital& hospital, const Charged& line) {
    const auto number = [&](const QString& query) { return hospital.value(query).toDouble(); };
    const Found listed = ofSlip(hospital, "sp_Nuclear_ReportTransactions " + period(), line.slip);
    return {.bill = number("SELECT ISNULL(SUM(Amount), 0) FROM BILLING..tbDailyBill WHERE RefNum = '" +
                           line.slip + "'"),
            .stock = number("SELECT ISNULL(SUM(OnHand), 0) FROM INVENTORY..tbInvStock WHERE ItemID = '" +
                            line.item + "'"),
            .receipts = hospital.count("BILLING..tbCashAssessment",
                                       "ORNumber = '" + line.slip + "' AND RecordStatus = '1'"),
            .listed = listed.lines,
            .listedSum = listed.sum,
            .cancelled = ofSlip(hospital, "sp_Nuclear_ReportCancelled " + period(), line.slip).lines,
            .copies =
                ofSlip(hospital, "sp_Nuclear_ChargesbyPatient '" + line.admission + "'", line.slip).lines,
            .status = hospital.value("SELECT RequestStatus FROM NUCLEAR..tbNucMaster WHERE RequestNum = '" +
                                     line.request + "'")};
}

// ---- the branches

void PrintTo(const Branch& branch, std::ostream* out) {
    *out << branch.name;
}

const std::vector<Branch>& branches() {
    using Hospital = const TestHospital&;
    static const std::vector<Branch> all{
        {.name = "Receipt", .line = [](Hospital) { return paidLine(); }, .isPaid = true},
        {.name = "OutPatientOwn", .line = outPatients, .isBilled = true},
        {.name = "OutPatientOther",
         .line =
             [](Hospital hospital) {
                 Charged line = outPatients(hospital);
                 line.revenue = fee().revenue;
                 line.item = fee().item;
                 return line;
             },
         .isBilled = true,
         .isListed = false},
        {.name = "NumberWithT", .line = [](Hospital) { return temporary(); }},
        {.name = "AdmittedOwn", .line = [](Hospital) { return Charged(); }, .isBilled = true},
        {.name = "AdmittedSupply", .line = [](Hospital) { return supply(); }, .isStock = true},
        // what the desk saved last sends these the other way
        {.name = "AdmittedFee", .line = [](Hospital) { return fee(); }, .isBilled = true, .isListed = false},
        {.name = "AdmittedOwnAfterAFee",
         .line = [](Hospital) { return Charged(); },
         .isBilled = true,
         .section = "MD"},
        {.name = "AdmittedSupplyAfterASupply",
         .line = [](Hospital) { return supply(); },
         .isStock = true,
         .section = "MN"},
        {.name = "ReceiptAfterAFee",
         .line = [](Hospital) { return paidLine(); },
         .isPaid = true,
         .section = "MD"}};
    return all;
}

Books whenPosted(const Branch& branch, const Charged& line, Books without) {
    without.bill += branch.isBilled ? line.amount : 0;
    without.stock -= branch.isStock ? line.quantity : 0;
    without.receipts += branch.isPaid;
    without.listed += branch.isListed;
    without.listedSum += branch.isListed ? line.amount : 0;
    without.copies += line.slip.startsWith("C");
    return without;
}

Books whenCancelled(const Branch& branch, Books without) {
    without.cancelled += branch.isListed;
    without.status = QStringLiteral("R");
    return without;
}

} // namespace tests
