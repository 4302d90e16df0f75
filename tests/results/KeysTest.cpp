#include "results/frmSymbols.h"
#include "session/Session.h"
#include "session/services/Services.h"
#include "tests/results/ResultFixture.h"

#include <gtest/gtest.h>

#include <QClipboard>
#include <QGuiApplication>
#include <QLabel>
#include <QMouseEvent>
#include <QTabBar>
#include <QTest>

using tests::Kind;
using tests::listed;

namespace {

struct Fields {
    Kind kind;
    std::vector<const char*> symbols;    ///< F5 opens the symbols
    std::vector<const char*> backQuotes; ///< ' becomes `
    std::vector<const char*> plain;      ///< neither
    std::vector<std::pair<const char*, const char*>> moves;
};

const Fields fieldsOf[] = {
    {Kind::Generic,
     {"txtClinicalHistory", "txtConclusion", "txtConsultation", "txtDose", "txtProjections",
      "txtRadiopharmaceutical", "txtRoute"},
     {"txtClinicalHistory", "txtConclusion", "txtConsultation", "txtDose", "txtProjections",
      "txtRadiopharmaceutical", "txtRoute", "txtCaseNum", "txtAttendingDrCode", "txtRequestingDrCode"},
     {"txtRemarks", "txtHeight", "txtWeight"},
     {{"txtRadiopharmaceutical", "txtDose"},
      {"txtDose", "txtRoute"},
      {"txtRoute", "txtProjections"},
      {"txtProjections", "txtConsultation"}}},
    {Kind::Perfusion,
     {"txtClinicalHistory", "txtConclusion", "txtProtocol", "txtQuantitativeData", "txtRadiopharmaceutical",
      "txtRestingImages", "txtStressDetails", "txtStressImages", "txtTechnique"},
     {"txtClinicalHistory", "txtConclusion", "txtProtocol", "txtQuantitativeData", "txtRestingImages",
      "txtStressDetails", "txtStressImages", "txtTechnique", "txtCaseNum", "txtCardiologistCode",
      "txtRequestingDrCode"},
     {"txtRemarks", "txtHeight", "txtWeight"},
     {{"txtRadiopharmaceutical", "txtProtocol"}, {"txtProtocol", "txtClinicalHistory"}}},
    {Kind::Gfr,
     {"txtDose", "txtProjections", "txtRadiopharmaceutical", "txtRoute"},
     {"txtDose", "txtProjections", "txtRadiopharmaceutical", "txtRoute", "txtCaseNum", "txtAttendingDrCode",
      "txtRequestingDrCode"},
     {"txtIsotope", "txtLeft_0", "txtRight_6", "txtScale", "txtHeight", "txtWeight"},
     {{"txtRadiopharmaceutical", "txtDose"}, {"txtDose", "txtRoute"}, {"txtRoute", "txtProjections"}}},
    {Kind::Radio,
     {"txtDose", "txtProjections", "txtRadiopharmaceutical", "txtRoute"},
     {"txtDose", "txtProjections", "txtRadiopharmaceutical", "txtRoute", "txtCaseNum", "txtAttendingDrCode",
      "txtRequestingDrCode"},
     {"txtTechnologist", "txtLeft_0", "txtNormal_21", "txtHeight", "txtWeight"},
     {{"txtRadiopharmaceutical", "txtDose"}, {"txtDose", "txtRoute"}, {"txtRoute", "txtProjections"}}},
};

void PrintTo(const Fields& fields, std::ostream* out) {
    tests::PrintTo(fields.kind, out);
}

class Keys : public tests::ResultFixture {
  public:
    /// Takes a symbol by its double click.
    static tests::Step takeSymbol(int index) {
        return [index](QWidget& window) {
            EXPECT_EQ(window.objectName(), "frmSymbols");
            QTest::mouseDClick(
                &tests::child<QLabel>(window, qPrintable(QStringLiteral("Label1_%1").arg(index))),
                Qt::LeftButton);
        };
    }
    void clickTab(const char* tabs, int index) {
        QTabBar* bar = tests::child<QTabWidget>(screen(), tabs).tabBar();
        QTest::mouseClick(bar, Qt::LeftButton, {}, bar->tabRect(index).center());
    }
    static tests::Step closeSymbols() {
        return [](QWidget& window) { tests::keysToFocus(window, "<Alt+C>"); };
    }
};

class KeysOf : public Keys, public testing::WithParamInterface<Fields> {};
INSTANTIATE_TEST_SUITE_P(Screens, KeysOf, testing::ValuesIn(fieldsOf), testing::PrintToStringParamName());

TEST_P(KeysOf, F5OpensTheSymbolsOnTheFieldsThatTakeThem) {
    open(GetParam().kind);
    for (const char* field : GetParam().symbols) {
        type(field, {});
        tests::runModal([&] { type("<F5>"); }, {closeSymbols()});
    }
    for (const char* field : GetParam().plain)
        type(field, "<F5>"); // a symbol list would wait here for ever
    type("txtCaseNum", "<F5>");
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

TEST_P(KeysOf, ASymbolIsAppendedAndTheCaretGoesBehindIt) {
    open(GetParam().kind);
    for (const char* field : GetParam().symbols) {
        type(field, "<Ctrl+A>area of 5 cm<Home>");
        tests::runModal([&] { type("<F5>"); }, {takeSymbol(5)});
        type("!");
        EXPECT_EQ(text(field), QString::fromUtf8("area of 5 cm²!")) << field;
    }
}

TEST_P(KeysOf, AQuoteBecomesABackQuoteWhereItIsFiltered) {
    open(GetParam().kind);
    QGuiApplication::clipboard()->setText("'s");
    for (const char* field : GetParam().backQuotes) {
        type(field, "<Ctrl+A>'<Ctrl+V>");
        EXPECT_EQ(text(field), "``s") << field;
    }
    for (const char* field : GetParam().plain) {
        type(field, "<Ctrl+A>'<Ctrl+V>");
        EXPECT_EQ(text(field), "''s") << field;
    }
}

TEST_P(KeysOf, EnterMovesOnAndStopsAtTheLast) {
    open(GetParam().kind);
    for (const auto& [from, to] : GetParam().moves) {
        type(from, "<Enter>");
        EXPECT_EQ(focused(), to);
        EXPECT_TRUE(widget(QString::fromLatin1(to)).isVisible()) << to << " lies on a page that is not shown";
    }
    type("txtWeight", "<Enter>");
    EXPECT_EQ(focused(), "txtWeight");
    type("txtHeight", "<KeypadEnter>");
    EXPECT_EQ(focused(), "txtHeight");
}

TEST_F(Keys, EnterInTheProjectionsOfTheTableScreensDoesNothing) {
    for (const Kind kind : {Kind::Gfr, Kind::Radio}) {
        open(kind);
        type("txtProjections", "AP<Enter>");
        EXPECT_EQ(focused(), "txtProjections");
        EXPECT_EQ(text("txtProjections"), "AP");
        screen().Unload();
    }
}

TEST_F(Keys, TheRadiopharmaceuticalOfThePerfusionScreenLetsAQuoteThrough) {
    open(Kind::Perfusion);
    type("txtRadiopharmaceutical", "King's");
    EXPECT_EQ(text("txtRadiopharmaceutical"), "King's");
}

TEST_F(Keys, TheDoseIsTypedInFrontOfItsUnit) {
    for (const Kind kind : {Kind::Generic, Kind::Gfr, Kind::Radio}) {
        open(kind);
        EXPECT_EQ(text("txtDose"), " mCi");
        type("txtRadiopharmaceutical", "MDP<Enter>25<Enter>");
        EXPECT_EQ(text("txtDose"), "25 mCi");
        type("txtRadiopharmaceutical", "<Tab>1");
        EXPECT_EQ(text("txtDose"), "251 mCi") << "the caret stays where it was";
        screen().Unload();
    }
}

TEST_F(Keys, F5OnTheDoseAppendsBehindTheUnit) {
    open(Kind::Generic);
    type("txtDose", "5");
    tests::runModal([&] { type("<F5>"); }, {takeSymbol(6)});
    EXPECT_EQ(text("txtDose"), QString::fromUtf8("5 mCi³"));
}

/// As a window manager says that a window is on the screen again.
TEST_F(Keys, AWindowThatWasMinimisedComesBackAsItWasLeft) {
    open(Kind::Generic);
    type("txtConsultation", "Uptake");
    QShowEvent shown;
    QSpontaneKeyEvent::setSpontaneous(&shown);
    qApp->notify(&screen(), &shown); // sendEvent() would say that the program sent it
    EXPECT_EQ(focused(), "txtConsultation");
    type(" is normal");
    EXPECT_EQ(text("txtConsultation"), "Uptake is normal");
    EXPECT_EQ(text("txtCaseNum"), "26-");
}

TEST_F(Keys, TheYearStandsInFrontAndTypingGoesBehindIt) {
    open(Kind::Generic);
    EXPECT_EQ(focused(), "txtCaseNum");
    type("0815<Tab>");
    EXPECT_EQ(text("txtCaseNum"), "26-0815");
    EXPECT_EQ(focused(), "DtResultDate");
}

// ---- symbols

TEST_F(Keys, ClosingTheSymbolsAppendsNothing) {
    open(Kind::Generic);
    type("txtRoute", "IV");
    for (const char* leave : {"<Alt+C>", "<Esc>", "<Right><Alt+C>", "<Right><Esc>"}) {
        tests::runModal([&] { type("<F5>"); },
                        {[&](QWidget& window) { tests::keysToFocus(window, QString::fromLatin1(leave)); }});
        EXPECT_EQ(text("txtRoute"), "IV") << leave;
    }
    tests::runModal([&] { type("<F5>"); }, {[](QWidget& window) {
                        tests::keysToFocus(window, "<Right>");
                        window.close();
                    }});
    EXPECT_EQ(text("txtRoute"), "IV");
}

TEST_F(Keys, TheSymbolsAreTakenByKeyAsWell) {
    open(Kind::Generic);
    type("txtRoute", "IV");
    const auto choose = [&](const char* typed) {
        tests::runModal([&] { type("<F5>"); },
                        {[&](QWidget& window) { tests::keysToFocus(window, QString::fromLatin1(typed)); }});
    };
    choose("<Right><Enter>");
    EXPECT_EQ(text("txtRoute"), QString::fromUtf8("IVº"));
    choose("<Right><Right><Down><Alt+S>"); // in rows of six
    EXPECT_EQ(text("txtRoute"), QString::fromUtf8("IVº§"));
    choose("<Left><Up><Down><Down><Down><Right><Right><Right><Right><Right><Right><Enter>");
    EXPECT_EQ(text("txtRoute"), QString::fromUtf8("IVº§®")) << "nothing lies beyond the last one";
}

TEST_F(Keys, SelectKeepsTheSymbolThatThereIs) {
    open(Kind::Generic);
    type("txtRoute", "IV");
    tests::runModal([&] { type("<F5>"); }, {[](QWidget& window) {
                        QTest::mouseMove(&tests::child<QLabel>(window, "Label1_3"), QPoint(9, 9));
                        QTest::mouseMove(&tests::child<QLabel>(window, "Label1_3"), QPoint(10, 10));
                        tests::click(tests::child<QPushButton>(window, "cmdSelect"));
                    }});
    EXPECT_EQ(text("txtRoute"), "IV") << "the mouse marks, but only its double click takes";
}

TEST_F(Keys, NoOtherSymbolIsTakenThanTheOneThatIsMarked) {
    open(Kind::Generic);
    type("txtRoute", "IV");
    const auto enterBehind = [&](const char* mouseOver) {
        tests::runModal([&] { type("<F5>"); }, {[&](QWidget& window) {
                            tests::keysToFocus(window, "<Right><Right>");
                            QMouseEvent move(QEvent::MouseMove, QPointF(5, 5), QPointF(5, 5), Qt::NoButton,
                                             Qt::NoButton, {});
                            QCoreApplication::sendEvent(&tests::child<QLabel>(window, mouseOver), &move);
                            tests::keysToFocus(window, "<Alt+S>");
                        }});
    };
    enterBehind("Label1_3"); // the arrows chose the second one
    EXPECT_EQ(text("txtRoute"), "IV");
    enterBehind("Label1_1");
    EXPECT_EQ(text("txtRoute"), QString::fromUtf8("IV¼"));
}

TEST_F(Keys, TheSymbolsStandInTheirOrderAndTheMouseMarksOne) {
    auto& symbols = controls::SharedScreen<results::frmSymbols>::fresh();
    symbols.Show();
    EXPECT_EQ(symbols.windowTitle(), "Commonly Used Symbols ");
    QString all;
    for (int i = 0; i < results::frmSymbols::symbolCount; ++i)
        all += tests::child<QLabel>(symbols, qPrintable(QStringLiteral("Label1_%1").arg(i))).text().trimmed();
    EXPECT_EQ(all, QString::fromUtf8("º¼½¾¹²³§Øß©£ÒÑñæ®"));
    const auto marked = [&](const char* name) {
        const QLabel& label = tests::child<QLabel>(symbols, name);
        const bool white = label.palette().color(QPalette::WindowText) == QColor(Qt::white);
        return white && label.cursor().shape() == Qt::PointingHandCursor;
    };
    const auto moveOver = [&](const char* name) {
        QMouseEvent move(QEvent::MouseMove, QPointF(5, 5), QPointF(5, 5), Qt::NoButton, Qt::NoButton, {});
        QCoreApplication::sendEvent(&tests::child<QLabel>(symbols, name), &move);
    };
    moveOver("Label1_2");
    EXPECT_TRUE(marked("Label1_2"));
    EXPECT_FALSE(marked("Label1_16"));
    moveOver("Label1_16");
    EXPECT_FALSE(marked("Label1_2"));
    EXPECT_TRUE(marked("Label1_16"));
    EXPECT_EQ(symbols.Symbol(), "");
    symbols.Unload();
}

// ---- doctors

class DoctorLookup : public Keys {
  public:
    QString nameOf(const char* code) {
        return value(QStringLiteral("SELECT 'DR. ' + LastName + ',' + FirstName + ' ' + MiddleName FROM "
                                    "BUILD_FILE..tbcoDoctor WHERE DoctorID = '%1'")
                         .arg(QLatin1String(code)));
    }
};

TEST_F(DoctorLookup, EnterInTheCodeFillsTheName) {
    for (const Kind kind : {Kind::Generic, Kind::Gfr, Kind::Radio}) {
        open(kind);
        type("txtAttendingDrCode", "<Ctrl+A>205<Enter>");
        EXPECT_EQ(text("txtAttendingDr"), nameOf("205"));
        EXPECT_EQ(text("txtAttendingDrCode"), "205");
        type("txtRequestingDrCode", "<Ctrl+A>202<Enter>");
        EXPECT_EQ(text("txtRequestingDr"), nameOf("202"));
        EXPECT_EQ(text("txtAttendingDr"), nameOf("205"));
        screen().Unload();
    }
}

TEST_F(DoctorLookup, AnEmptyBoxOpensTheListAndGivingUpChangesNothing) {
    open(Kind::Generic);
    screen().setText("txtAttendingDr", "DR. WHO");
    session::gCodeFind->SearchMode = false; // a request screen left it so
    type("txtAttendingDrCode", "<Ctrl+A><Del>");
    tests::runModal([&] { type("<Enter>"); }, {[](QWidget& window) {
                        EXPECT_EQ(window.objectName(), "frmPickList");
                        tests::keysToFocus(window, "<Esc>");
                    }});
    EXPECT_EQ(text("txtAttendingDr"), "DR. WHO");
    EXPECT_EQ(text("txtAttendingDrCode"), "");
    tests::runModal([&] { press("cmdBrowse1"); },
                    {[](QWidget& window) { tests::keysToFocus(window, "<Enter>"); }});
    EXPECT_FALSE(text("txtAttendingDrCode").isEmpty());
    EXPECT_EQ(text("txtAttendingDr"), nameOf(qPrintable(text("txtAttendingDrCode"))));
}

TEST_F(DoctorLookup, EnterInTheCardiologistsCodeOpensTheRequestingDoctorsLookup) {
    open(Kind::Perfusion);
    screen().setText("txtRequestingDrCode", "202");
    type("txtCardiologistCode", "<Ctrl+A>205<Enter>");
    EXPECT_EQ(text("txtRequestingDr"), nameOf("202"));
    EXPECT_EQ(text("txtCardiologist"), "");
    press("cmdBrowse1");
    EXPECT_EQ(text("txtCardiologist"), nameOf("205"));
    EXPECT_EQ(text("txtCardiologistCode"), "205");
    screen().setText("txtRequestingDrCode", "201");
    type("txtRequestingDrCode", "<Enter>");
    EXPECT_EQ(text("txtRequestingDr"), nameOf("201"));
}

// ---- the whole screen without the mouse

/// The stops of Tab; the parts of a date count as one.
std::string tabOrder(Keys& keys, qsizetype stops) {
    QStringList order{keys.focused()};
    while (order.size() < stops) {
        keys.type("<Tab>");
        if (keys.focused() != order.last())
            order += keys.focused();
    }
    return listed(order);
}

TEST_F(Keys, TabWalksTheGenericScreenPageByPage) {
    open(Kind::Generic);
    tests::child<QLineEdit>(screen(), "txtAttendingDrCode").setFocus();
    EXPECT_EQ(tabOrder(*this, 21), listed({"txtAttendingDrCode",
                                           "cmdBrowse1",
                                           "txtWeight",
                                           "txtRequestingDrCode",
                                           "cmdBrowse2",
                                           "txtHeight",
                                           "txtCaseNum",
                                           "DtResultDate",
                                           "txtRadiopharmaceutical",
                                           "txtDose",
                                           "txtRoute",
                                           "txtProjections",
                                           "txtConsultation",
                                           "txtConclusion",
                                           "txtClinicalHistory",
                                           "txtRemarks",
                                           "btnSave",
                                           "btnSavePrint",
                                           "btnClose",
                                           "btnClear",
                                           "txtAttendingDrCode"}))
        << "what empties the fields comes last";
    tests::child<QPushButton>(screen(), "btnSave").setFocus();
    type("<Shift+Tab><Shift+Tab><Shift+Tab>");
    EXPECT_EQ(focused(), "txtConclusion") << "backwards as well";
    EXPECT_TRUE(widget("txtConclusion").isVisible());
}

TEST_F(Keys, TabWalksThePerfusionScreenThroughItsInnerPages) {
    open(Kind::Perfusion);
    tests::child<QLineEdit>(screen(), "txtProtocol").setFocus();
    EXPECT_EQ(tabOrder(*this, 11),
              listed({"txtProtocol", "txtClinicalHistory", "txtTechnique", "txtStressDetails",
                      "txtStressImages", "txtRestingImages", "txtQuantitativeData", "grdTable",
                      "txtConclusion", "txtRemarks", "btnSave"}));
    type("txtConclusion", "<Shift+Tab>");
    EXPECT_EQ(focused(), "grdTable");
    type("<Shift+Tab>");
    EXPECT_EQ(focused(), "txtQuantitativeData");
}

TEST_F(Keys, TabWalksTheMeasurementsLineByLine) {
    open(Kind::Gfr);
    tests::child<QLineEdit>(screen(), "txtIsotope").setFocus();
    QStringList expected{"txtIsotope"};
    for (int i = 0; i < 7; ++i)
        expected << QStringLiteral("txtLeft_%1").arg(i) << QStringLiteral("txtRight_%1").arg(i);
    expected << "txtScale"
             << "btnSave";
    EXPECT_EQ(tabOrder(*this, expected.size()), listed(expected));
}

TEST_F(Keys, TabWalksTheAnalytesLineByLineOverBothParts) {
    open(Kind::Radio);
    tests::child<QLineEdit>(screen(), "txtTechnologist").setFocus();
    QStringList expected{"txtTechnologist"};
    for (int i = 0; i < 22; ++i)
        expected << QStringLiteral("txtNormal_%1").arg(i) << QStringLiteral("txtLeft_%1").arg(i);
    expected << "btnSave";
    EXPECT_EQ(tabOrder(*this, expected.size()), listed(expected));
}

TEST_F(Keys, PagesTurnByKeyWhereverTheFocusIs) {
    open(Kind::Generic);
    auto& tabs = tests::child<QTabWidget>(screen(), "SSTab1");
    type("txtRoute", "<Ctrl+PageDown>");
    EXPECT_EQ(tabs.currentIndex(), 1);
    type("<Ctrl+PageUp><Ctrl+PageUp>");
    EXPECT_EQ(tabs.currentIndex(), 3);
    type("txtConsultation", "a<Ctrl+Tab>");
    EXPECT_EQ(tabs.currentIndex(), 1);
    EXPECT_EQ(text("txtConsultation"), "a") << "no tabulator in the text";
    EXPECT_EQ(focused(), "txtConclusion");
}

/// The first field of the page that a tab leads to has the focus: what is typed next belongs there.
TEST_F(Keys, AClickOnATabGoesToItsPage) {
    open(Kind::Generic);
    EXPECT_EQ(focused(), "txtCaseNum");
    clickTab("SSTab1", 1);
    type("Normal");
    EXPECT_EQ(text("txtConclusion"), "Normal");
    EXPECT_EQ(text("txtCaseNum"), "26-");
    clickTab("SSTab1", 1);
    EXPECT_EQ(focused(), "txtConclusion");
    screen().enableFields(std::array{"txtClinicalHistory"}, false);
    clickTab("SSTab1", 2);
    EXPECT_EQ(focused(), "btnClose");
    type("txtRoute", {});
    clickTab("SSTab1", 1);
    type("txtRoute", {});
    clickTab("SSTab1", 2);
    EXPECT_EQ(focused(), "txtRoute") << "a page that is only read leaves it";
    screen().Unload();

    open(Kind::Radio);
    clickTab("SSTab1", 1);
    EXPECT_EQ(focused(), "txtNormal_11");
    screen().Unload();

    open(Kind::Perfusion);
    clickTab("SSTab1", 3);
    EXPECT_EQ(focused(), "txtStressImages");
    clickTab("SSTab2", 3);
    EXPECT_EQ(focused(), "grdTable");
}

TEST_F(Keys, APageThatIsTurnedWithAnOpenCellComesBackToItsGrid) {
    open(Kind::Perfusion);
    type("grdTable", "60");
    EXPECT_EQ(focused(), "txtEntry");
    clickTab("SSTab2", 0);
    EXPECT_EQ(focused(), "txtStressImages");
    clickTab("SSTab2", 3);
    EXPECT_EQ(focused(), "grdTable");
    type("61<Ctrl+PageDown>");
    EXPECT_EQ(focused(), "txtConclusion");
    type("<Ctrl+PageUp>");
    EXPECT_EQ(focused(), "grdTable");
    type("<Right>65");
    EXPECT_EQ(tests::child<controls::FlexGrid>(screen(), "grdTable").TextMatrix(1, 1), "61");
    EXPECT_EQ(tests::child<controls::FlexGrid>(screen(), "grdTable").TextMatrix(1, 2), "65");
}

TEST_F(Keys, AResultToRevokeNeverComesNearItsCommandByTurningPages) {
    fill(Kind::Perfusion);
    screen().showCommands(std::array{"btnRevoke"}, true);
    screen().showCommands(std::array{"btnSave", "btnSavePrint", "btnClear"}, false);
    screen().enableFields(std::array{"txtClinicalHistory", "txtConclusion", "txtRemarks"}, false);
    show();
    type("txtTechnique", "<Ctrl+PageUp>");
    EXPECT_EQ(focused(), "btnClose");
    type("txtTechnique", {});
    clickTab("SSTab1", 4);
    EXPECT_EQ(focused(), "btnClose");
    type("txtStressDetails", "<Shift+Tab>");
    EXPECT_EQ(focused(), "txtTechnique");
    type("<Shift+Tab>");
    EXPECT_EQ(focused(), "txtProtocol") << "over the page that takes nothing";
}

class WithoutTheMouse : public Keys {
  public:
    /// Types a whole result from the case number on, and saves.
    void enter(Kind kind, const QString& typed) {
        open(kind);
        boxes.expect({"Data Successfully Saved!", controls::vbInformation, "Notification"});
        type("0001<Tab><Tab>" + typed + "<Alt+S>");
    }
    QString stored(const char* columns, const char* table = "tbNucResult") {
        return value(QStringLiteral("SELECT %1 FROM NUCLEAR..%2 WHERE RequestNum = '90001'")
                         .arg(QString::fromLatin1(columns).replace(",", " + '|' + "), QLatin1String(table)));
    }
};

TEST_F(WithoutTheMouse, AGenericResult) {
    enter(Kind::Generic,
          "MDP<Enter>25<Enter>IV<Enter>AP<Enter>Uptake is normal.<Tab>Normal.<Tab>None.<Tab>-");
    EXPECT_EQ(stored("Dose,Route,Projections,Interpretation,Conclusion,ClinicalHistory,Remarks"),
              "25 mCi|IV|AP|Uptake is normal.|Normal.|None.|-");
}

TEST_F(WithoutTheMouse, APerfusionResult) {
    enter(Kind::Perfusion,
          "MIBI<Enter>Bruce<Enter>Pain<Tab>Two days<Tab>9 METs<Tab>Defect<Tab>Filled<Tab>12<Tab>"
          "60<Enter>65<Down><Down><Down><Down>ok<Tab>Ischemia<Tab>-");
    EXPECT_EQ(
        stored(
            "Protocol,ClinicalHistory,Technique,StressDetails,StressImages,RestingImages,QuantitativeData"),
        "Bruce|Pain|Two days|9 METs|Defect|Filled|12");
    EXPECT_EQ(stored("Fraction,EDV,WallMotion,Conclusion,Remarks"), "60|65||||ok|Ischemia|-");
}

TEST_F(WithoutTheMouse, AGfrResult) {
    enter(Kind::Gfr,
          "DTPA<Enter>5<Enter>IV<Enter>PA<Tab>Tc<Tab>1<Tab>2<Tab>3<Tab>4<Tab>5<Tab>6<Tab>7<Tab>8<Tab>9<Tab>"
          "10<Tab>11<Tab>12<Tab>letters too<Tab>14<Tab>98");
    EXPECT_EQ(stored("Isotope,Left1,Right1,Left2,Right2,Left7,Right7,Scale"), "Tc|1|2|3|4|letters too|14|98");
}

TEST_F(WithoutTheMouse, ARadioImmunoassayResult) {
    QString boxesTyped;
    for (int i = 0; i < 22; ++i)
        boxesTyped += QStringLiteral("<Tab>%1<Tab>").arg(i);
    enter(Kind::Radio, "I-125<Enter>5<Enter>x<Enter>y<Tab>Cruz" + boxesTyped);
    EXPECT_EQ(stored("Technologist,Calcitonin,Cortisol,DHEA,Insulin", "tbNucRadioResult"), "Cruz|0|10|11|21");
}

} // namespace
