#pragma once

#include "platform/ado/Connection.h"
#include "platform/controls/FlexGrid.h"
#include "session/Screens.h"
#include "tests/support/core/ScriptedProvider.h"

#include <QStringList>
#include <QWidget>

#include <gtest/gtest.h>

#include <functional>
#include <optional>
#include <vector>

namespace tests {

/// Writes down which patient would have been taken to request entry.
class RecordedScreens : public session::Screens {
  public:
    void showMainMenu() override {}
    void open(session::MenuScreen, const QString&) override {}
    void openRequest(const session::RequestEntry& entry) override {
        requests.push_back(entry);
        if (whileOpen)
            whileOpen();
    }
    void openOutRequest(const session::OutRequestEntry&) override {}
    bool openNuclearPackage(session::PackageHandOver&) override { return false; }
    bool openNucCharges(session::PackageHandOver&) override { return false; }

    std::vector<session::RequestEntry> requests;
    std::function<void()> whileOpen;
};

/// A session on prepared answers: every statement is written down, every box too ("style|title|prompt"; it is
/// answered with OK).
class LookupFixture : public testing::Test {
  protected:
    LookupFixture();
    ~LookupFixture() override;

    /// One row for each list of cells.
    void answer(const char* statement, const char* columns,
                const std::vector<std::vector<base::Value>>& rows = {}, bool once = false);
    /// Statements since the last call.
    QStringList takeStatements();
    /// Runs `driver` inside the next modal loop.
    static void insideModal(std::function<void()> driver);

    ScriptedProvider* server = nullptr;
    ado::Connection connection;
    std::optional<StatementRecorder> recorder;
    RecordedScreens screens;
    QStringList boxes;
};

/// A control of a screen by its name; fails the test when it is not there.
template <typename T>
T& control(QWidget& screen, const char* name) {
    T* found = screen.findChild<T*>(QString::fromLatin1(name));
    if (!found) {
        QStringList seen;
        for (const QWidget* child : screen.findChildren<QWidget*>())
            seen += child->objectName();
        throw std::runtime_error("no control " + std::string(name) + " among " +
                                 seen.join(u' ').toStdString());
    }
    return *found;
}

QString cells(const controls::FlexGrid& grid, int row);

} // namespace tests
