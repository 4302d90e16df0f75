#include "app/Guide.h"

#include "platform/controls/guide/GuideReader.h"
#include "platform/controls/screen/Connect.h"
#include "platform/controls/screen/Screen.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMenu>
#include <QMenuBar>

#include <algorithm>

namespace app {

namespace {

constexpr const char* contents = "README.md";

constexpr GuidePlace places[] = {
    {"frmLogOn", "log-on.md"},
    {"frmDatabaseLogin", "log-on.md#another-server"},
    {"frmMainMenu", "log-on.md#the-menu"},
    {"frmAccess", "log-on.md#passwords"},
    {"frmPassword", "log-on.md#passwords"},

    {"frmListPatient", "patients.md#an-admitted-patient"},
    {"frmPatientList", "patients.md#a-registered-patient"},
    {"frmRegisteredOPD", "patients.md#an-out-patient-on-account"},
    {"frmSearch", "patients.md#the-lists-of-codes"},
    {"frmPickList", "patients.md#the-lists-of-codes"},
    {"frmAddWalkIn", "patients.md#add-a-walk-in-patient"},
    {"frmWalkInMaster", "patients.md#mend-a-walk-in-patient"},

    {"frmRequest", "in-patient.md"},
    {"frmOutRequest", "out-patient.md"},
    {"frmAssessment", "assessment.md"},
    {"frmAssessmentStatus", "assessment.md#what-became-of-an-assessment"},
    {"frmNurseCommunication", "in-trays.md#requests-of-the-wards"},
    {"frmListCashComm", "in-trays.md#paid-at-the-cashier"},
    {"frmPrepaidRequest", "in-trays.md#the-prepaid-office"},
    {"frmRequestForm", "in-trays.md#the-prepaid-office"},
    {"frmListDeposits", "in-trays.md#deposits"},
    {"frmNuclearPackage", "packages.md"},
    {"frmNucCharges", "packages.md"},
    {"frmReceivableSearch", "late-charges.md"},
    {"frmReceivableEntry", "late-charges.md"},
    {"frmPHEntry", "stores.md"},
    {"frmCSEntry", "stores.md"},

    {"frmRequestMaster", "results.md"},
    {"frmResultMaster", "results.md#look-at-a-result-again"},
    {"frmResult", "results.md#the-requests-of-a-patient"},
    {"frmResultEntry", "results.md#fill-a-result"},
    {"frmResultEntryMPI", "results.md#myocardial-perfusion"},
    {"frmResultEntryGFR", "results.md#gfr"},
    {"frmResultRadioImmuno", "results.md#radio-immunoassay"},
    {"frmSymbols", "results.md#symbols"},

    {"frmCancelRequest", "cancel.md"},
    {"frmCancellation", "cancel.md"},
    {"frmRePrint", "print-again.md"},
    {"frmDischargeNotice", "discharge.md"},
    {"frmClearPatient", "discharge.md#clear-the-patient"},
    {"frmPatientLedger", "accounts.md#the-ledger"},
    {"frmVerification", "accounts.md#a-receipt-or-a-slip"},

    {"frmReportDate", "reports.md#the-days"},
    {"frmDailyReport", "reports.md#the-days"},
    {"frmDateEntry", "reports.md#the-days"},
    {"frmReportViewer", "reports.md#read-a-report"},
    {"frmUserRights", "rights.md"},
    {"frmProgSettings", "rights.md#the-catalogue-of-rights"},
    {"frmBuildFile", "exam-file.md"},
    {"frmNuclearChargesBuildFile", "exam-file.md#the-packages-of-the-section"},
    {"frmNuclearChargesBuildFile_items", "exam-file.md#the-packages-of-the-section"},
};

/// The class of the innermost screen; "" while none is open. Boxes lie over the screen that asks.
QString screenInFront() {
    const auto& open = controls::Screen::openScreens();
    return open.empty() ? QString() : open.back()->objectName();
}

QString pageOf(const QString& screen) {
    const auto place = std::ranges::find_if(
        places, [&](const GuidePlace& each) { return screen == QLatin1String(each.screen); });
    return QString::fromLatin1(place == std::end(places) ? contents : place->page);
}

} // namespace

std::span<const GuidePlace> guidePlaces() {
    return places;
}

Guide::Guide() {
    qApp->installEventFilter(this);
}

Guide::~Guide() = default;

void Guide::open() {
    if (!m_reader)
        m_reader = std::make_unique<controls::GuideReader>(QStringLiteral(":/docs/guide"),
                                                           QStringLiteral("Visual Scintra: Guide"));
    m_reader->open(pageOf(screenInFront()));
}

void Guide::addHelp(QMenuBar& bar) {
    if (bar.findChild<QMenu*>(QStringLiteral("mnuHelp")))
        return;
    QMenu* help = bar.addMenu(QStringLiteral("&Help"));
    help->setObjectName(QStringLiteral("mnuHelp"));
    QAction* guide = help->addAction(QStringLiteral("&Guide\tShift+F1"));
    guide->setObjectName(QStringLiteral("mnuGuide"));
    controls::on(guide, &QAction::triggered, this, [this] { open(); });
}

/// A shortcut of the screen's own, as the menu's F1, is taken before the key comes here.
bool Guide::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::KeyPress)
        return QObject::eventFilter(watched, event);
    const auto& key = *static_cast<QKeyEvent*>(event);
    const bool plain = (key.modifiers() & ~(Qt::KeypadModifier | Qt::ShiftModifier)) == Qt::NoModifier;
    if (key.key() != Qt::Key_F1 || !plain || QApplication::activePopupWidget() ||
        controls::ErrorBoundary::isStopping())
        return false;
    if (!key.isAutoRepeat())
        controls::ErrorBoundary::guard([this] { open(); });
    return true;
}

} // namespace app
