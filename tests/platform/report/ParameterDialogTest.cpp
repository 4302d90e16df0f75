#include "platform/report/viewer/ParameterDialog.h"

#include "platform/report/Report.h"
#include "platform/report/viewer/ParameterPrompt.h"
#include "tests/platform/report/Bench.h"

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

namespace {

const QString inside = QStringLiteral(
    "<parameter name=\"From\" type=\"date\" prompt=\"From date\"/><parameter name=\"Rate\" type=\"number\"/>"
    "<parameter name=\"Title\"/><details height=\"5mm\"><field x=\"0mm\" y=\"0mm\" width=\"70mm\" "
    "height=\"5mm\" "
    "value=\"{?Title} &amp; {?Rate} &amp; Format({?From}, &quot;yyyy-mm-dd&quot;)\"/></details>");

struct ParameterDialogTest : testing::Test {
    ParameterDialogTest() {
        server.lines = tests::ScriptedProvider::rowsOf("A", {{"x"}});
        opened = report::Report::open(folder.write("P.RPT", tests::definitionOf(inside)), server.logOn());
    }
    QLineEdit* field(report::ParameterDialog& dialog, const char* name) {
        auto* found = dialog.findChild<QLineEdit*>(name);
        EXPECT_TRUE(found) << name;
        return found;
    }

    tests::Folder folder;
    tests::ReportServer server;
    std::unique_ptr<report::Report> opened;
};

} // namespace

TEST_F(ParameterDialogTest, EnterMovesOnAndEndsWithTheLastField) {
    report::ParameterDialog dialog(*opened, nullptr);
    dialog.show();
    dialog.activateWindow();
    QLineEdit* from = field(dialog, "From");
    from->setFocus();
    QTest::keyClicks(from, "11/21/2026");
    QTest::keyClick(from, Qt::Key_Return);
    EXPECT_EQ(dialog.focusWidget(), field(dialog, "Rate"));
    QTest::keyClicks(dialog.focusWidget(), "1.25");
    QTest::keyClick(dialog.focusWidget(), Qt::Key_Enter);
    EXPECT_EQ(dialog.focusWidget(), field(dialog, "Title"));
    QTest::keyClicks(dialog.focusWidget(), "STAT ");
    EXPECT_FALSE(opened->hasParameter(0));
    QTest::keyClick(dialog.focusWidget(), Qt::Key_Return);
    EXPECT_EQ(dialog.result(), QDialog::Accepted);
    EXPECT_EQ(tests::textsOf(*opened->run(), 0), QStringList{"STAT 1.252026-11-21"});
}

TEST_F(ParameterDialogTest, WhatCannotBeReadKeepsItsField) {
    report::ParameterDialog dialog(*opened, nullptr);
    dialog.show();
    QLineEdit* from = field(dialog, "From");
    from->setFocus();
    QTest::keyClicks(from, "02/30/2026");
    QTest::keyClick(from, Qt::Key_Return);
    EXPECT_EQ(dialog.focusWidget(), from);
    EXPECT_EQ(dialog.findChild<QLabel*>("reason")->text(), "From date must be a date, such as 11/21/2026.");
    dialog.accept();
    EXPECT_TRUE(dialog.isVisible());
    EXPECT_EQ(opened->missingParameters().size(), 3u);
}

TEST_F(ParameterDialogTest, OnlyMissingValuesAreAskedFor) {
    opened->setParameter("From", "11/21/2026");
    opened->setParameter("Rate", 1);
    report::ParameterDialog dialog(*opened, nullptr);
    const auto fields = dialog.findChildren<QLineEdit*>();
    ASSERT_EQ(fields.size(), 1);
    EXPECT_EQ(fields.first()->objectName(), "Title");
    opened->setParameter("Title", "x");
    EXPECT_TRUE(report::promptForParameters(*opened, nullptr)); // would hang if it asked
}

TEST_F(ParameterDialogTest, EscapeGivesUp) {
    QTimer::singleShot(0, [] {
        QWidget* dialog = QApplication::activeModalWidget();
        ASSERT_TRUE(dialog);
        QTest::keyClick(dialog, Qt::Key_Escape);
    });
    EXPECT_FALSE(report::promptForParameters(*opened, nullptr));
    EXPECT_EQ(opened->missingParameters().size(), 3u);
}
