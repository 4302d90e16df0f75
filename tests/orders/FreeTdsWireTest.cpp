// The save of a request over the real FreeTDS driver: what comes over the wire, and what is left when the
// line, the time or the server fails.
#include "platform/odbc/Diagnostics.h"
#include "platform/odbc/OdbcProvider.h"
#include "session/Session.h"
#include "tests/orders/Desk.h"
#include "tests/support/tds/TdsServer.h"

#include <gtest/gtest.h>

using tests::bytesOf;
using tests::Desk;
using tests::Fault;
using tests::Way;

namespace {

/// A desk whose session goes on over FreeTDS, behind which stands the same file.
class TdsDesk : public Desk {
  public:
    TdsDesk() : Desk(Way::File) {
        odbc::Options options;
        options.statementSeconds = 1;
        auto provider = odbc::OdbcProvider::open(server.connectionText(), options);
        provider->useDatabase(QStringLiteral("NUCLEAR"));
        session::gConnection->Close();
        session::gConnection->Open(std::move(provider), QStringLiteral("tds"));
    }
    ~TdsDesk() override {
        if (session::gConnection->State() == ado::Connection::adStateOpen)
            session::gConnection->Close();
    }

    tests::TdsServer server{{.file = hospital.file()}};
};

TEST(FreeTdsWire, AWholeSaveIsTheSameByteForByte) {
    QByteArrayList embedded;
    QStringList rows;
    {
        Desk desk(Way::File);
        desk.keyIn();
        desk.takeTexts();
        desk.save();
        embedded = bytesOf(desk.recorder->texts);
        rows = desk.state();
    }
    TdsDesk desk;
    const QStringList before = desk.state();
    desk.keyIn();
    desk.server.takeWire();
    desk.save();
    EXPECT_EQ(bytesOf(desk.server.takeWire()), embedded);
    EXPECT_GT(embedded.size(), 15);
    EXPECT_NE(rows, before);
    EXPECT_EQ(desk.state(), rows);
}

struct Mishap {
    const char* name;
    Fault fault;
    int number;
};

void PrintTo(const Mishap& mishap, std::ostream* out) {
    *out << mishap.name;
}

class FreeTdsMishap : public testing::TestWithParam<Mishap> {};

TEST_P(FreeTdsMishap, LeavesNothingHalfDoneAndIsTold) {
    const Mishap& mishap = GetParam();
    int steps = 0;
    {
        TdsDesk desk;
        desk.keyIn();
        desk.server.strike(0, mishap.fault);
        desk.save();
        steps = desk.server.steps();
    }
    ASSERT_GT(steps, 15);
    // begin, the first text, one in the middle, the last text, commit
    for (const int step : {1, 2, steps / 2, steps - 1, steps}) {
        TdsDesk desk;
        const QStringList before = desk.state();
        desk.keyIn();
        desk.server.strike(step, mishap.fault);
        desk.boxes.acceptAny();
        desk.type("<Alt+S>");
        ASSERT_FALSE(desk.errors.isEmpty()) << step;
        const base::RunTimeError error = desk.errors.take();
        // a line that is gone before anything was begun is told as such
        const bool isLostAtBegin = step == 1 && mishap.fault == Fault::Cut;
        EXPECT_EQ(error.number(), isLostAtBegin ? base::errors::connectionInvalid : mishap.number)
            << step << ": " << error.what();
        EXPECT_TRUE(desk.boxes.boxes().empty()) << "no word of success";
        session::gConnection->Close(); // what the error boundary does
        EXPECT_EQ(desk.state(), before) << "at step " << step;
    }
}

INSTANTIATE_TEST_SUITE_P(Some, FreeTdsMishap,
                         testing::Values(Mishap{"ServerError", Fault::Error, 50000},
                                         Mishap{"Deadlock", Fault::Deadlock, 1205},
                                         Mishap{"TimeOut", Fault::TimeOut, odbc::errors::timeOut},
                                         Mishap{"CutLine", Fault::Cut, 20017}),
                         [](const auto& mishap) { return std::string(mishap.param.name); });

} // namespace
