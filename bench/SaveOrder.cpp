#include "bench/HospitalFile.h"
#include "bench/Measure.h"
#include "bench/Measures.h"
#include "bench/OrderLines.h"
#include "bench/RawOrder.h"
#include "platform/controls/screen/TestDoors.h"

#include "orders/frmAssessment.h"
#include "orders/frmOutRequest.h"
#include "orders/frmRequest.h"
#include "platform/base/Conversion.h"
#include "platform/base/Error.h"
#include "platform/controls/grid/FlexGrid.h"
#include "platform/controls/screen/MessageBox.h"
#include "server/engine/EmbeddedProvider.h"
#include "session/Session.h"
#include "session/logon/clsCurrentUser.h"
#include "session/services/Services.h"

#include <QLineEdit>
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

/// One way to save an order of ten lines: from the press of its save to the box that tells of it, when
/// everything is on disk. The screen is made, and gone, outside of the time.
struct Way {
    const char* name;
    double goal;
    const OrderKind& kind;
    const char* grid;
    const char* save;
    std::unique_ptr<controls::Screen> (*makeScreen)();
    QString (*nextReference)(); ///< of the save that comes next
};

qint64 saveOnce(const Way& way, const std::vector<OrderLine>& lines) {
    const auto screen = way.makeScreen();
    fill(*screen->findChild<controls::FlexGrid*>(QString::fromLatin1(way.grid)), lines);
    auto* save = screen->findChild<QPushButton*>(QString::fromLatin1(way.save));
    save->setEnabled(true);
    Clock::time_point saved;
    controls::setMessageScript([&](const QString& prompt, int, const QString&) {
        if (prompt.startsWith(QStringLiteral("Data Successfully Saved")))
            saved = Clock::now();
        return controls::vbOK;
    });
    const auto pressed = Clock::now();
    save->click();
    controls::setMessageScript({});
    if (saved == Clock::time_point())
        throw base::RunTimeError(5, QStringLiteral("The order was not saved."));
    return std::chrono::duration_cast<std::chrono::nanoseconds>(saved - pressed).count();
}

QString number(const ado::Statement& query) {
    return base::Trim(session::Read(query).Fields(0).text());
}

QString nextSlip() {
    return QStringLiteral("C%1J").arg(number(ado::sql("SELECT ChargeSlip FROM NUCLEAR..tbNucSlip")));
}

QString nextAssessment() {
    return QStringLiteral("NU%1").arg(
        number(ado::sql("SELECT assessmentnum + 1 FROM BILLING..tbAssessmentNum")));
}

std::unique_ptr<controls::Screen> requestScreen() {
    auto screen = std::make_unique<orders::frmRequest>();
    screen->entry.PatIdNum = number(ado::sql(
        "SELECT TOP 1 IdNum FROM PATIENT_DATA..tbPatient WHERE DcrDate IS NULL AND BillingDate IS NULL"));
    screen->entry.PatientType = QStringLiteral("I");
    screen->load();
    return screen;
}

std::unique_ptr<controls::Screen> outRequestScreen() {
    auto screen = std::make_unique<orders::frmOutRequest>();
    screen->take({.IdNumber = number(
                      ado::sql("SELECT TOP 1 IdNum FROM PATIENT_DATA..tbOutPatient WHERE DcrDate IS NULL"))});
    screen->load();
    return screen;
}

std::unique_ptr<controls::Screen> assessmentScreen() {
    auto screen = std::make_unique<orders::frmAssessment>();
    screen->load();
    screen->findChild<QLineEdit*>(QStringLiteral("txtHospNum"))->setText(QStringLiteral("104078"));
    screen->findChild<QLineEdit*>(QStringLiteral("txtSname"))->setText(QStringLiteral("AGUILAR"));
    return screen;
}

bool measured(const Way& way, const QString& hospital) {
    const QString floorFile = copyOf(hospital, QStringLiteral("save-floor.scintra"));
    const QString ourFile = copyOf(hospital, QStringLiteral("save-ours.scintra"));
    // One order through the program gives the floor its rows.
    logOn(floorFile);
    const std::vector<OrderLine> lines = tenLines();
    const QString reference = way.nextReference();
    saveOnce(way, lines);
    logOff();
    const auto floorProvider = engine::EmbeddedProvider::open(floorFile, {});
    RawOrder order(way.kind, floorProvider->handle(), reference.toStdString());

    logOn(ourFile);
    const Outcome outcome = interleave(
        301, 30, [&](int) { return saveOnce(way, lines); },
        [&](int) { return timed([&] { order.write(); }); });
    logOff();
    const bool met = Report::line(QString::fromLatin1(way.name), outcome, way.goal);
    Report::note(QStringLiteral("  rows an order: ") + QString::fromStdString(order.description()));
    return met;
}

} // namespace

bool saveOrder(const QString& folder) {
    const QString hospital = hospitalFile(folder, 0);
    const Way ways[] = {
        {"save an order of 10 lines", 1.35, requestOrder, "grdPackage", "cmdSave", requestScreen, nextSlip},
        {"save an out-patient's 10 lines", 1.8, requestOrder, "grdPackage", "cmdSave", outRequestScreen,
         nextSlip},
        {"save an assessment of 10 lines", 1.8, assessmentOrder, "grdTable", "btnSave", assessmentScreen,
         nextAssessment}};
    bool met = true;
    for (const Way& way : ways)
        met &= measured(way, hospital);
    return met;
}

} // namespace bench
