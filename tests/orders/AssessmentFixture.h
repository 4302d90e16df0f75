#pragma once

#include "orders/frmAssessment.h"
#include "platform/controls/grid/FlexGrid.h"
#include "tests/support/screens/Driver.h"
#include "tests/support/screens/ErrorRecorder.h"
#include "tests/support/screens/LoggedOn.h"
#include "tests/support/screens/MessageScript.h"

#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>

namespace tests {

/// The assessment screen on the demo hospital, driven by keys.
class AssessmentFixture : public LoggedOn {
  public:
    ~AssessmentFixture() override;

    /// A fresh screen, shown and ready for keys.
    orders::frmAssessment& open();
    /// The same with the regular patient 104078 found and the doctor 204 taken: the grid has the focus.
    orders::frmAssessment& openForRegular();
    orders::frmAssessment& screen() { return controls::SharedScreen<orders::frmAssessment>::current(); }

    controls::FlexGrid& grid() { return child<controls::FlexGrid>(screen(), "grdTable"); }
    QLineEdit& field(const char* name) { return child<QLineEdit>(screen(), name); }
    QPushButton& button(const char* name) { return child<QPushButton>(screen(), name); }
    QString cell(int row, int column) { return grid().TextMatrix(row, column); }
    /// "NU|1001|..." of the columns 1 to 7.
    QString line(int row);
    /// "hospital number|admission number|last|first|middle|class".
    QString patient();
    /// Keys to whatever has the focus on the screen.
    void type(const QString& text) { keysToFocus(screen(), text); }
    /// Chooses the kind and types into txtSname.
    void find(const char* kind, const QString& typed);

    int lastAssessment() { return value("SELECT assessmentnum FROM BILLING..tbAssessmentNum").toInt(); }
    int lastRow() { return value("SELECT RequestNum FROM BILLING..tbAssessmentNum").toInt(); }
    void expectSaved() { boxes.expect({"Data Successfully Saved.", controls::vbInformation, "Message"}); }
    /// Today at 08:30 by the test's days; a server's own clock tells its own moment.
    QString savedAt(const QString& reference) const;

    MessageScript boxes;
    ErrorRecorder errors;
};

} // namespace tests
