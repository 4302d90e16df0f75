#include "tools/scintra-tour/IncomingWalk.h"

#include "tools/scintra-tour/Steps.h"

#include <QAbstractButton>
#include <QApplication>
#include <QLabel>
#include <QTest>

namespace tour {

namespace {

/// A box whose text begins so.
Sight boxOf(const char* begin) {
    return [begin]() -> QWidget* {
        QWidget* modal = QApplication::activeModalWidget();
        if (!modal)
            return nullptr;
        for (const QLabel* label : modal->findChildren<QLabel*>()) {
            if (label->text().startsWith(QLatin1String(begin)))
                return modal;
        }
        return nullptr;
    };
}

void addInTray(Walk& walk) {
    walk.step(QStringLiteral("Click the wards' blinking button"), seen("frmMainMenu"),
              clicked("btnCommunication"));
    walk.picture(QStringLiteral("in-tray"), focused("frmNurseCommunication", "grdTable"));
    walk.step(QStringLiteral("Process the oldest request with Enter"),
              focused("frmNurseCommunication", "grdTable"), typed("grdTable", {}, Qt::Key_Return));
    walk.picture(QStringLiteral("ward-request"), seen("frmRequest"));
    walk.step(QStringLiteral("Save it"), seen("frmRequest"), clicked("cmdSave"));
    walk.step(QStringLiteral("Close its box with Enter"), boxOf("Data Successfully Saved!"),
              [](QWidget& window) {
                  QTest::keyClick(window.focusWidget() ? window.focusWidget() : &window, Qt::Key_Return);
              });
    walk.step(QStringLiteral("Leave the in-tray"), focused("frmNurseCommunication", "grdTable"),
              clicked("btnClose"));
}

void addPharmacy(Walk& walk, const QString& admissionNumber) {
    walk.step(QStringLiteral("Click the requests' main button again"), seen("frmMainMenu"),
              clicked("cmdMainMenu_0"));
    walk.step(QStringLiteral("Click \"Pharmacy Request\""), offered("Pharmacy Request"),
              commanded("Pharmacy Request"));
    walk.step(QStringLiteral("Choose the confined patients"), seen("frmPHEntry"),
              [](QWidget& window) { control<QAbstractButton>(window, QStringLiteral("optType_2")).click(); });
    walk.step(
        QStringLiteral("Type the admission number"), focused("frmPHEntry", "txtPName"),
        [&admissionNumber](QWidget& window) { typed("txtPName", admissionNumber, Qt::Key_Return)(window); });
    walk.step(QStringLiteral("Type the code of a medicine"), focused("frmPHEntry", "txtEntry"),
              typed("txtEntry", QStringLiteral("30001"), Qt::Key_Return));
    walk.picture(QStringLiteral("pharmacy-request"), focused("frmPHEntry", "txtEntry"));
    walk.step(QStringLiteral("Save the request"), seen("frmPHEntry"), clicked("cmdMedOption"));
}

} // namespace

void addIncomingWalk(Walk& walk, const QString& admissionNumber) {
    addInTray(walk);
    addPharmacy(walk, admissionNumber);
}

} // namespace tour
