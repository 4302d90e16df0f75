#pragma once

#include "platform/controls/grid/FlexGrid.h"
#include "results/ResultScreen.h"
#include "tests/support/screens/Driver.h"
#include "tests/support/screens/ErrorRecorder.h"
#include "tests/support/screens/LoggedOn.h"
#include "tests/support/screens/MessageScript.h"

#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QTemporaryDir>

namespace tests {

/// Which result screen; what the tests that hold for all four walk over.
enum class Kind { Generic, Perfusion, Gfr, Radio };
inline constexpr Kind allKinds[] = {Kind::Generic, Kind::Perfusion, Kind::Gfr, Kind::Radio};
void PrintTo(Kind kind, std::ostream* out);

/// The result screens on the demo hospital: AGUILAR, a bone scan under request 90001, asked for by the ward
/// under 500001 and charged under C900J.
class ResultFixture : public LoggedOn {
  public:
    ResultFixture();
    ~ResultFixture() override;

    /// The screen as the worklist opens it for a request without a result, shown and ready for keys.
    results::ResultScreen& open(Kind kind, const QString& request = QStringLiteral("90001"));
    /// Filled, but not shown.
    results::ResultScreen& fill(Kind kind, const QString& request = QStringLiteral("90001"));
    void show();
    results::ResultScreen& screen() { return *m_screen; }

    QWidget& widget(const QString& name);
    QString text(const char* name) { return screen().text(name); }
    /// Turns to the field's tab page, gives it the focus, and types; "<Home>" and the like as keys().
    void type(const char* name, const QString& text);
    /// Keys to whatever has the focus.
    void type(const QString& text) { keysToFocus(screen(), text); }
    void press(const char* button) { click(child<QAbstractButton>(screen(), button)); }
    QString focused() const;

    /// A statement of the test's own, over a session of its own.
    void run(const QString& statement) { hospital.run(statement); }
    /// The ward's two rows and the request: "W|W|11/21/2026 8:30:00 AM|1001|W".
    std::string station();

    /// Reports that run on any hospital, one for each screen.
    void useOwnReports();
    /// "Imaging Section Report: NucResultGFR 26004078/90001": what a viewer shows of them.
    static QString shownReport(QWidget& viewer);

    MessageScript boxes;
    ErrorRecorder errors;

  private:
    results::ResultScreen* m_screen = nullptr;
    QTemporaryDir m_programFolder;
};

/// The list of texts, one a line, for a readable difference.
std::string listed(const QStringList& texts);

} // namespace tests
