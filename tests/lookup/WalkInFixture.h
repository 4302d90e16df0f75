#pragma once

#include "lookup/frmAddWalkIn.h"
#include "lookup/frmWalkInMaster.h"
#include "platform/base/TestDoors.h"
#include "platform/controls/grid/FlexGrid.h"
#include "tests/support/screens/Driver.h"
#include "tests/support/screens/ErrorRecorder.h"
#include "tests/support/screens/LoggedOn.h"
#include "tests/support/screens/MessageScript.h"
#include "tests/support/screens/Workstations.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>

namespace tests {

/// The two walk-in screens on the demo hospital. Its last walk-in patient is W1030. The day is November 21,
/// 2026, on any server: what is typed and kept here are days of birth.
class WalkInFixture : public LoggedOn {
  public:
    ~WalkInFixture() override;

    /// The screen, shown, active and ready for keys.
    lookup::frmAddWalkIn& openAdd();
    lookup::frmWalkInMaster& openMaster();

    /// The name that has the focus.
    static std::string focus();
    static std::string text(const QWidget& screen, const char* field) {
        return child<QLineEdit>(screen, field).text().toStdString();
    }
    static std::string label(const QWidget& screen, const char* name) {
        return child<QLabel>(screen, name).text().toStdString();
    }
    static QPushButton& button(const QWidget& screen, const char* name) {
        return child<QPushButton>(screen, name);
    }
    /// "LASTNAME|FIRSTNAME|..." of one patient, the birth date as m/d/yyyy, Null as "<Null>"; "" for nobody.
    std::string patient(const QString& hospitalNumber) const;
    /// "W1030/1030"
    std::string series() const;
    /// The texts since the last call, one a line.
    std::string trace() { return std::exchange(recorder->texts, {}).join(u'\n').toStdString(); }

    base::FixedClock birthdays{*base::makeDateTime({2026, 11, 21}, {8, 30})};
    MessageScript boxes;
    ErrorRecorder errors;

    /// Makes the screen the active one: first, and when a modal one above it has closed.
    static void activate(controls::Screen& screen);
};

} // namespace tests
