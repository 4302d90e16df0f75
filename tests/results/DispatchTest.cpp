#include "tests/results/ListFixture.h"

#include <QLabel>
#include <QPushButton>
#include <QTest>

namespace {

using controls::FlexGrid;
using tests::child;
using tests::keys;
using tests::lines;

const QString examStatement =
    QStringLiteral("Select top 1 * from Build_File..tbcoNucExam where NucExamID = '1001'");

class Dispatch : public tests::ListFixture {
  protected:
    Dispatch() { answerRequest({}); }

    /// The entry screen that the form type leads to.
    QString reached(const std::optional<base::Value>& formType) {
        answerFormType(formType);
        QString name;
        openList(QStringLiteral("R"),
                 {[](QWidget& list) { tests::click(child<QPushButton>(list, "cmdSelect")); },
                  [&](QWidget& entry) {
                      name = entry.objectName();
                      tests::close(entry);
                  }});
        return name;
    }
};

TEST_F(Dispatch, GAndRHaveScreensOfTheirOwnAndAllOthersTheGenericOne) {
    EXPECT_EQ(reached("G"), QStringLiteral("frmResultEntryGFR"));
    EXPECT_EQ(reached("R"), QStringLiteral("frmResultRadioImmuno"));
    for (const base::Value& other :
         {base::Value("g"), base::Value("r"), base::Value("t"), base::Value("X"), base::Value("GR"),
          base::Value(" G"), base::Value(""), base::Value(nullptr)})
        EXPECT_EQ(reached(other), QStringLiteral("frmResultEntry")) << base::textOf(other).toStdString();
    EXPECT_EQ(reached(std::nullopt), QStringLiteral("frmResultEntry")) << "an exam that is not on file";
}

TEST_F(Dispatch, NoFormTypeLeadsToThePerfusionScreen) {
    for (char type = 'A'; type <= 'Z'; ++type) {
        if (type != 'T') {
            EXPECT_NE(reached(QString(QLatin1Char(type))), QStringLiteral("frmResultEntryMPI")) << type;
        }
    }
}

TEST_F(Dispatch, ReadsTheExamThenTheRequest) {
    reached("G");
    EXPECT_EQ(lines(takeTexts()), lines({examStatement, QStringLiteral("sp_Nuclear_ResultEntry '90001'")}));
}

TEST_F(Dispatch, TherapySaysSoAndTheListStays) {
    answerFormType(base::Value("T"));
    boxes.expect({QStringLiteral("No result form are available for theraphy.")});
    openList(QStringLiteral("R"), {[](QWidget& list) {
                 keys(child<FlexGrid>(list, "grdTable"), QStringLiteral("<Enter>"));
                 EXPECT_TRUE(list.isVisible());
                 EXPECT_EQ(child<FlexGrid>(list, "grdTable").TextMatrix(1, 1), QStringLiteral("90001 "));
                 tests::close(list);
             }});
    EXPECT_EQ(lines(takeTexts()), lines({examStatement}));
}

TEST_F(Dispatch, ADoubleClickSelects) {
    answerFormType(base::Value("G"));
    openList(QStringLiteral("R"),
             {[](QWidget& list) {
                  auto& grid = child<FlexGrid>(list, "grdTable");
                  QTest::mouseDClick(grid.viewport(), Qt::LeftButton, {},
                                     grid.visualRect(grid.model()->index(0, 3)).center());
              },
              [](QWidget& entry) {
                  EXPECT_EQ(entry.objectName(), QStringLiteral("frmResultEntryGFR"));
                  tests::close(entry);
              }});
}

TEST_F(Dispatch, AHeldEnterSelectsNothing) {
    openList(QStringLiteral("R"), {[](QWidget& list) {
                 auto& grid = child<FlexGrid>(list, "grdTable");
                 QKeyEvent repeated(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, QStringLiteral("\r"),
                                    true);
                 QCoreApplication::sendEvent(&grid, &repeated);
                 EXPECT_TRUE(list.isVisible());
                 tests::close(list);
             }});
    EXPECT_EQ(lines(takeTexts()), "");
}

TEST_F(Dispatch, TheNameIsAPlaceHolderUntilItIsFilled) {
    openList(QStringLiteral("R"), {[](QWidget& list) {
                 EXPECT_EQ(child<QLabel>(list, "lblName").text(), QStringLiteral("Patient's Name"));
                 tests::click(child<QPushButton>(list, "cmdClose"));
             }});
}

TEST_F(Dispatch, WithoutAModeNothingIsLoaded) {
    for (const char* formType : {"G", "R", "X"}) {
        answerFormType(base::Value(formType));
        openList(QStringLiteral("r"), {[](QWidget& list) {
                     tests::click(child<QPushButton>(list, "cmdSelect"));
                     EXPECT_TRUE(list.isVisible());
                     tests::close(list);
                 }});
        EXPECT_EQ(lines(takeTexts()), lines({examStatement}));
    }
}

TEST_F(Dispatch, TheListIsGoneWhileTheEntryScreenIsOpen) {
    openEntry(QStringLiteral("G"), QStringLiteral("R"), [](QWidget&) {
        for (const controls::Screen* open : controls::Screen::openScreens())
            EXPECT_NE(open->objectName(), QStringLiteral("frmResult"));
    });
}

} // namespace
