#pragma once

#include "menu/MenuLinks.h"
#include "menu/frmMainMenu.h"
#include "platform/ado/Connection.h"
#include "platform/base/DateTime.h"
#include "session/Screens.h"
#include "tests/support/core/ScriptedProvider.h"

#include <gtest/gtest.h>

#include <QStringList>

#include <functional>
#include <memory>

class QAbstractButton;
class QAction;
class QWidget;

namespace tests {

/// Writes down which screens were asked for.
class RecordingScreens : public session::Screens {
  public:
    QStringList
        opened; ///< "12" or "12 R": the screen's number and its form mode; "out-patient ..." with the entry
    std::function<void()> whileOpen;

    void showMainMenu() override;
    void open(session::MenuScreen screen, const QString& formMode = {}) override;
    void openRequest(const session::RequestEntry& entry) override;
    void openOutRequest(const session::OutRequestEntry& entry) override;
    bool openNuclearPackage(session::PackageHandOver&) override { return false; }
    bool openNucCharges(session::PackageHandOver&) override { return false; }

    static QString nameOf(session::MenuScreen screen, const QString& formMode = {});
};

struct RecordedReport {
    QString path, database, title;
    std::vector<base::Value> values;
    QString subReport;
    std::vector<base::Value> subValues;
    bool groupTree = false, directPrint = true;
};

/// A menu over a scripted server: user 1001, every statement and every launched report written down.
class MenuBench : public testing::Test {
  protected:
    MenuBench();
    ~MenuBench() override;

    /// Answers of the server, by the beginning of the statement; the first one given counts.
    void answer(const QString& startsWith, const QString& columns,
                const std::vector<std::vector<base::Value>>& rows, bool once = false);
    void grantRights() { answer("SELECT * FROM NUCLEAR..tbNuclearDumpUserRights", "RightsID", {{"1"}}); }

    menu::frmMainMenu& openMenu();
    menu::frmMainMenu& menuScreen();
    template <typename T>
    T* child(const QString& name) {
        T* found = menuScreen().findChild<T*>(name);
        if (!found)
            ADD_FAILURE() << "no " << name.toStdString() << " on the menu";
        return found;
    }
    void click(const QString& buttonName);
    void clickGroup(int group) { click(QStringLiteral("cmdMainMenu_%1").arg(group)); }
    void clickSubMenu(int number) { click(QStringLiteral("fltSubMenu_%1").arg(number)); }
    void trigger(const QString& actionName);

    /// What the next message box says, and its answer. A box that was not expected fails the test.
    void expectBox(const QString& prompt, int style, const QString& title, int answer = 1);
    /// Runs in the message loop of the next modal window.
    static void inModal(std::function<void(QWidget& window)> step);
    static void pressIn(QWidget& window, const QString& buttonName);

    base::FixedClock clock;
    RecordingScreens screens;
    std::unique_ptr<StatementRecorder> recorder;
    std::vector<RecordedReport> reports;
    QStringList events; ///< what the menu told its links, in order
    ScriptedProvider* server = nullptr;

  private:
    struct Box {
        QString prompt;
        int style;
        QString title;
        int answer;
    };
    void logOn();
    void linkMenu();
    std::vector<Box> m_boxes;
};

} // namespace tests
