#include "platform/base/TestDoors.h"
#include "platform/controls/screen/TestDoors.h"
#include "results/frmResultEntry.h"
#include "session/Session.h"
#include "session/WorkDone.h"
#include "tests/results/ResultFixture.h"

#include <gtest/gtest.h>

#include <QClipboard>
#include <QGuiApplication>
#include <QLabel>
#include <QScrollBar>
#include <QWheelEvent>

using tests::Kind;
using tests::listed;

namespace {

class Commands : public tests::ResultFixture {
  public:
    static constexpr const char* all[] = {"btnSave",  "btnSavePrint", "btnEdit", "btnPrint",
                                          "btnClear", "btnRevoke",    "btnClose"};
    /// As a saved result is opened.
    void openSaved(Kind kind, const std::vector<const char*>& disabled) {
        fill(kind);
        screen().showCommands(std::array{"btnEdit", "btnPrint"}, true);
        screen().enableFields(std::array{"btnClear"}, false);
        screen().enableFields(disabled, false);
        screen().lockCaseNum(true);
        show();
    }
    std::string enabledAmong(const std::vector<const char*>& names) {
        QStringList enabled;
        for (const char* name : names) {
            if (widget(QString::fromLatin1(name)).isEnabled())
                enabled += QString::fromLatin1(name);
        }
        return listed(enabled);
    }
    static std::string listedNames(const std::vector<const char*>& names) {
        QStringList all_;
        for (const char* name : names)
            all_ += QString::fromLatin1(name);
        return listed(all_);
    }
    bool isLocked(results::ResultScreen& which) {
        return tests::child<QLineEdit>(which, "txtCaseNum").isReadOnly();
    }
};

class CommandsOn : public Commands, public testing::WithParamInterface<Kind> {};
INSTANTIATE_TEST_SUITE_P(Screens, CommandsOn, testing::ValuesIn(tests::allKinds),
                         testing::PrintToStringParamName());

TEST_P(CommandsOn, HaveTheirCaptions) {
    open(GetParam());
    EXPECT_EQ(screen().windowTitle(), "Result Entry");
    constexpr const char* captions[] = {" &Save",  " Save/&Print", " &Edit", " P&rint",
                                        " C&lear", " &Revoke",     " &Close"};
    for (std::size_t i = 0; i < std::size(all); ++i)
        EXPECT_EQ(tests::child<QPushButton>(screen(), all[i]).text(), captions[i]);
    EXPECT_EQ(tests::child<QLabel>(screen(), "lblSymbols").text(), "Press F5 to insert symbols.");
    EXPECT_FALSE(widget("btnRevoke").isVisible()) << "until a result is opened to be revoked";
}

TEST_P(CommandsOn, CloseUnloads) {
    open(GetParam());
    type("<Alt+C>");
    EXPECT_TRUE(screen().isUnloaded());
}

TEST_P(CommandsOn, ANewScreenStartsWithTodayTheYearAndTheUnit) {
    const base::FixedClock newYear(*base::makeDateTime({2027, 1, 2}, {0, 5}));
    open(GetParam());
    EXPECT_EQ(text("txtCaseNum"), "27-");
    EXPECT_EQ(text("DtResultDate"), "01/02/2027");
    if (GetParam() != Kind::Perfusion) {
        EXPECT_EQ(text("txtDose"), " mCi");
    }
}

TEST_P(CommandsOn, AScreenIsEmptyAgainOnceClosed) {
    open(GetParam());
    type("txtCaseNum", "<End>0001");
    type("txtRadiopharmaceutical", "x");
    screen().Unload();
    open(GetParam());
    EXPECT_EQ(text("txtCaseNum"), "26-");
    EXPECT_EQ(text("txtRadiopharmaceutical"), "");
}

// ---- clear

struct Cleared {
    Kind kind;
    std::vector<const char*> emptied;
    std::vector<const char*> kept;
};

const Cleared clearedOn[] = {
    {Kind::Generic,
     {"txtConclusion", "txtConsultation", "txtDose", "txtProjections", "txtRadiopharmaceutical", "txtRoute"},
     {"txtClinicalHistory", "txtRemarks", "txtCaseNum", "txtWeight", "txtHeight", "txtAttendingDrCode"}},
    {Kind::Perfusion,
     {"txtConclusion", "txtRadiopharmaceutical"},
     {"txtProtocol", "txtClinicalHistory", "txtTechnique", "txtStressDetails", "txtStressImages",
      "txtRestingImages", "txtQuantitativeData", "txtRemarks", "txtCaseNum"}},
    {Kind::Gfr,
     {"txtDose", "txtProjections", "txtRadiopharmaceutical", "txtRoute"},
     {"txtIsotope", "txtLeft_0", "txtRight_6", "txtScale", "txtCaseNum"}},
    {Kind::Radio,
     {"txtDose", "txtProjections", "txtRadiopharmaceutical", "txtRoute"},
     {"txtTechnologist", "txtNormal_0", "txtLeft_21", "txtCaseNum"}},
};

TEST_F(Commands, ClearEmptiesWhatEachScreenNames) {
    for (const Cleared& cleared : clearedOn) {
        open(cleared.kind);
        for (const char* name : cleared.emptied)
            type(name, "x");
        for (const char* name : cleared.kept)
            type(name, "x");
        type("<Alt+L>");
        for (const char* name : cleared.emptied)
            EXPECT_EQ(text(name), "") << name;
        for (const char* name : cleared.kept)
            EXPECT_TRUE(text(name).contains("x")) << name;
        screen().Unload();
    }
}

TEST_F(Commands, ClearKeepsTheFunctionalParameters) {
    open(Kind::Perfusion);
    type("grdTable", "60");
    press("btnClear");
    EXPECT_EQ(tests::child<controls::FlexGrid>(screen(), "grdTable").TextMatrix(1, 1), "60");
}

// ---- edit

struct Edited {
    Kind kind;
    std::vector<const char*> disabled; ///< when a saved result is opened
    std::vector<const char*> enabled;  ///< of them, by btnEdit
};

const Edited editedOn[] = {
    {Kind::Generic,
     {"txtRemarks", "txtCaseNum", "txtAttendingDrCode", "txtRequestingDrCode", "txtConclusion",
      "txtConsultation", "txtClinicalHistory", "txtDose", "txtProjections", "txtRadiopharmaceutical",
      "txtRoute"},
     {"txtRemarks", "txtCaseNum", "txtAttendingDrCode", "txtRequestingDrCode", "txtConclusion",
      "txtConsultation", "txtClinicalHistory", "txtDose", "txtProjections", "txtRadiopharmaceutical",
      "txtRoute"}},
    {Kind::Perfusion,
     {"txtCaseNum", "txtCardiologistCode", "txtRequestingDrCode", "txtConclusion", "txtRadiopharmaceutical",
      "txtProtocol", "txtRemarks", "txtClinicalHistory", "txtTechnique", "txtStressDetails",
      "txtStressImages", "txtRestingImages", "txtQuantitativeData", "grdTable"},
     {"txtCaseNum", "txtRequestingDrCode", "txtConclusion", "txtRadiopharmaceutical", "txtProtocol",
      "txtRemarks", "txtClinicalHistory", "txtTechnique", "txtStressDetails", "txtStressImages",
      "txtRestingImages", "txtQuantitativeData", "grdTable"}},
    {Kind::Gfr,
     {"txtCaseNum", "txtAttendingDrCode", "txtRequestingDrCode", "txtDose", "txtProjections",
      "txtRadiopharmaceutical", "txtRoute"},
     {"txtCaseNum", "txtAttendingDrCode", "txtRequestingDrCode", "txtDose", "txtProjections",
      "txtRadiopharmaceutical", "txtRoute"}},
    {Kind::Radio,
     {"txtCaseNum", "txtAttendingDrCode", "txtRequestingDrCode", "txtDose", "txtProjections",
      "txtRadiopharmaceutical", "txtRoute"},
     {"txtCaseNum", "txtAttendingDrCode", "txtRequestingDrCode", "txtDose", "txtProjections",
      "txtRadiopharmaceutical", "txtRoute"}},
};

TEST_F(Commands, EditEnablesWhatEachScreenNamesAndClear) {
    for (const Edited& edited : editedOn) {
        openSaved(edited.kind, edited.disabled);
        EXPECT_EQ(enabledAmong(edited.disabled), "");
        EXPECT_EQ(focused(), "btnEdit");
        type("<Alt+E>");
        EXPECT_EQ(enabledAmong(edited.disabled), listedNames(edited.enabled));
        EXPECT_TRUE(widget("btnClear").isEnabled());
        screen().Unload();
    }
}

TEST_F(Commands, EditGoesOnToWhereOneTypes) {
    const std::pair<Kind, const char*> typedOn[] = {{Kind::Generic, "txtConsultation"},
                                                    {Kind::Perfusion, "txtClinicalHistory"},
                                                    {Kind::Gfr, "txtAttendingDrCode"},
                                                    {Kind::Radio, "txtNormal_0"}};
    for (std::size_t i = 0; i < std::size(typedOn); ++i) {
        openSaved(typedOn[i].first, editedOn[i].disabled);
        type("<Alt+E>");
        EXPECT_EQ(focused(), typedOn[i].second);
        screen().Unload();
    }
}

TEST_F(Commands, TheFieldsOfATableAreOpenBeforeEdit) {
    openSaved(Kind::Gfr, editedOn[2].disabled);
    type("txtLeft_0", "12");
    EXPECT_EQ(text("txtLeft_0"), "12");
    screen().Unload();
    openSaved(Kind::Radio, editedOn[3].disabled);
    type("txtNormal_21", "12");
    EXPECT_EQ(text("txtNormal_21"), "12");
}

TEST_F(Commands, EditUnlocksTheCaseNumberOfTheGenericScreen) {
    openSaved(Kind::Generic, editedOn[0].disabled);
    press("btnEdit");
    EXPECT_FALSE(isLocked(screen()));
    type("txtCaseNum", "<End>1");
    EXPECT_EQ(text("txtCaseNum"), "26-1");
}

TEST_F(Commands, EditOfTheOthersUnlocksAHiddenGenericScreenAndKeepsTheirOwnLock) {
    for (const std::size_t i : {1U, 2U, 3U}) {
        controls::release<results::frmResultEntry>();
        openSaved(editedOn[i].kind, editedOn[i].disabled);
        EXPECT_FALSE(controls::SharedScreen<results::frmResultEntry>::exists());
        press("btnEdit");
        EXPECT_TRUE(isLocked(screen()));
        type("txtCaseNum", "9");
        EXPECT_EQ(text("txtCaseNum"), "26-");
        ASSERT_TRUE(controls::SharedScreen<results::frmResultEntry>::exists()) << "made for its field";
        auto& hidden = controls::SharedScreen<results::frmResultEntry>::current();
        EXPECT_TRUE(hidden.isLoaded());
        EXPECT_FALSE(hidden.isVisible());
        EXPECT_FALSE(isLocked(hidden));
        screen().Unload();
    }
}

TEST_F(Commands, ALockedCaseNumberKeepsASavedResultFromBeingSavedAgain) {
    openSaved(Kind::Gfr, editedOn[2].disabled);
    screen().setText("txtCaseNum", "26-0001");
    run("INSERT INTO NUCLEAR..tbNucLogBook (CaseNumber, RequestNum) VALUES ('26-0001', '90001')");
    press("btnEdit");
    type("txtCaseNum", "<End>2");
    boxes.expect({"The Case Number you entered is already used.", controls::vbExclamation, "Message"});
    press("btnSave");
    EXPECT_EQ(station(), "X|X|||");
    EXPECT_EQ(focused(), "txtCaseNum") << "it is what has to be typed anew";
}

TEST_F(Commands, ADisabledMemoCanStillBeReadToItsEnd) {
    fill(Kind::Generic);
    screen().setText("txtConsultation", QString("one line\n").repeated(200));
    screen().enableFields(std::array{"txtConsultation"}, false);
    show();
    auto* bar = tests::child<QPlainTextEdit>(screen(), "txtConsultation").verticalScrollBar();
    type("<PageDown>");
    EXPECT_GT(bar->value(), 0);
    type("<PageUp>");
    EXPECT_EQ(bar->value(), 0);
    QWidget* viewport = tests::child<QPlainTextEdit>(screen(), "txtConsultation").viewport();
    QWheelEvent down({5, 5}, viewport->mapToGlobal(QPointF(5, 5)), {}, {0, -120}, Qt::NoButton, {},
                     Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(viewport, &down);
    EXPECT_EQ(bar->value(), 3);
}

TEST_F(Commands, ADisabledLineTellsItsWholeText) {
    fill(Kind::Generic);
    const QString projections = QStringLiteral("AP, PA, ").repeated(40);
    screen().setText("txtProjections", projections);
    screen().enableFields(std::array{"txtProjections"}, false);
    show();
    EXPECT_EQ(widget("txtProjections").toolTip(), projections);
    screen().enableFields(std::array{"txtProjections"}, true);
    EXPECT_EQ(widget("txtProjections").toolTip(), "");
}

// ---- revocation

class Revocation : public CommandsOn {
  public:
    void openRevocable() {
        fill(GetParam());
        screen().showCommands(std::array{"btnSave", "btnSavePrint", "btnClear"}, false);
        screen().showCommands(std::array{"btnRevoke"}, true);
        screen().enableFields(std::array{"txtCaseNum"}, false);
        run("UPDATE NUCLEAR..tbNucMaster SET RequestStatus = 'W' WHERE RequestNum = '90001'");
        run("UPDATE STATION..tbNurseCommunicationFile SET RecordStatus = 'W' WHERE ReferenceNum = 'C900J'");
        run("UPDATE STATION..tbNurseLogBook SET RecordStatus = 'W' WHERE ReferenceNum = 'C900J'");
        run("INSERT INTO NUCLEAR..tbNucLogBook (CaseNumber, RequestNum) VALUES ('26-0001', '90001')");
        show();
    }
    void expectRevoked() {
        boxes.expect({"Result successfully revoked!", controls::vbInformation, "Message"});
    }
};
INSTANTIATE_TEST_SUITE_P(Screens, Revocation, testing::ValuesIn(tests::allKinds),
                         testing::PrintToStringParamName());

TEST_P(Revocation, PutsTheWardsRowsBackAndRunsTheServersPart) {
    openRevocable();
    EXPECT_EQ(focused(), "btnClose") << "Enter must not revoke";
    EXPECT_EQ(station(), "W|W|||W");
    expectRevoked();
    type("<Alt+R>");
    EXPECT_EQ(listed(takeTexts()),
              listed({"BEGIN", "SELECT * FROM STATION..tbNurseCommunicationFile WHERE ReferenceNum = 'C900J'",
                      "UPDATE: UPDATE STATION..tbNurseCommunicationFile SET [RecordStatus] = 'X' WHERE "
                      "[CommunicationID] = " +
                          value("SELECT CommunicationID FROM STATION..tbNurseCommunicationFile WHERE "
                                "RequestNum = '500001'") +
                          " AND [RecordStatus] = 'W'",
                      "SELECT * FROM STATION..tbNurseLogBook WHERE ReferenceNum = 'C900J'",
                      "UPDATE: UPDATE STATION..tbNurseLogBook SET [RecordStatus] = 'X' WHERE [LogBookID] = " +
                          value("SELECT LogBookID FROM STATION..tbNurseLogBook WHERE RequestNum = '500001'") +
                          " AND [RecordStatus] = 'W'",
                      "sp_Nuclear_CancelResult '90001'", "COMMIT"}));
    EXPECT_TRUE(screen().isUnloaded());
    ASSERT_EQ(session::workDone().size(), 1U);
    EXPECT_EQ(session::workDone().front().work, session::Work::RevokedResult);
    EXPECT_EQ(session::workDone().front().number, "90001");
    EXPECT_EQ(station(), "X|X|||");
    EXPECT_EQ(count("NUCLEAR..tbNucLogBook", "CaseNumber = '26-0001' AND Status = 'R'"), 1)
        << "the number is free";
}

TEST_P(Revocation, FindsTheRowsByTheChargeReferenceAlone) {
    openRevocable();
    screen().RefNum = " C900J ";
    screen().setText("txtIdNum", "something else");
    screen().NurseRequestNum = "0";
    expectRevoked();
    press("btnRevoke");
    EXPECT_EQ(station(), "X|X|||");
}

TEST_P(Revocation, WithoutTheWardsRowsStillRunsTheServersPart) {
    openRevocable();
    screen().RefNum = "C000J";
    expectRevoked();
    press("btnRevoke");
    EXPECT_EQ(listed(takeTexts()),
              listed({"BEGIN", "SELECT * FROM STATION..tbNurseCommunicationFile WHERE ReferenceNum = 'C000J'",
                      "SELECT * FROM STATION..tbNurseLogBook WHERE ReferenceNum = 'C000J'",
                      "sp_Nuclear_CancelResult '90001'", "COMMIT"}));
    EXPECT_EQ(station(), "W|W|||");
}

TEST_P(Revocation, MarksOnlyTheFirstOfSeveralRows) {
    run("INSERT INTO STATION..tbNurseLogBook (IdNum, RequestNum, RevenueID, RequestDate, RecordStatus, "
        "ReferenceNum) "
        "VALUES ('26004078','500002','NU','2026-11-21','W', 'C900J')");
    openRevocable();
    expectRevoked();
    press("btnRevoke");
    EXPECT_EQ(count("STATION..tbNurseLogBook", "ReferenceNum = 'C900J' AND RecordStatus = 'X'"), 1);
    EXPECT_EQ(count("STATION..tbNurseLogBook", "ReferenceNum = 'C900J' AND RecordStatus = 'W'"), 1);
}

/// A failure is trapped on the perfusion screen only; elsewhere it stops the program with the transaction
/// open.
TEST_P(Revocation, AFailureIsTrappedOnThePerfusionScreenOnly) {
    openRevocable();
    for (int failing = 1; failing <= 5; ++failing) {
        takeTexts();
        const bool isTrapped = GetParam() == Kind::Perfusion;
        if (isTrapped)
            boxes.expect({"Data Not Successfully Saved.", controls::vbOKOnly, "Warning"});
        {
            const tests::FaultInjector fault(*session::gConnection, failing);
            press("btnRevoke");
        }
        EXPECT_EQ(session::gConnection->inTransaction(), !isTrapped) << failing;
        EXPECT_EQ(takeTexts().last() == u"ROLLBACK", isTrapped) << failing;
        EXPECT_TRUE(screen().isVisible()) << "the screen stays open";
        EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
        if (!isTrapped) {
            EXPECT_EQ(errors.take().number(), 50000) << failing;
            session::gConnection->RollbackTrans(); // what the end of the program does
        }
        EXPECT_EQ(station(), "W|W|||W") << failing;
    }
    const tests::FaultInjector fault(*session::gConnection, 6);
    expectRevoked();
    press("btnRevoke");
    EXPECT_EQ(fault.seen(), 5);
}

/// A server that does not begin.
class NoBegin : public ado::Observer {
  public:
    NoBegin() { session::gConnection->addObserver(this); }
    ~NoBegin() override { session::gConnection->removeObserver(this); }
    NoBegin(const NoBegin&) = delete;
    NoBegin& operator=(const NoBegin&) = delete;
    void transactionStep(ado::TransactionStep step) override {
        if (step == ado::TransactionStep::Begin)
            throw base::RunTimeError(1222, "Lock request time out period exceeded.");
    }
};

/// The trap stands before the begin: its rollback then fails by itself, and nothing traps that.
TEST_P(Revocation, WithoutATransactionTheTrapsOwnRollbackFails) {
    openRevocable();
    const NoBegin server;
    press("btnRevoke");
    EXPECT_EQ(errors.take().number(), GetParam() == Kind::Perfusion ? 3903 : 1222);
    EXPECT_EQ(station(), "W|W|||W");
}

// ---- text

TEST_F(Commands, ALongTextComesBackAsItWasTyped) {
    const QString odd =
        QString::fromUtf8("Señora Núñez — 5 cm² ½ “so” \u00a0 € 日本 \U0001F600\n\n\tindented\n  end ");
    QString longText;
    while (longText.size() < 20000)
        longText += QStringLiteral("%1 ").arg(longText.size()) + odd;
    for (const Kind kind : {Kind::Generic, Kind::Perfusion}) {
        const std::vector<const char*> memos =
            kind == Kind::Generic
                ? std::vector{"txtConsultation", "txtConclusion", "txtClinicalHistory", "txtRemarks"}
                : std::vector{"txtClinicalHistory", "txtTechnique",     "txtStressDetails",
                              "txtStressImages",    "txtRestingImages", "txtQuantitativeData",
                              "txtConclusion",      "txtRemarks"};
        const std::vector<const char*> columns =
            kind == Kind::Generic
                ? std::vector{"Interpretation", "conclusion", "clinicalhistory", "Remarks"}
                : std::vector{"clinicalhistory", "technique",        "stressdetails", "stressimages",
                              "restingimages",   "quantitativedata", "conclusion",    "Remarks"};
        open(kind);
        type("txtCaseNum", QStringLiteral("<End>%1").arg(int(kind)));
        for (const char* memo : memos) {
            QGuiApplication::clipboard()->setText(memo + longText);
            type(memo, "<Ctrl+V>");
        }
        boxes.expect({"Data Successfully Saved!", controls::vbInformation, "Notification"});
        type("<Alt+S>");
        for (std::size_t i = 0; i < memos.size(); ++i) {
            const QString stored =
                value(QStringLiteral("SELECT %1 FROM NUCLEAR..tbNucResult WHERE RequestNum = '90001'")
                          .arg(QLatin1String(columns[i])));
            EXPECT_TRUE(stored == memos[i] + longText) << columns[i];
            screen().setText(memos[i], stored);
            EXPECT_TRUE(text(memos[i]) == stored) << memos[i];
        }
        screen().Unload();
    }
}

TEST_F(Commands, ANameThatNoControlHasIsAnError) {
    fill(Kind::Generic);
    EXPECT_THROW(text("txtNothing"), base::RunTimeError);
    EXPECT_THROW(screen().setText("SSTab1", "x"), base::RunTimeError);
}

TEST_F(Commands, TheBandTellsWhoAndWhat) {
    open(Kind::Generic);
    EXPECT_EQ(tests::child<QLabel>(screen(), "bandSubtitle").text(),
              QString::fromUtf8("AGUILAR, ROSARIO CRUZ   ·   1001 BONE SCAN, WHOLE BODY"));
}

} // namespace
