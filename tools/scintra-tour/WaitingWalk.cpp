#include "tools/scintra-tour/WaitingWalk.h"

#include "tools/scintra-tour/Steps.h"

#include <QTest>

namespace tour {

namespace {

/// The menu, once its row of that name tells that something waits.
Sight waiting(const char* row) {
    return [row]() -> QWidget* {
        QWidget* menu = windowOnTop(QStringLiteral("frmMainMenu"));
        return menu && control<QWidget>(*menu, QLatin1String(row)).isVisible() ? menu : nullptr;
    };
}

Deed pressed(Qt::Key key) {
    return [key](QWidget& window) {
        QTest::keyClick(window.focusWidget() ? window.focusWidget() : &window, key);
    };
}

void addInTray(Walk& walk) {
    walk.picture(QStringLiteral("waiting"), waiting("btnCommunication"));
    walk.step(QStringLiteral("Wards wait: press N"), waiting("btnCommunication"), pressed(Qt::Key_N));
    walk.picture(QStringLiteral("in-tray"), focused("frmNurseCommunication", "grdTable"));
    walk.step(QStringLiteral("Take the first request with Enter"),
              focused("frmNurseCommunication", "grdTable"), typed("grdTable", {}, Qt::Key_Return));
    walk.picture(QStringLiteral("ward-request"), seen("frmRequest"));
    walk.step(QStringLiteral("Save the ward's request"), seen("frmRequest"), clicked("cmdSave"));
    walk.step(QStringLiteral("Close the box that tells the slip"), seen("messageBox"), pressEnter);
    walk.step(QStringLiteral("Leave the in-tray"), seen("frmNurseCommunication"), pressed(Qt::Key_Escape));
}

void addDischarge(Walk& walk) {
    walk.step(QStringLiteral("Somebody may go home: press G"), waiting("btnDischarge"), pressed(Qt::Key_G));
    walk.picture(QStringLiteral("discharge-notices"), seen("frmDischargeNotice"));
    walk.step(QStringLiteral("Choose the first notice"), seen("frmDischargeNotice"), pressed(Qt::Key_Down));
    walk.step(QStringLiteral("Take it with Enter"), seen("frmDischargeNotice"), pressed(Qt::Key_Return));
    walk.step(QStringLiteral("Say why he may go"), focused("frmClearPatient", "txtClearRemarks"),
              typed("txtClearRemarks", QStringLiteral("all results are out"), Qt::Key_Return));
    walk.picture(QStringLiteral("clear-patient"), focused("frmClearPatient", "cmdSave"));
    walk.step(QStringLiteral("Clear the patient"), focused("frmClearPatient", "cmdSave"),
              pressed(Qt::Key_Return));
    walk.step(QStringLiteral("Close the box with Enter"),
              boxSaying(QStringLiteral("Patient has been cleared for discharge.")), pressEnter);
}

} // namespace

void addWaitingWalk(Walk& walk) {
    addInTray(walk);
    addDischarge(walk);
}

} // namespace tour
