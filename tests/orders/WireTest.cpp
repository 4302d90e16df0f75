// The save of a request over ODBC: what goes over the wire, and what is left when the line, the time or the
// server fails at any step.
#include "platform/odbc/DataSources.h"
#include "platform/odbc/OdbcProvider.h"
#include "server/site/Install.h"
#include "session/Session.h"
#include "tests/orders/Desk.h"
#include "tests/support/hospital/Site.h"

#include <gtest/gtest.h>

#include <thread>

using tests::bytesOf;
using tests::Desk;
using tests::Fault;
using tests::Way;

namespace {

TEST(Wire, AWholeSaveIsTheSameByteForByte) {
    QByteArrayList embedded;
    {
        Desk desk(Way::File);
        desk.keyIn();
        desk.takeTexts();
        desk.save();
        embedded = bytesOf(desk.recorder->texts);
    }
    Desk desk(Way::Odbc);
    desk.keyIn();
    desk.hospital.loopback()->wire.clear();
    desk.save();
    EXPECT_EQ(bytesOf(desk.hospital.loopback()->wire), embedded);
    EXPECT_GT(embedded.size(), 15);
    EXPECT_EQ(embedded.first(), "BEGIN");
    EXPECT_EQ(embedded.last(), "COMMIT");
    EXPECT_EQ(tests::fakeDriver().oddCalls, QStringList());
}

TEST(Wire, ASaveLeavesTheSameRowsOnBothWays) {
    QStringList changed[2];
    int side = 0;
    for (const Way way : {Way::File, Way::Odbc}) {
        Desk desk(way);
        const QStringList before = desk.state();
        desk.keyIn();
        desk.save();
        changed[side] = desk.state();
        EXPECT_NE(changed[side], before);
        ++side;
    }
    EXPECT_EQ(changed[0], changed[1]);
}

struct Mishap {
    const char* name;
    Fault fault;
    int number;
    bool rolledBack; ///< the server has rolled back by itself
};

void PrintTo(const Mishap& mishap, std::ostream* out) {
    *out << mishap.name;
}

class WireMishap : public testing::TestWithParam<Mishap> {};

TEST_P(WireMishap, AtAnyStepLeavesNothingHalfDoneAndIsTold) {
    const Mishap& mishap = GetParam();
    auto desk = std::make_unique<Desk>(Way::Odbc);
    const QStringList before = desk->state();
    int step = 1;
    for (;; ++step) {
        ASSERT_LT(step, 40);
        desk->keyIn();
        desk->hospital.loopback()->strike(step, mishap.fault);
        desk->boxes.acceptAny();
        desk->type("<Alt+S>");
        if (desk->errors.isEmpty())
            break; // a step behind the last one
        const base::RunTimeError error = desk->errors.take();
        // a line that is gone before anything was begun is told as such
        const bool isLostAtBegin = step == 1 && mishap.fault == Fault::Cut;
        EXPECT_EQ(error.number(), isLostAtBegin ? base::errors::connectionInvalid : mishap.number) << step;
        EXPECT_TRUE(desk->boxes.boxes().empty()) << "no word of success";
        if (mishap.rolledBack && session::gConnection->inTransaction()) {
            EXPECT_THROW(session::gConnection->Execute(ado::sql("sp_Nuclear_IncRefNum")), base::RunTimeError)
                << "nothing runs outside of the transaction it was meant for";
        }
        session::gConnection->Close(); // what the error boundary does
        EXPECT_EQ(desk->state(), before) << "at step " << step;
        if (testing::Test::HasFailure())
            return;
        desk.reset();
        desk = std::make_unique<Desk>(Way::Odbc);
    }
    EXPECT_EQ(desk->boxes.boxes().size(), 1u);
    EXPECT_NE(desk->state(), before) << "the next save works, and is whole";
    EXPECT_GT(step, 18) << "begin, the statements and the commit were hit each";
}

INSTANTIATE_TEST_SUITE_P(Every, WireMishap,
                         testing::Values(Mishap{"ServerError", Fault::Error, 50000, false},
                                         Mishap{"Deadlock", Fault::Deadlock, 1205, true},
                                         Mishap{"TimeOut", Fault::TimeOut, -2147217871, false},
                                         Mishap{"CutLine", Fault::Cut, -2147467259, true}),
                         [](const auto& mishap) { return std::string(mishap.param.name); });

/// Where SCINTRA_TEST_DSN names a SQL Server, whose locks are not the embedded server's.
class Site : public testing::TestWithParam<QString> {
  protected:
    tests::TestHospital hospital{Way::Site};
};

TEST_P(Site, HoldsTheKit) {
    EXPECT_EQ(site::verify(*hospital.open()).join(u'\n').toStdString(), "");
}

TEST_P(Site, EightWorkstationsNeverShareANumber) {
    constexpr int workstations = 8;
    constexpr int rounds = 10;
    std::vector<std::vector<qint64>> drawn(workstations);
    std::vector<std::thread> threads;
    for (int i = 0; i < workstations; ++i) {
        threads.emplace_back([this, &numbers = drawn[std::size_t(i)]] {
            const auto provider = hospital.open();
            for (int round = 0; round < rounds; ++round) {
                provider->begin();
                const auto read = provider->execute(ado::sql("SELECT chargeslip FROM tbNucSlip"));
                provider->execute(ado::sql("sp_Nuclear_IncRefNum"));
                provider->commit();
                numbers.push_back(*read.rows.at(0, 0).asInteger());
            }
        });
    }
    for (std::thread& thread : threads)
        thread.join();
    QSet<qint64> all;
    for (const auto& numbers : drawn)
        all += QSet<qint64>(numbers.begin(), numbers.end());
    EXPECT_EQ(all.size(), workstations * rounds);
}

TEST_P(Site, ASecondReaderOfANumberWaits) {
    const auto first = hospital.open();
    first->begin();
    first->execute(ado::sql("SELECT chargeslip FROM NUCLEAR..tbNucSlip"));
    odbc::Options impatient;
    impatient.statementSeconds = 2;
    const auto second =
        odbc::OdbcProvider::open(odbc::ConnectionText().add("DSN", hospital.dataSource()).text(), impatient);
    second->begin();
    EXPECT_THROW(second->execute(QStringLiteral("SELECT chargeslip FROM NUCLEAR..tbNucSlip")),
                 base::RunTimeError);
    second->rollback();
    first->rollback();
}

QStringList sites() {
    return tests::site::name().isEmpty() ? QStringList() : QStringList{tests::site::name()};
}

GTEST_ALLOW_UNINSTANTIATED_PARAMETERIZED_TEST(Site);
INSTANTIATE_TEST_SUITE_P(Named, Site, testing::ValuesIn(sites()));

} // namespace
