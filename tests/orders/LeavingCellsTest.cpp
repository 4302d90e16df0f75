// A cell that was typed in is taken however it is left, or it is said why not. On both request screens.
#include "platform/controls/look/Look.h"
#include "tests/orders/RequestFixture.h"

#include <QLabel>
#include <QScrollBar>
#include <QTest>

namespace {

class Leaving : public tests::RequestFixture, public testing::WithParamInterface<const char*> {
  public:
    bool isOut() const { return GetParam() == std::string_view("frmOutRequest"); }
    void start() {
        if (isOut())
            openOut({.IdNumber = value("SELECT TOP 1 IdNum FROM PATIENT_DATA..tbOutPatient WHERE DcrDate IS "
                                       "NULL ORDER BY IdNum")});
        else
            openAdmitted();
    }
    /// The bills that a save sends.
    QStringList bills() {
        takeTexts();
        boxes.expect({isOut()
                          ? QStringLiteral("Data Successfully Saved!")
                          : QStringLiteral("Data Successfully Saved! ChargeSlip No.: 'C%1J'").arg(nextSlip()),
                      controls::vbOKOnly, "Message"});
        type("<Alt+S>");
        return takeTexts().filter("sp_addbill");
    }
    /// A save that says why not: the next box is this one.
    void refusesToSave(const QString& why) {
        takeTexts();
        boxes.expect({why, controls::vbInformation, ""});
        type("<Alt+S>");
        EXPECT_EQ(takeTexts().count("BEGIN"), 0);
        EXPECT_FALSE(screen().isUnloaded());
        EXPECT_TRUE(button("cmdSave").isEnabled());
        EXPECT_TRUE(field("txtEntry").hasFocus());
    }
    void at(int row, int column) {
        EXPECT_EQ(grid().Row(), row);
        EXPECT_EQ(grid().Col(), column);
    }
    void clickCell(int row, int column) {
        QTest::mouseClick(grid().viewport(), Qt::LeftButton, {},
                          grid().visualRect(grid().model()->index(row - 1, column - 1)).center());
    }
    QString amountOf(int row, int quantity) {
        return QString::number(cell(row, 5).toDouble() * quantity, 'f', 2);
    }
    bool isMarked(int row, int column) {
        return grid().model()->index(row - 1, column - 1).data(Qt::ForegroundRole).value<QBrush>().color() ==
               controls::look::warn;
    }
    QString hint() { return tests::child<QLabel>(screen(), "lblHint").text(); }
};

TEST_P(Leaving, TabTakesTheQuantity) {
    start();
    type("NU<Enter>1002<Enter>R<Enter>3<Tab>");
    EXPECT_GT(cell(1, 5).toDouble(), 0);
    EXPECT_EQ(cell(1, 7), amountOf(1, 3));
    EXPECT_EQ(field("txtGross").text(), amountOf(1, 3));
    EXPECT_EQ(grid().Rows(), 2) << "and adds no line";
    EXPECT_TRUE(button("cmdSave").hasFocus());
    const double amount = cell(1, 7).toDouble();
    const QStringList sent = bills();
    ASSERT_EQ(sent.size(), 1);
    EXPECT_TRUE(sent[0].contains(QStringLiteral("'1002','%1','NU'").arg(amount))) << sent[0].toStdString();
    EXPECT_TRUE(sent[0].contains(",'3','','', ")) << sent[0].toStdString();
}

TEST_P(Leaving, TabAloneBuildsALine) {
    start();
    type("NU<Tab>");
    EXPECT_EQ(cell(1, 3), "NUCLEAR PROCEDURES");
    at(1, 2);
    type("1002<Tab>");
    EXPECT_EQ(cell(1, 3), value("SELECT NucExam FROM BUILD_FILE..tbcoNucExam WHERE NucExamID = '1002'"));
    at(1, 4);
    EXPECT_TRUE(tests::child<QComboBox>(screen(), "cboEntry").isVisible());
    type("S<Tab>");
    EXPECT_EQ(field("txtEntry").text(), "1");
    EXPECT_FALSE(button("cmdSave").isEnabled());
    type("<Tab>");
    EXPECT_EQ(cell(1, 6), "1");
    EXPECT_EQ(cell(1, 7), amountOf(1, 1));
    EXPECT_TRUE(button("cmdSave").isEnabled());
}

TEST_P(Leaving, WhatCannotBeTakenSaysSoAndStays) {
    start();
    boxes.expect({"Item does not exists.", controls::vbExclamation, ""});
    type("QQ<Tab>");
    at(1, 1);
    EXPECT_EQ(field("txtEntry").selectedText(), "QQ");
    for (const char* key : {"<Tab>", "<Shift+Tab>", "<Down>"}) {
        if (grid().Rows() == 2)
            grid().AddItem({});
        type("<Ctrl+A>NU<Enter>");
        boxes.expect({"Invalid Code.", controls::vbExclamation, ""});
        tests::runModal([&] { type(QStringLiteral("ZZZZ") + key); },
                        {[](QWidget& list) { tests::keysToFocus(list, "<Esc>"); }});
        at(1, 2);
        EXPECT_EQ(screen().focusWidget(), &field("txtEntry")) << key;
        type("<Ctrl+A><Del><Esc>");
        grid().setCurrentCell(1, 1);
        type("<Enter>");
    }
}

TEST_P(Leaving, TabAndTheArrowsPassThroughAFinishedLine) {
    start();
    type("NU<Enter>1001<Enter>R<Enter>3<Enter>MD<Enter>201<Enter><Tab>1500<Enter>");
    const QStringList lines{line(1), line(2)};
    const QString gross = field("txtGross").text();
    takeTexts();
    for (const char* key : {"<Shift+Tab>", "<Tab>"}) {
        for (int step = 0; step < 10; ++step) {
            type(key);
            EXPECT_EQ(QStringList({line(1), line(2)}), lines) << key << step;
        }
    }
    at(3, 1);
    type("<Shift+Tab><Shift+Tab>");
    at(2, 6);
    type("<Up>");
    at(1, 6);
    EXPECT_EQ(field("txtEntry").text(), "3") << "a quantity begins at 1 for Enter, a click or typing";
    type("<Down>");
    EXPECT_EQ(QStringList({line(1), line(2)}), lines);
    type("<Down>");
    EXPECT_EQ(line(3), "||||||") << "nobody's quantity";
    EXPECT_EQ(field("txtGross").text(), gross);
    EXPECT_EQ(takeTexts(), QStringList()) << "and nothing is looked up";
    clickCell(1, 6);
    EXPECT_EQ(cell(1, 6), "1");
}

TEST_P(Leaving, AFeeIsEnteredByKeysAlone) {
    start();
    EXPECT_EQ(hint(), "");
    type("MD<Enter>201<Enter>");
    EXPECT_EQ(hint(), "Tab - from Quantity to Amount");
    EXPECT_EQ(tests::child<QLabel>(screen(), "lblHelp").text(), "F3 - Delete Line");
    EXPECT_FALSE(button("cmdSave").isEnabled());
    type("<Tab>1500<Enter>");
    EXPECT_TRUE(button("cmdSave").isEnabled());
    EXPECT_TRUE(button("cmdSavePrint").isEnabled());
    EXPECT_EQ(hint(), "") << "on the next line";
    type("<Shift+Tab><Shift+Tab><Tab><Tab>");
    EXPECT_EQ(cell(1, 7), "1500.00");
    EXPECT_EQ(cell(1, 6), "1");
    type("<Esc>");
    const QStringList sent = bills();
    ASSERT_EQ(sent.size(), 1);
    EXPECT_TRUE(sent[0].contains("'201','1500','MD'")) << sent[0].toStdString();
}

TEST_P(Leaving, UpDownAndAClickTakeIt) {
    start();
    type("NU<Enter>1001<Enter>R<Enter>1<Enter>NU<Enter>1002<Enter>R<Enter>2<Up>");
    at(1, 6);
    EXPECT_EQ(cell(2, 7), amountOf(2, 2));
    type("<Ctrl+A>3<Down>");
    EXPECT_EQ(cell(1, 7), amountOf(1, 3));
    type("<Ctrl+A>4");
    clickCell(1, 2);
    EXPECT_EQ(cell(2, 7), amountOf(2, 4));
    at(1, 2);
    EXPECT_TRUE(field("txtEntry").isVisible());
    type("1003");
    clickCell(2, 3);
    at(2, 3);
    EXPECT_EQ(cell(1, 3), value("SELECT NucExam FROM BUILD_FILE..tbcoNucExam WHERE NucExamID = '1003'"));
    clickCell(1, 2);
    boxes.expect({"Exam already selected.", controls::vbExclamation, "Assessment"});
    type("1002");
    clickCell(2, 6);
    at(1, 2);
    EXPECT_EQ(cell(2, 6), "4") << "the click did not get there";
}

TEST_P(Leaving, WhatEscapeAndScrollingLeaveIsMarkedAndTakenByTheSave) {
    start();
    type("NU<Enter>1001<Enter>R<Enter>1<Enter>NU<Enter>1002<Enter>R<Enter>3");
    EXPECT_EQ(hint(), "") << "while it is typed";
    type("<Esc>");
    EXPECT_TRUE(isMarked(2, 6));
    EXPECT_EQ(hint(), "Line 2: Quantity \"3\" is not taken yet. Press Enter in it.");
    EXPECT_EQ(cell(2, 7), "");
    for (int row = 0; row < 40; ++row)
        grid().AddItem({});
    grid().setCurrentCell(3, 1);
    type("<Enter>M");
    grid().verticalScrollBar()->setValue(20);
    ASSERT_FALSE(field("txtEntry").isVisible());
    EXPECT_TRUE(isMarked(3, 1));
    grid().setRows(4);
    grid().setCurrentCell(3, 1);
    type("<Enter><Backspace>");
    EXPECT_FALSE(isMarked(3, 1));
    type("<F3>");
    const double amount = cell(2, 5).toDouble() * 3;
    const QStringList sent = bills();
    ASSERT_EQ(sent.size(), 2);
    EXPECT_TRUE(sent[1].contains(QStringLiteral("'1002','%1','NU'").arg(amount))) << sent[1].toStdString();
    EXPECT_TRUE(sent[1].contains(",'3','','', ")) << sent[1].toStdString();
}

TEST_P(Leaving, TheMarkGoesWithItsLine) {
    start();
    type("NU<Enter>1001<Enter>R<Enter>1<Enter>NU<Enter>1002<Enter>R<Enter>3<Esc>");
    grid().setCurrentCell(1, 1);
    type("<F3>");
    EXPECT_TRUE(isMarked(1, 6));
    EXPECT_EQ(hint(), "Line 1: Quantity \"3\" is not taken yet. Press Enter in it.");
    type("<F3>");
    EXPECT_EQ(hint(), "");
}

TEST_P(Leaving, ALineThatIsOnlyBegunIsNotPosted) {
    start();
    type("NU<Enter>1001<Enter>R<Enter>1<Enter>NU");
    refusesToSave("Line 2 has no code yet.");
    at(2, 2);
    type("1002");
    refusesToSave("Line 2 has a new code. Confirm its quantity first.");
    at(2, 6);
    EXPECT_EQ(cell(2, 6), "1");
    const double amount = cell(2, 5).toDouble();
    const QStringList sent = bills();
    ASSERT_EQ(sent.size(), 2);
    EXPECT_TRUE(sent[1].contains(QStringLiteral("'1002','%1','NU'").arg(amount))) << sent[1].toStdString();
}

TEST_P(Leaving, TheAmountThatIsOpenIsKeptByTheSave) {
    start();
    type("MD<Enter>201<Enter>2<Esc>");
    grid().setCurrentCell(1, 7);
    type("<Enter>750");
    button("cmdSave").setEnabled(true);
    const QStringList sent = bills();
    ASSERT_EQ(sent.size(), 1);
    EXPECT_TRUE(sent[0].contains("'201','750','MD'")) << sent[0].toStdString();
    EXPECT_TRUE(sent[0].contains(",'2','','', ")) << sent[0].toStdString();
}

TEST_P(Leaving, LettersAreNoNumber) {
    start();
    type("MD<Enter>201<Enter><Tab>");
    const QString noAmount = "\"15OO\" is not a number. Type the amount in figures.";
    for (const char* key : {"15OO<Enter>", "<Ctrl+A>15OO<Tab>", "<Ctrl+A>15OO<Shift+Tab>"}) {
        boxes.expect({noAmount, controls::vbInformation, ""});
        type(key);
        at(1, 7);
        EXPECT_EQ(field("txtEntry").selectedText(), "15OO") << key;
    }
    refusesToSave(noAmount);
    type("1500<Enter>NU<Enter>1001<Enter>R<Enter>");
    const QString noQuantity = "\".\" is not a number. Type the quantity in figures.";
    for (const char* key : {".<Enter>", "<Ctrl+A>.<Tab>", "<Ctrl+A>.<Up>"}) {
        boxes.expect({noQuantity, controls::vbInformation, ""});
        type(key);
        at(2, 6);
    }
    refusesToSave(noQuantity);
    boxes.expect({noQuantity, controls::vbInformation, ""});
    clickCell(1, 1);
    at(2, 6);
    type("<Esc>");
    refusesToSave(noQuantity);
    type("2");
    EXPECT_EQ(bills().size(), 2);
}

TEST_P(Leaving, AnAmountOfTheFormerCodeIsMarkedUntilItsQuantityIsConfirmed) {
    start();
    for (const char* key : {"<Enter>", "<Tab>"}) {
        type("<Esc>");
        grid().setCurrentCell(1, 1);
        type("<F3><Enter>NU<Enter>1001<Enter>R<Enter>3<Enter>");
        const QString former = cell(1, 7);
        grid().setCurrentCell(1, 2);
        type("<Esc><Enter><Ctrl+A>1003<Tab>");
        at(1, 4);
        EXPECT_EQ(cell(1, 2), "1003");
        EXPECT_EQ(cell(1, 7), former) << "kept";
        EXPECT_TRUE(isMarked(1, 7));
        EXPECT_EQ(hint(), "Line 1: Amount is of the former price or code. Confirm Quantity.");
        type("<Tab>");
        EXPECT_EQ(cell(1, 6), "3");
        EXPECT_TRUE(isMarked(1, 7));
        type(key);
        EXPECT_EQ(cell(1, 7), amountOf(1, 3)) << key;
        EXPECT_NE(cell(1, 7), former);
        EXPECT_FALSE(isMarked(1, 7)) << key;
        EXPECT_EQ(hint(), "");
    }
}

TEST_P(Leaving, AnAmountOfTheFormerTypeIsMarkedUntilThePriceIsBack) {
    start();
    type("NU<Enter>1001<Enter>R<Enter>3<Enter>");
    grid().setCurrentCell(1, 4);
    type("<Esc><Enter>");
    EXPECT_FALSE(isMarked(1, 7)) << "looked at";
    type("S");
    EXPECT_TRUE(isMarked(1, 7));
    type("R");
    EXPECT_FALSE(isMarked(1, 7));
    type("S<Tab><Tab>");
    EXPECT_EQ(cell(1, 7), amountOf(1, 3));
    EXPECT_FALSE(isMarked(1, 7));
    grid().setCurrentCell(1, 2);
    type("<Esc><Enter><Enter>");
    EXPECT_FALSE(isMarked(1, 7)) << "the same code at the same price";
}

TEST_P(Leaving, ADeletedLineLeavesTheNextOnesQuantity) {
    start();
    type("NU<Enter>1001<Enter>R<Enter>1<Enter>NU<Enter>1002<Enter>R<Enter>3<Enter>");
    const QString kept = line(2);
    grid().setCurrentCell(1, 6);
    type("<Esc><Enter><F3>");
    at(1, 6);
    EXPECT_EQ(line(1), kept);
}

TEST_P(Leaving, APackageScreenGetsNoHalfTypedLine) {
    start();
    type("NU<Enter>1001<Enter>R<Enter>3");
    tests::click(button("cmdPackage"));
    EXPECT_EQ(screens.packages.size(), 1u);
    EXPECT_EQ(cell(1, 7), amountOf(1, 3));
    grid().setCurrentCell(1, 6);
    boxes.expect({"\".\" is not a number. Type the quantity in figures.", controls::vbInformation, ""});
    type("<Enter>.");
    tests::click(button("cmdPackage"));
    EXPECT_EQ(screens.packages.size(), 1u);
}

INSTANTIATE_TEST_SUITE_P(Screens, Leaving, testing::Values("frmRequest", "frmOutRequest"),
                         [](const auto& each) { return std::string(each.param); });

} // namespace
