#pragma once

#include "menu/TestDoors.h"
#include "menu/frmMainMenu.h"
#include "platform/base/TestDoors.h"
#include "tests/support/screens/Driver.h"
#include "tests/support/screens/MessageScript.h"
#include "tests/support/screens/ScriptedSession.h"

#include <gtest/gtest.h>

#include <QStringList>

#include <functional>

namespace tests {

struct RecordedReport {
    QString path, database, title;
    std::vector<base::Value> values;
    QString subReport;
    std::vector<base::Value> subValues;
    bool groupTree = false, directPrint = true;
};

/// A menu over a scripted server: user 1001, every statement, screen, box and launched report written down.
class MenuBench : public testing::Test {
  protected:
    MenuBench();
    ~MenuBench() override;

    /// Answers of the server, by the beginning of the statement; the first one given counts.
    void answer(const QString& startsWith, const QString& columns,
                const std::vector<std::vector<base::Value>>& rows, bool once = false);
    void grantRights() { answer("SELECT * FROM NUCLEAR..tbNuclearDumpUserRights", "RightsID", {{"1"}}); }

    /// Shows the menu; what the test gave no answer for is empty from then on.
    menu::frmMainMenu& showMenu();
    /// The same, and forgets the statements of the start.
    menu::frmMainMenu& openMenu();
    menu::frmMainMenu& menuScreen();
    template <typename T>
    T* child(const QString& name) {
        if (T* found = menuScreen().findChild<T*>(name))
            return found;
        throw std::runtime_error("no " + name.toStdString() + " on the menu");
    }
    bool isShown(const QString& name) { return child<QWidget>(name)->isVisible(); }
    bool isEnabled(const QString& name) { return child<QWidget>(name)->isEnabled(); }
    void clickOn(const QString& name);
    void clickGroup(int group) { click(*child<QWidget>(QStringLiteral("cmdMainMenu_%1").arg(group))); }
    void clickSubMenu(int number) { clickOn(QStringLiteral("fltSubMenu_%1").arg(number)); }
    void trigger(const QString& actionName);
    /// Runs in the modal window that the next click, key or menu item opens; one after the other.
    void inModal(Step step) { m_steps.push_back(std::move(step)); }
    void withSteps(const std::function<void()>& open);

    /// "12" or "12 R" of every screen asked for: its number and its form mode.
    QStringList opened() const;
    static QString nameOf(session::MenuScreen screen, const QString& formMode = {});
    QStringList& texts() { return server.texts(); }

    base::FixedClock clock = fixedClock();
    ScriptedSession server;
    MessageScript boxes;
    std::vector<RecordedReport> reports;
    QStringList events; ///< what the menu launched, looked for and ended, in order

  private:
    void recordReports();
    std::vector<Step> m_steps;
};

} // namespace tests
