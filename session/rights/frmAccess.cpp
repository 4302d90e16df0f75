#include "session/rights/frmAccess.h"

#include "platform/controls/fields/Keys.h"
#include "platform/controls/look/Look.h"
#include "session/Session.h"
#include "ui_frmAccess.h"

#include <QKeyEvent>

namespace session {

frmAccess::frmAccess(QWidget* parent) : Screen(parent), m_ui(std::make_unique<Ui::frmAccess>()) {
    m_ui->setupUi(this);
    m_ui->txtPassword->installEventFilter(this);
    setMinimumWidth(controls::look::scaled(340));
}

frmAccess::~frmAccess() = default;

bool frmAccess::eventFilter(QObject* watched, QEvent* event) {
    if (watched != m_ui->txtPassword || event->type() != QEvent::KeyPress)
        return Screen::eventFilter(watched, event);
    const auto& key = *static_cast<QKeyEvent*>(event);
    const bool enter = controls::isEnter(key);
    if (controls::isHeldEnter(key))
        return true; // the Enter that opened the gate answers nothing
    controls::ErrorBoundary::guard([&] { txtPassword_KeyPress(enter); });
    return enter;
}

void frmAccess::txtPassword_KeyPress(bool enter) {
    Valid = false;
    if (!enter)
        return;
    ado::Recordset hospital = Read(ado::sql("SELECT OPDPassword FROM PATIENT_DATA..tbHospitalInfo"));
    if (!hospital.Eof())
        Valid = !m_ui->txtPassword->text().isEmpty() &&
                m_ui->txtPassword->text() == hospital.Fields("OPDPassword").text();
    hospital.Close();
    Unload();
}

} // namespace session
