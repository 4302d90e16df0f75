#include "tests/support/screens/Workstations.h"

namespace {

const QString saver = QStringLiteral("saver");

class Faults : public tests::Workstations {
  public:
    /// Rows of every table that a save of the two lines writes, and the stock on hand.
    Counts rows = [this] {
        return QList<int>{
            value("SELECT COUNT(*) FROM NUCLEAR..tbNucMaster"),
            value("SELECT COUNT(*) FROM STATION..tbNurseLogBook"),
            value("SELECT COUNT(*) FROM BILLING..tbDailyBill"),
            value("SELECT COUNT(*) FROM INVENTORY..tbInvStockCard"),
            value("SELECT ChargeSlip FROM NUCLEAR..tbNucSlip"),
            value("SELECT RequestNum FROM NUCLEAR..tbNucSlip"),
            value("SELECT -OnHand FROM INVENTORY..tbInvStock WHERE ItemID = '40001' AND LocationID = '224'")};
    };
};

TEST_F(Faults, AProcessKilledAtAnyStepLeavesTheWholeRequestOrNothing) {
    const QList<int> before = rows();
    EXPECT_EQ(cutAtEveryStep(saver, rows), 15) << "begin, thirteen statements and the commit can be cut";
    EXPECT_EQ(rows(), (QList<int>{before[0] + 2, before[1] + 2, before[2] + 1, before[3] + 1, before[4] + 1,
                                  before[5] + 2, before[6] + 2}))
        << "the next save works, and is whole";
}

TEST_F(Faults, EightWorkstationsNeverShareANumber) {
    constexpr int workstations = 8;
    constexpr int saves = 6;
    constexpr int all = workstations * saves;
    const QList<int> before = rows();
    EXPECT_EQ(saveAtOnce(saver, workstations, saves).size(), all);
    EXPECT_EQ(rows(), (QList<int>{before[0] + 2 * all, before[1] + 2 * all, before[2] + all, before[3] + all,
                                  before[4] + all, before[5] + 2 * all, before[6] + 2 * all}));
    EXPECT_EQ(
        value("SELECT COUNT(*) FROM (SELECT RequestNum FROM NUCLEAR..tbNucMaster GROUP BY RequestNum HAVING "
              "COUNT(*) > 1) AS Twice"),
        0);
}

TEST_F(Faults, EightDesksTakeEachRequestOfTheirInTrayOnce) {
    const int before = value("SELECT COUNT(*) FROM NUCLEAR..tbNucMaster");
    const int billed = value("SELECT COUNT(*) FROM BILLING..tbDailyBill");
    const int ward = value("SELECT COUNT(*) FROM STATION..tbNurseCommunicationFile WHERE RecordStatus = 'N'");
    saveAtOnce(QStringLiteral("taker"), 8, 4);
    const int left = value("SELECT COUNT(*) FROM STATION..tbNurseCommunicationFile WHERE RecordStatus = 'N'");
    EXPECT_LT(left, ward);
    EXPECT_EQ(value("SELECT COUNT(*) FROM NUCLEAR..tbNucMaster"), before + ward - left);
    EXPECT_EQ(value("SELECT COUNT(*) FROM BILLING..tbDailyBill"), billed + ward - left);
    EXPECT_EQ(value("SELECT COUNT(*) FROM (SELECT NurseRequestNum FROM NUCLEAR..tbNucMaster GROUP BY "
                    "NurseRequestNum HAVING COUNT(*) > 1) AS Twice"),
              0);
    EXPECT_EQ(
        value("SELECT COUNT(*) FROM STATION..tbNurseLogBook L INNER JOIN STATION..tbNurseCommunicationFile "
              "C ON C.RequestNum = L.RequestNum WHERE C.RecordStatus <> L.RecordStatus"),
        0)
        << "both files of the wards say the same";
}

// ---- an out-patient's request: its supply leaves no request behind

const QString outSaver = QStringLiteral("outsaver");

TEST_F(Faults, AnOutPatientsRequestIsLeftWholeOrNotAtAll) {
    const QList<int> before = rows();
    EXPECT_EQ(cutAtEveryStep(outSaver, rows), 14) << "one text less than for an admitted patient";
    EXPECT_EQ(rows(), (QList<int>{before[0] + 1, before[1] + 2, before[2] + 1, before[3] + 1, before[4] + 1,
                                  before[5] + 2, before[6] + 2}));
}

TEST_F(Faults, EightWorkstationsWithOutPatientsNeverShareASlip) {
    constexpr int all = 8 * 6;
    const QList<int> before = rows();
    const QString slips = "SELECT COUNT(DISTINCT RefNum) FROM NUCLEAR..tbNucMaster";
    const int slipsBefore = value(slips);
    saveAtOnce(outSaver, 8, 6);
    EXPECT_EQ(value(slips), slipsBefore + all);
    EXPECT_EQ(rows(), (QList<int>{before[0] + all, before[1] + 2 * all, before[2] + all, before[3] + all,
                                  before[4] + all, before[5] + 2 * all, before[6] + 2 * all}));
}

// ---- an assessment: its numbers are written back through the rows that were read

const QString assessor = QStringLiteral("assessor");

class AssessmentFaults : public tests::Workstations {
  public:
    /// Lines, the two last numbers, and how many numbers stand in the lines.
    Counts rows = [this] {
        return QList<int>{value("SELECT COUNT(*) FROM BILLING..tbCashAssessment"),
                          value("SELECT assessmentnum FROM BILLING..tbAssessmentNum"),
                          value("SELECT RequestNum FROM BILLING..tbAssessmentNum"),
                          value("SELECT COUNT(DISTINCT RefNum) FROM BILLING..tbCashAssessment"),
                          value("SELECT COUNT(DISTINCT RequestNum) FROM BILLING..tbCashAssessment")};
    };
    void expectSaved(const QList<int>& before, int saves) {
        EXPECT_EQ(rows(), (QList<int>{before[0] + 2 * saves, before[1] + saves, before[2] + 2 * saves,
                                      before[3] + saves, before[4] + 2 * saves}));
    }
};

TEST_F(AssessmentFaults, AProcessKilledAtAnyStepLeavesTheWholeAssessmentOrNothing) {
    const QList<int> before = rows();
    EXPECT_EQ(cutAtEveryStep(assessor, rows), 12) << "begin, ten statements and the commit can be cut";
    expectSaved(before, 1);
}

TEST_F(AssessmentFaults, EightWorkstationsShareNoNumberAndLoseNone) {
    const QList<int> before = rows();
    EXPECT_EQ(saveAtOnce(assessor, 8, 6).size(), 8 * 6) << "each says a number of its own";
    expectSaved(before, 8 * 6);
}

} // namespace
