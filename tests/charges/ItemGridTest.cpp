// The box that rides over the grid of the pharmacy's and central supply's screens: its keys, what it takes
// and what it refuses.
#include "tests/charges/ItemFixture.h"

namespace {

using tests::child;
using tests::Store;

class ItemGrid : public tests::ItemFixture, public testing::WithParamInterface<Store> {
  protected:
    void SetUp() override { openForAdmitted(GetParam()); }
    /// Two complete lines and an empty one, the box in the code of the last.
    void fillTwo() {
        type(QStringLiteral("%1<Enter>").arg(GetParam().items[0]));
        type("<Down><Home>");
        type(QStringLiteral("%1<Enter>").arg(GetParam().items[1]));
        type("<Down><Home>");
        ASSERT_EQ(at(), "3,1");
        ASSERT_EQ(grid().Rows(), 4);
    }
};

INSTANTIATE_TEST_SUITE_P(Stores, ItemGrid, testing::Values(tests::pharmacy, tests::centralSupply),
                         [](const auto& each) { return std::string(each.param.name); });

TEST_P(ItemGrid, ACodeFillsItsLineAndBringsTheNext) {
    EXPECT_EQ(box().maxLength(), 5);
    EXPECT_TRUE(box().hasFocus());
    type(QStringLiteral("%1<Enter>").arg(GetParam().items[0]));
    EXPECT_EQ(line(1), picked(1, GetParam().items[0]));
    EXPECT_EQ(line(2), "2||||||||");
    EXPECT_EQ(grid().Rows(), 3);
    EXPECT_EQ(at(), "1,2");
    EXPECT_EQ(box().text(), cell(1, 2).left(35));
    const QStringList sent = takeTexts();
    ASSERT_EQ(sent.size(), 3);
    EXPECT_TRUE(sent[0].contains(QStringLiteral("('%1' = '' OR S.LocationID = '%1')").arg(GetParam().place)))
        << sent[0].toStdString();
    EXPECT_EQ(sent[1], QStringLiteral("STATION..Nurse_CheckExamStatus '26004078','%1','%2'")
                           .arg(GetParam().items[0], GetParam().type));
    EXPECT_EQ(sent[2], QStringLiteral("STATION..Nurse_CheckExam_Posted '26004078','%1','%2'")
                           .arg(GetParam().items[0], GetParam().type));
}

TEST_P(ItemGrid, AnyOtherTextIsANameToBePickedFromTheList) {
    const QString name = itemName(GetParam().items[1]).left(4);
    QString title;
    tests::runModal([&] { type(name.toLower() + "<Enter>"); }, {[&](QWidget& list) {
                        title = list.windowTitle();
                        EXPECT_EQ(child<QLineEdit>(list, "txtSearch").text(), name);
                        auto& rows = child<controls::FlexGrid>(list, "grdTable");
                        while (rows.TextMatrix(rows.Row(), 0) != GetParam().items[1] &&
                               rows.Row() < rows.Rows() - 1)
                            tests::keysToFocus(list, "<Down>");
                        tests::keysToFocus(list, "<Enter>");
                    }});
    EXPECT_EQ(title, GetParam().isSupply ? "List of Supplies" : "list of medicines");
    EXPECT_EQ(line(1), picked(1, GetParam().items[1]));
}

TEST_P(ItemGrid, AListThatIsLeftChangesNothing) {
    tests::runModal([&] { type("ZZZ<Enter>"); }, {[](QWidget& list) { tests::keysToFocus(list, "<Esc>"); }});
    EXPECT_EQ(line(1), "1||||||||");
    EXPECT_EQ(box().text(), "ZZZ");
    EXPECT_EQ(at(), "1,1");
}

TEST_P(ItemGrid, ACodeThatIsNotOnFileStaysInTheBox) {
    boxes.expect({"Code Not Exists!"});
    type("99999<Enter>");
    EXPECT_EQ(box().text(), "99999");
    EXPECT_EQ(at(), "1,1");
    EXPECT_EQ(line(1), "1||||||||");
}

TEST_P(ItemGrid, AnItemOutOfUseStaysInTheBox) {
    hospital.run(QStringLiteral("UPDATE INVENTORY..tbInvMaster SET Inactive = 1 WHERE ItemID = '%1'")
                     .arg(GetParam().items[0]));
    boxes.expect({"Record is inactive...please reenter...", controls::vbExclamation, "Message"});
    type(QStringLiteral("%1<Enter>").arg(GetParam().items[0]));
    EXPECT_EQ(box().text(), GetParam().items[0]);
    EXPECT_EQ(line(1), "1||||||||");
}

TEST_P(ItemGrid, ACodeOfAnotherLineIsRefusedAndCleared) {
    fillTwo();
    takeTexts();
    boxes.expect({QString::fromLatin1(GetParam().duplicateOfCode)});
    type(QStringLiteral("%1<Enter>").arg(GetParam().items[0]));
    EXPECT_EQ(box().text(), "");
    EXPECT_EQ(line(3), "3||||||||");
    EXPECT_EQ(takeTexts().size(), 1) << "nobody asked whether it was requested";
}

TEST_P(ItemGrid, ADuplicateFromTheListIsAMedicineInBothScreens) {
    fillTwo();
    boxes.expect({"Can't Request the Same Medicine!"});
    tests::runModal([&] { type(itemName(GetParam().items[0]).left(4) + "<Enter>"); }, {[&](QWidget& list) {
                        auto& rows = child<controls::FlexGrid>(list, "grdTable");
                        while (rows.TextMatrix(rows.Row(), 0) != GetParam().items[0] &&
                               rows.Row() < rows.Rows() - 1)
                            tests::keysToFocus(list, "<Down>");
                        tests::keysToFocus(list, "<Enter>");
                    }});
    EXPECT_EQ(box().text(), "");
    EXPECT_EQ(line(3), "3||||||||");
}

TEST_P(ItemGrid, TheLastLineIsNotLookedAtForDuplicates) {
    type(QStringLiteral("%1<Enter>").arg(GetParam().items[0]));
    // the last line has the code, and is still incomplete
    grid().setTextMatrix(2, 1, GetParam().items[1]);
    type(QStringLiteral("<Home>%1<Enter>").arg(GetParam().items[1]));
    EXPECT_EQ(line(1), picked(1, GetParam().items[1]));
    EXPECT_FALSE(screen().Check_Code(GetParam().items[1])) << "nor is the line itself";
    grid().setTextMatrix(1, 1, " 777 ");
    grid().setCurrentCell(2, 1);
    EXPECT_TRUE(screen().Check_Code("777 "));
}

TEST_P(ItemGrid, OkToTheFirstQuestionDropsTheItem) {
    logged(GetParam().items[0], "N");
    const QString asked =
        tests::toServerDays("The Item is already requested at " +
                            value("SELECT RequestDate FROM STATION..tbNurseLogBook WHERE RequestNum = '1'") +
                            ". Do you want to proceed? ");
    const QString code = QStringLiteral("%1<Enter>").arg(GetParam().items[0]);
    boxes.expect({asked, controls::vbOKCancel, "Message ", controls::vbOK});
    type(code);
    EXPECT_EQ(line(1), "1||||||||");
    EXPECT_EQ(box().text(), "");
    EXPECT_EQ(takeTexts().filter("Posted"), QStringList()) << "the second question is not asked";
    boxes.expect({asked, controls::vbOKCancel, "Message ", controls::vbCancel});
    type(code);
    EXPECT_EQ(line(1), picked(1, GetParam().items[0]));
}

TEST_P(ItemGrid, NoToTheSecondQuestionDropsTheItem) {
    logged(GetParam().items[0], "X");
    const QString asked =
        tests::toServerDays("This Request has been PROCCESSED TODAY AT " +
                            value("SELECT ProcessDate FROM STATION..tbNurseLogBook WHERE RequestNum = '1'") +
                            "! Do you wish to REPEAT it ?");
    const int style = controls::vbYesNo + controls::vbCritical;
    const QString code = QStringLiteral("%1<Enter>").arg(GetParam().items[0]);
    boxes.expect({asked, style, "Message ", controls::vbNo});
    type(code);
    EXPECT_EQ(line(1), "1||||||||");
    EXPECT_EQ(box().text(), "");
    boxes.expect({asked, style, "Message ", controls::vbYes});
    type(code);
    EXPECT_EQ(line(1), picked(1, GetParam().items[0]));
}

TEST_P(ItemGrid, TwoNoughtsLeaveTheBoxEmptyAndGoOn) {
    type("00<Enter>");
    EXPECT_EQ(at(), "1,2");
    EXPECT_EQ(box().text(), "");
    EXPECT_EQ(cell(1, 1), "");
    EXPECT_EQ(grid().Rows(), 2) << "the line is incomplete";
    EXPECT_EQ(takeTexts(), QStringList());
}

TEST_P(ItemGrid, ALineOfTwoNoughtsLetsTheCursorStopOnItsAmount) {
    EXPECT_TRUE(screen().ExcemptCol(0));
    EXPECT_TRUE(screen().ExcemptCol(5));
    for (const int column : {1, 2, 3, 4, 6, 7, 8})
        EXPECT_FALSE(screen().ExcemptCol(column)) << column;
    grid().setTextMatrix(1, 1, "00");
    EXPECT_FALSE(screen().ExcemptCol(5));
    EXPECT_FALSE(screen().ExcemptCol(0));
    type("<End><End><End><End>");
    EXPECT_EQ(at(), "1,5");
    EXPECT_EQ(box().maxLength(), 3);
    type("12<Enter>");
    EXPECT_EQ(cell(1, 5), "") << "what is typed there is not kept";
    EXPECT_EQ(at(), "1,6");
}

TEST_P(ItemGrid, EachColumnTakesWhatItsKindIs) {
    type(QStringLiteral("%1<Enter>").arg(GetParam().items[0]));
    EXPECT_EQ(box().maxLength(), 35);
    type("crushed<Enter>");
    EXPECT_EQ(cell(1, 2), "CRUSHED");
    EXPECT_EQ(at(), "1,3");
    EXPECT_EQ(box().maxLength(), 8);
    EXPECT_EQ(message(), "Type Dosage Code or first letters of Dosage Name then Press <Enter>....");
    type("bid<Enter>");
    EXPECT_EQ(cell(1, 3), "BID");
    EXPECT_EQ(cell(1, 4), "2") << "times a day";
    EXPECT_EQ(cell(1, 5), price(GetParam().items[0])) << "and the amount is still that of one";
    EXPECT_EQ(at(), "1,4");
    EXPECT_EQ(box().maxLength(), 3);
    EXPECT_EQ(message(), "Type Quantity to request then Press <Enter>....");
    type("1a0+0-9<Enter>");
    EXPECT_EQ(cell(1, 4), "100") << "three digits at most";
    EXPECT_EQ(cell(1, 5), QString::number(unitPrice(GetParam().items[0]).toDouble() * 100));
    EXPECT_EQ(at(), "1,6") << "the amount is skipped";
    EXPECT_EQ(box().maxLength(), 30);
    EXPECT_EQ(message(), "Type Addition Remarks and then Press <Enter>....");
    type("o'clock<Enter>");
    EXPECT_EQ(cell(1, 6), "O`CLOCK");
    EXPECT_EQ(at(), "2,1") << "the next line";
    EXPECT_EQ(message(), "Type Item Code or first 4 letters of Item Name then Press <Enter>....");
}

TEST_P(ItemGrid, RemarksOfTheLastLineGoBackToItsCode) {
    type("<End><End><End><End>NOTE<Enter>");
    EXPECT_EQ(cell(1, 6), "NOTE");
    EXPECT_EQ(at(), "1,1");
}

TEST_P(ItemGrid, AnUnknownDosageStaysInTheBox) {
    type(QStringLiteral("%1<Enter><Enter>").arg(GetParam().items[0]));
    boxes.expect({"Dosage Code Does not Exist !"});
    tests::runModal([&] { type("ZZZ<Enter>"); }, {[](QWidget& list) { tests::keysToFocus(list, "<Esc>"); }});
    EXPECT_EQ(box().text(), "ZZZ");
    EXPECT_EQ(cell(1, 3), "PRN");
    EXPECT_EQ(at(), "1,3");
}

TEST_P(ItemGrid, AQuantityIsAboveNought) {
    type(QStringLiteral("%1<Enter><End><End>").arg(GetParam().items[0]));
    ASSERT_EQ(at(), "1,4");
    for (const char* refused : {"0", "/", "."}) {
        boxes.expect({"Quantity should be greater than zero!"});
        tests::keys(box(), QStringLiteral("<Ctrl+A>%1<Enter>").arg(refused));
        EXPECT_EQ(box().text(), refused);
        EXPECT_EQ(cell(1, 4), "1");
    }
    tests::keys(box(), "<Ctrl+A>.5<Enter>");
    EXPECT_EQ(cell(1, 5), QString::number(unitPrice(GetParam().items[0]).toDouble() / 2));
}

TEST_P(ItemGrid, SixKeysGoFromCellToCellAndTakeNothing) {
    fillTwo();
    takeTexts();
    const auto goes = [&](const char* from, const char* key, const char* to) {
        const QStringList cell = QString::fromLatin1(from).split(u',');
        grid().setCurrentCell(cell[0].toInt(), cell[1].toInt());
        box().setText("X");
        type(key);
        EXPECT_EQ(at(), to) << from << ' ' << key;
        EXPECT_EQ(box().text(), grid().Text().left(box().maxLength())) << from << ' ' << key;
    };
    goes("1,1", "<Home>", "1,1");
    goes("1,3", "<Home>", "1,2");
    goes("1,6", "<Home>", "1,4");
    goes("1,1", "<End>", "1,2");
    goes("1,4", "<End>", "1,6");
    goes("1,2", "<Up>", "1,2");
    goes("2,2", "<Up>", "1,2");
    goes("2,2", "<Down>", "3,2");
    goes("3,2", "<Down>", "3,2");
    goes("2,3", "<Left>", "2,3");
    goes("2,3", "<Right>", "2,3");
    EXPECT_EQ(takeTexts(), QStringList());
    EXPECT_EQ(line(1), picked(1, GetParam().items[0]));
    EXPECT_EQ(line(2), picked(2, GetParam().items[1]));
    EXPECT_TRUE(hint().endsWith("was not taken. Enter takes a cell.")) << hint().toStdString();
    type("<End><End><End><End><End><End><End><End>");
    EXPECT_EQ(at(), "2,8") << "never past the last";
    type("<Home><Home>");
    EXPECT_EQ(at(), "2,6");
}

TEST_P(ItemGrid, ALineIsCompleteWithoutDescriptionAndRemarks) {
    EXPECT_FALSE(screen().CompleteRow(1));
    for (const int column : {1, 3, 4, 5}) {
        EXPECT_FALSE(screen().CompleteRow(1));
        grid().setTextMatrix(1, column, "1");
    }
    EXPECT_TRUE(screen().CompleteRow(1));
    screen().AddRow(1);
    EXPECT_EQ(grid().Rows(), 3);
    screen().AddRow(1);
    EXPECT_EQ(grid().Rows(), 3) << "the last line is not complete";
    for (const int column : {1, 3, 4, 5})
        grid().setTextMatrix(2, column, "1");
    grid().setTextMatrix(1, 4, "");
    screen().AddRow(1);
    EXPECT_EQ(grid().Rows(), 3) << "nor is the other";
    screen().AddRow(2);
    EXPECT_EQ(grid().Rows(), 4);
    EXPECT_EQ(cell(3, 0), "3");
}

TEST_P(ItemGrid, F3ClearsTheFirstLineAndRemovesAnyOther) {
    fillTwo();
    grid().setCurrentCell(1, 2);
    type("<F3>");
    EXPECT_EQ(line(1), "1||||||||" + unitPrice(GetParam().items[0])) << "what is hidden stays";
    EXPECT_EQ(grid().Rows(), 4);
    EXPECT_EQ(at(), "3,2") << "the box goes to the last line";
    grid().setCurrentCell(2, 1);
    type("<F3>");
    EXPECT_EQ(grid().Rows(), 3);
    EXPECT_EQ(cell(2, 0), "3") << "numbers stay as they are";
    EXPECT_EQ(at(), "2,1");
    EXPECT_TRUE(box().hasFocus());
    type(QStringLiteral("%1<Enter>").arg(GetParam().items[2]));
    EXPECT_EQ(grid().Rows(), 4);
    EXPECT_EQ(cell(3, 0), "3") << "counted on from what is left";
}

TEST_P(ItemGrid, F3WorksFromAnyFieldOnceThereIsAPatient) {
    fillTwo();
    tests::keys(field("txtPName"), "<F3>");
    EXPECT_EQ(grid().Rows(), 3);
}

TEST_P(ItemGrid, DeleteAsksAndNumbersAnew) {
    const QString title = "MESSAGE";
    boxes.expect({"Row cannot be deleted because there are no entries yet.", controls::vbInformation, title});
    type("<Alt+D>");
    fillTwo();
    grid().setCurrentCell(1, 1);
    boxes.expect({"Are you sure to delete the request?", controls::vbYesNo | controls::vbQuestion, title,
                  controls::vbNo});
    type("<Alt+D>");
    EXPECT_EQ(grid().Rows(), 4);
    boxes.expect({"Are you sure to delete the request?", controls::vbYesNo | controls::vbQuestion, title,
                  controls::vbYes});
    type("<Alt+D>");
    EXPECT_EQ(grid().Rows(), 3);
    EXPECT_EQ(line(1), picked(1, GetParam().items[1]));
    EXPECT_EQ(cell(2, 0), "2");
    EXPECT_EQ(box().text(), GetParam().items[1]) << "the new current cell";
    grid().RemoveItem(2);
    boxes.expect({"Are you sure to delete the request?", controls::vbYesNo | controls::vbQuestion, title,
                  controls::vbYes});
    type("<Alt+D>");
    EXPECT_EQ(grid().Rows(), 2);
    EXPECT_EQ(line(1), "1||||||||");
    EXPECT_FALSE(screen().QualifiedRow(1));
    grid().setTextMatrix(1, 8, "9");
    EXPECT_TRUE(screen().QualifiedRow(1)) << "whatever stands there, seen or not";
}

TEST_P(ItemGrid, TabTakesWhatWasTypedAndElseLeavesTheGrid) {
    type(QStringLiteral("%1<Tab>").arg(GetParam().items[0]));
    EXPECT_EQ(line(1), picked(1, GetParam().items[0]));
    EXPECT_EQ(at(), "1,2");
    type("<Tab>");
    EXPECT_TRUE(save().hasFocus());
    type("<Shift+Tab>");
    EXPECT_TRUE(box().hasFocus());
    type("<End><End>0");
    box().setText("0");
    boxes.expect({"Quantity should be greater than zero!"});
    type("<Tab>");
    EXPECT_TRUE(box().hasFocus());
}

TEST_P(ItemGrid, AClickElsewhereTakesWhatWasTypedOrGoesBack) {
    type(QStringLiteral("%1<Enter><End><End>7").arg(GetParam().items[0]));
    const auto clickCell = [&](int row, int column) {
        const QRect where = grid().shownCellRect(row, column);
        QTest::mouseClick(grid().viewport(), Qt::LeftButton, {},
                          grid().viewport()->mapFrom(grid().parentWidget(), where.center()));
    };
    clickCell(2, 1);
    EXPECT_EQ(at(), "2,1");
    EXPECT_EQ(cell(1, 4), "7");
    type("99999");
    boxes.expect({"Code Not Exists!"});
    clickCell(1, 6);
    EXPECT_EQ(at(), "2,1");
    EXPECT_EQ(box().text(), "99999");
}

TEST_P(ItemGrid, AHeldEnterCountsOnce) {
    for (int i = 0; i < 3; ++i) {
        QKeyEvent held(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, "\r", i > 0);
        if (i == 0)
            type(GetParam().items[0]);
        QCoreApplication::sendEvent(&box(), &held);
    }
    EXPECT_EQ(at(), "1,2");
}

} // namespace
