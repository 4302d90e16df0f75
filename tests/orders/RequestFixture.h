#pragma once

#include "entry/RequestScreen.h"
#include "platform/controls/grid/FlexGrid.h"
#include "session/Screens.h"
#include "tests/support/screens/Driver.h"
#include "tests/support/screens/ErrorRecorder.h"
#include "tests/support/screens/LoggedOn.h"
#include "tests/support/screens/MessageScript.h"

#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>

namespace tests {

/// A request screen on the demo hospital, driven by keys. AGUILAR lies in a room of class B.
class RequestFixture : public LoggedOn {
  public:
    static constexpr const char* admitted = "26004078";

    explicit RequestFixture(Way way = usualWay());
    ~RequestFixture() override;

    /// A fresh screen that knows what it is for, not shown yet.
    entry::RequestScreen& prepared(const session::RequestEntry& entry);
    entry::RequestScreen& preparedOut(const session::OutRequestEntry& entry);
    /// The prepared screen, shown and ready for keys.
    entry::RequestScreen& show();
    entry::RequestScreen& open(const session::RequestEntry& entry);
    entry::RequestScreen& openOut(const session::OutRequestEntry& entry);
    entry::RequestScreen& openAdmitted(const QString& admission = QString::fromLatin1(admitted));
    entry::RequestScreen& screen() { return *m_screen; }
    /// The screens are gone, as with the program.
    void forget();

    controls::FlexGrid& grid() { return child<controls::FlexGrid>(screen(), "grdPackage"); }
    QLineEdit& field(const char* name) { return child<QLineEdit>(screen(), name); }
    QPushButton& button(const char* name) { return child<QPushButton>(screen(), name); }
    QString cell(int row, int column) { return grid().TextMatrix(row, column); }
    /// "NU|1001|..." of the columns 1 to 7.
    QString line(int row);
    /// Keys to whatever has the focus on the screen.
    void type(const QString& text) { keysToFocus(screen(), text); }

    int nextSlip() { return value("SELECT ChargeSlip FROM NUCLEAR..tbNucSlip").toInt(); }
    int nextRequest() { return value("SELECT RequestNum FROM NUCLEAR..tbNucSlip").toInt(); }

    MessageScript boxes;
    ErrorRecorder errors;

  private:
    entry::RequestScreen* m_screen = nullptr;
};

} // namespace tests
