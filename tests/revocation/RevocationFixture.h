#pragma once

#include "platform/controls/grid/FlexGrid.h"
#include "tests/revocation/ChargedLine.h"
#include "tests/support/screens/Driver.h"
#include "tests/support/screens/ErrorRecorder.h"
#include "tests/support/screens/LoggedOn.h"
#include "tests/support/screens/MessageScript.h"

#include <QLineEdit>
#include <QPushButton>

namespace tests {

/// The screens of the revocation on the demo hospital, driven by keys.
class RevocationFixture : public LoggedOn {
  public:
    explicit RevocationFixture(Way way = usualWay());
    ~RevocationFixture() override;

    void run(const QString& text) const { hospital.run(text); }

    /// From the search for the line on: `steps` find frmCancellation open first. The search that comes up
    /// anew is left with Escape at the end, unless `steps` end that way themselves.
    void cancelling(const Charged& line, std::vector<Step> steps, bool reopens = true);
    static Step pressing(const char* button);
    void expectRevoked();
    /// The texts since the cancellation was begun: times as "{now}", those of OpenAdmission as one line.
    QStringList takeCancellation();

    MessageScript boxes;
    ErrorRecorder errors;
};

std::string lines(const QStringList& texts);
void close(QWidget& window);

} // namespace tests
