#include "bench/HospitalFile.h"
#include "bench/Measure.h"
#include "bench/Measures.h"
#include "bench/RawOrder.h"
#include "platform/controls/screen/TestDoors.h"

#include "orders/frmRequest.h"
#include "platform/base/Conversion.h"
#include "platform/base/Error.h"
#include "platform/controls/grid/FlexGrid.h"
#include "platform/controls/screen/MessageBox.h"
#include "server/engine/EmbeddedProvider.h"
#include "session/Session.h"
#include "session/logon/clsCurrentUser.h"
#include "session/services/Services.h"

#include <QPushButton>

#include <chrono>

namespace bench {

namespace {

using Clock = std::chrono::steady_clock;

void logOn(const QString& file) {
    session::gUser = std::make_unique<session::clsCurrentUser>();
    if (!session::gUser->logOn(file, QStringLiteral("1001"), QStringLiteral("kerova")))
        throw base::RunTimeError(18456, QStringLiteral("Log-on failed for user 1001."));
    session::gConnection = &session::gUser->sqlconnection();
    session::gConnection->setDefaultDatabase(QStringLiteral("NUCLEAR"));
    session::InitDepartment(QString::fromLatin1(session::departmentNumber));
    session::gEmployeeCode = session::gUser->employeecode();
    session::gPatient = std::make_unique<session::clsRegistry>();
    session::gPatient->OpenConnection(session::gConnection->ConnectionString());
    session::gAdmission = &session::gPatient->admission();
    session::gPatientMaster = &session::gPatient->patientMaster();
    session::gDispense = std::make_unique<session::clsDispense>();
    session::gDispense->InitConnect(*session::gConnection);
}

void logOff() {
    session::gDispense.reset();
    session::gAdmission = nullptr;
    session::gPatientMaster = nullptr;
    session::gPatient.reset();
    session::gConnection = nullptr;
    session::gUser.reset();
}

struct OrderLine {
    QString revenue, code, name, amount;
};

/// Six procedures, two fees, two supplies.
std::vector<OrderLine> tenLines() {
    std::vector<OrderLine> lines;
    const auto take = [&lines](const char* revenue, ado::Recordset rows, const char* amount) {
        for (; !rows.Eof(); rows.MoveNext())
            lines.push_back({QString::fromLatin1(revenue), base::Trim(rows.Fields(0).text()),
                             base::Trim(rows.Fields(1).text()), QString::fromLatin1(amount)});
    };
    take("NU", session::Read(ado::sql("SELECT TOP 6 NucExamID, NucExam FROM BUILD_FILE..tbcoNucExam")),
         "6250.00");
    take("MD", session::Read(ado::sql("SELECT TOP 2 DoctorID, LastName FROM BUILD_FILE..tbcoDoctor")),
         "1500.00");
    take("UR",
         session::Read(ado::sql("SELECT TOP 2 M.ItemID, M.ItemName FROM INVENTORY..tbInvMaster M INNER JOIN "
                                "INVENTORY..tbInvStock S ON S.ItemID = M.ItemID WHERE S.LocationID = '224'")),
         "360.00");
    if (lines.size() != 10)
        throw base::RunTimeError(3021,
                                 QStringLiteral("The hospital has too few exams, doctors or supplies."));
    return lines;
}

QString admittedPatient() {
    ado::Recordset rows = session::Read(ado::sql(
        "SELECT TOP 1 IdNum FROM PATIENT_DATA..tbPatient WHERE DcrDate IS NULL AND BillingDate IS NULL"));
    return base::Trim(rows.Fields(0).text());
}

void fill(controls::FlexGrid& grid, const std::vector<OrderLine>& lines) {
    grid.setRows(int(lines.size()) + 1);
    for (int row = 1; row < grid.Rows(); ++row) {
        const OrderLine& line = lines[std::size_t(row) - 1];
        const QString cells[] = {line.revenue, line.code,           line.name,  QStringLiteral("ROUTINE"),
                                 line.amount,  QStringLiteral("1"), line.amount};
        for (int column = 0; column < 7; ++column)
            grid.setTextMatrix(row, column + 1, cells[column]);
    }
}

/// From the press of "Save" to the box that tells the slip number: everything is on disk then.
qint64 saveOnce(const QString& idNumber, const std::vector<OrderLine>& lines, QString* chargeSlip = nullptr) {
    orders::frmRequest screen;
    screen.entry.PatIdNum = idNumber;
    screen.entry.PatientType = QStringLiteral("I");
    screen.load();
    fill(*screen.findChild<controls::FlexGrid*>(QStringLiteral("grdPackage")), lines);
    auto* cmdSave = screen.findChild<QPushButton*>(QStringLiteral("cmdSave"));
    cmdSave->setEnabled(true);
    Clock::time_point saved;
    controls::setMessageScript([&](const QString& prompt, int, const QString&) {
        saved = Clock::now();
        if (chargeSlip)
            *chargeSlip = prompt.section(u'\'', 1, 1);
        return controls::vbOK;
    });
    const auto pressed = Clock::now();
    cmdSave->click();
    controls::setMessageScript({});
    if (saved == Clock::time_point())
        throw base::RunTimeError(5, QStringLiteral("The order was not saved."));
    return std::chrono::duration_cast<std::chrono::nanoseconds>(saved - pressed).count();
}

} // namespace

bool saveOrder(const QString& folder) {
    const QString hospital = hospitalFile(folder, 0);
    const QString floorFile = copyOf(hospital, QStringLiteral("save-floor.scintra"));
    const QString ourFile = copyOf(hospital, QStringLiteral("save-ours.scintra"));
    // One order through the program gives the floor its rows.
    logOn(floorFile);
    const std::vector<OrderLine> lines = tenLines();
    const QString idNumber = admittedPatient();
    QString slip;
    saveOnce(idNumber, lines, &slip);
    logOff();
    const auto floorProvider = engine::EmbeddedProvider::open(floorFile, {});
    RawOrder order(floorProvider->handle(), slip.toStdString());

    logOn(ourFile);
    const Outcome outcome = interleave(
        301, 30, [&](int) { return saveOnce(idNumber, lines); },
        [&](int) { return timed([&] { order.write(); }); });
    logOff();
    const bool met = Report::line(QStringLiteral("save an order of 10 lines"), outcome, 2.0);
    Report::note(QStringLiteral("  rows an order: ") + QString::fromStdString(order.description()));
    return met;
}

} // namespace bench
