#include "tests/support/screens/Workstations.h"

namespace {

struct Asker {
    const char* program;
    const char* type;
};

class ItemFaults : public tests::Workstations, public testing::WithParamInterface<Asker> {
  public:
    Counts rows = [this] {
        return QList<int>{
            value(QStringLiteral("SELECT COUNT(*) FROM STATION..tbNurseLogBook WHERE RequestType = "
                                 "'%1'")
                      .arg(QLatin1String(GetParam().type))),
            value("SELECT RequestNum FROM STATION..tbNurseRequestNum")};
    };
};

INSTANTIATE_TEST_SUITE_P(Stores, ItemFaults, testing::Values(Asker{"asker", "PH"}, Asker{"supplier", "CS"}),
                         [](const auto& each) { return std::string(each.param.program); });

TEST_P(ItemFaults, AProcessKilledAtAnyStepLeavesBothLinesOrNone) {
    const QList<int> before = rows();
    EXPECT_EQ(cutAtEveryStep(QLatin1String(GetParam().program), rows), 5)
        << "begin, the server's clock, two lines and the commit";
    EXPECT_EQ(rows(), (QList<int>{before[0] + 2, before[1] + 2}));
}

TEST_P(ItemFaults, EightWorkstationsNeverShareANumber) {
    const QList<int> before = rows();
    saveAtOnce(QLatin1String(GetParam().program), 8, 4);
    EXPECT_EQ(rows(), (QList<int>{before[0] + 64, before[1] + 64}));
    EXPECT_EQ(
        value("SELECT COUNT(*) FROM (SELECT RequestNum FROM STATION..tbNurseLogBook WHERE UserID = '1001' "
              "AND RecordStatus = 'N' GROUP BY RequestNum HAVING COUNT(*) > 1) AS Twice"),
        0);
}

} // namespace
