// The save of a request over ODBC: what goes over the wire, and what is left when the line, the time or the
// server fails at any step. With SCINTRA_TEST_DSN set, the kit goes to that server and the save runs there
// too.
#include "platform/odbc/DataSources.h"
#include "platform/odbc/OdbcProvider.h"
#include "server/site/Install.h"
#include "session/Session.h"
#include "tests/orders/Desk.h"

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
        embedded = bytesOf(desk.takeTexts());
    }
    Desk desk(Way::Odbc);
    desk.keyIn();
    desk.loopback->wire.clear();
    desk.save();
    EXPECT_EQ(bytesOf(desk.loopback->wire), embedded);
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
        desk->loopback->strike(step, mishap.fault);
        desk->boxes.acceptAny();
        desk->type("<Alt+S>");
        if (desk->errors.isEmpty())
            break; // a step behind the last one
        const base::RunTimeError error = desk->errors.take();
        EXPECT_EQ(error.number(), mishap.number) << step;
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

/// On the SQL Server of SCINTRA_TEST_DSN. What it holds afterwards is the kit and the made-up hospital.
class Site : public testing::TestWithParam<QString> {
  protected:
    static QString connectionText() {
        return odbc::ConnectionText().add("DSN", qEnvironmentVariable("SCINTRA_TEST_DSN")).text();
    }
    static std::unique_ptr<ado::Provider> open(int seconds = 600) {
        odbc::Options options;
        options.statementSeconds = seconds;
        auto provider = odbc::OdbcProvider::open(connectionText(), options);
        return provider;
    }
    static void SetUpTestSuite() {
        const auto provider = open();
        site::install(*provider, {});
        const base::FixedClock clock(tests::demoMoment());
        if (*provider->execute("SELECT COUNT(*) FROM PATIENT_DATA..tbMaster").rows.at(0, 0).asInteger() == 0)
            site::installDemo(*provider, {});
    }
    static QString value(const QString& query) { return base::textOf(open()->execute(query).rows.at(0, 0)); }
};

TEST_P(Site, HoldsTheKit) {
    EXPECT_EQ(site::verify(*open()).join(u'\n').toStdString(), "");
}

TEST_P(Site, SavesARequest) {
    Desk desk(Way::Site);
    desk.keyIn();
    const int slip = value("SELECT ChargeSlip FROM NUCLEAR..tbNucSlip").toInt();
    desk.boxes.expect({QStringLiteral("Data Successfully Saved! ChargeSlip No.: 'C%1J'").arg(slip),
                       controls::vbOKOnly, "Message"});
    desk.type("<Alt+S>");
    EXPECT_EQ(
        value(QStringLiteral("SELECT COUNT(*) FROM STATION..tbNurseLogBook WHERE ReferenceNum = 'C%1J' AND "
                             "ItemID <> ''")
                  .arg(slip)),
        "3");
    EXPECT_EQ(value("SELECT ChargeSlip FROM NUCLEAR..tbNucSlip").toInt(), slip + 1);
}

TEST_P(Site, EightWorkstationsNeverShareANumber) {
    constexpr int workstations = 8;
    constexpr int rounds = 10;
    std::vector<std::vector<qint64>> drawn(workstations);
    std::vector<std::thread> threads;
    for (int i = 0; i < workstations; ++i) {
        threads.emplace_back([&numbers = drawn[std::size_t(i)]] {
            const auto provider = open();
            provider->useDatabase(QStringLiteral("NUCLEAR"));
            for (int round = 0; round < rounds; ++round) {
                provider->begin();
                const auto read = provider->execute(QStringLiteral("SELECT chargeslip FROM tbNucSlip"));
                provider->execute(QStringLiteral("sp_Nuclear_IncRefNum"));
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
    const auto first = open();
    first->begin();
    first->execute(QStringLiteral("SELECT chargeslip FROM NUCLEAR..tbNucSlip"));
    const auto second = open(2);
    second->begin();
    EXPECT_THROW(second->execute(QStringLiteral("SELECT chargeslip FROM NUCLEAR..tbNucSlip")),
                 base::RunTimeError);
    second->rollback();
    first->rollback();
}

QStringList sites() {
    const QString dsn = qEnvironmentVariable("SCINTRA_TEST_DSN");
    return dsn.isEmpty() ? QStringList() : QStringList{dsn};
}

GTEST_ALLOW_UNINSTANTIATED_PARAMETERIZED_TEST(Site);
INSTANTIATE_TEST_SUITE_P(Named, Site, testing::ValuesIn(sites()));

} // namespace
