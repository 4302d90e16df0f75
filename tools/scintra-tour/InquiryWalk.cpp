#include "tools/scintra-tour/InquiryWalk.h"

#include "platform/controls/list/ListView.h"
#include "platform/report/layout/PageDocument.h"
#include "platform/report/viewer/Viewer.h"
#include "tools/scintra-tour/Steps.h"

#include <QAction>
#include <QTest>

namespace tour {

namespace {

/// The ledger, once it is complete.
QWidget* shownLedger() {
    QWidget* screen = windowOnTop(QStringLiteral("frmPatientLedger"));
    const auto* viewer = screen ? screen->findChild<report::Viewer*>(QStringLiteral("Viewer")) : nullptr;
    return viewer && viewer->document() && viewer->document()->isComplete() ? screen : nullptr;
}

QWidget* listedSlip() {
    QWidget* screen = windowOnTop(QStringLiteral("frmVerification"));
    const auto* list = screen ? screen->findChild<controls::ListView*>(QStringLiteral("lvwIssued")) : nullptr;
    return list && list->Count() > 0 ? screen : nullptr;
}

void addLedger(Walk& walk, const QString& admissionNumber, InquiryWalkResult& result) {
    walk.step(QStringLiteral("Click the files' main button"), seen("frmMainMenu"), clicked("cmdMainMenu_2"));
    walk.step(QStringLiteral("Click \"Patient's Ledger\""), offered("Patient's Ledger"),
              commanded("Patient's Ledger"));
    walk.step(QStringLiteral("Choose the class by its letter"),
              focused("frmPatientLedger", "cmbPatientClass"),
              typed("cmbPatientClass", QStringLiteral("I"), Qt::Key_Return));
    walk.step(
        QStringLiteral("Type the admission number"), focused("frmPatientLedger", "txtIdNum"),
        [&admissionNumber](QWidget& window) { typed("txtIdNum", admissionNumber, Qt::Key_Return)(window); });
    walk.picture(QStringLiteral("ledger"), shownLedger);
    walk.step(QStringLiteral("Read the ledger and leave it with Escape"), shownLedger,
              [&result](QWidget& window) {
                  const auto& viewer = control<report::Viewer>(window, QStringLiteral("Viewer"));
                  result.ledger = report::textOf(*viewer.document()->page(0));
                  QTest::keyClick(&window, Qt::Key_Escape);
              });
}

void addVerification(Walk& walk, const QString& chargeSlip, InquiryWalkResult& result) {
    walk.step(QStringLiteral("Ask about the slip from the menu bar"), seen("frmMainMenu"),
              [](QWidget& window) { control<QAction>(window, QStringLiteral("mnuVerification")).trigger(); });
    walk.step(QStringLiteral("Choose charge slips"), seen("frmVerification"), clicked("Option1_1"));
    walk.step(QStringLiteral("Type the slip's number"), focused("frmVerification", "txtSearch"),
              [&chargeSlip](QWidget& window) { typed("txtSearch", chargeSlip, Qt::Key_Return)(window); });
    walk.picture(QStringLiteral("verification"), listedSlip);
    walk.step(QStringLiteral("Leave the inquiry with Escape"), listedSlip, [&result](QWidget& window) {
        result.issued = control<controls::ListView>(window, QStringLiteral("lvwIssued")).Count();
        QTest::keyClick(&window, Qt::Key_Escape);
    });
}

} // namespace

void addInquiryWalk(Walk& walk, const QString& admissionNumber, const QString& chargeSlip,
                    InquiryWalkResult& result) {
    addLedger(walk, admissionNumber, result);
    addVerification(walk, chargeSlip, result);
}

} // namespace tour
