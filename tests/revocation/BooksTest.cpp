// What a cancellation leaves in the books, whichever way it goes: as if the line had never been charged, and
// once, whatever is pressed, pulled or done at a second desk.
#include "revocation/frmCancelRequest.h"
#include "revocation/frmCancellation.h"
#include "session/Session.h"
#include "tests/revocation/RevocationFixture.h"
#include "tests/support/screens/Workstations.h"

#include <QProcess>

namespace {

using tests::Books;
using tests::books;
using tests::Branch;
using tests::Charged;
using tests::child;
using tests::click;

class BooksOf : public tests::RevocationFixture, public testing::WithParamInterface<Branch> {
  public:
    BooksOf() : line(GetParam().line(hospital)), without(books(hospital, line)) {
        post(hospital, line);
        session::gSectionCode = QString::fromLatin1(GetParam().section);
    }
    Books now() const { return books(hospital, line); }

    const Charged line;
    const Books without;
    const Books posted = whenPosted(GetParam(), line, [this] {
        Books all = without;
        all.status.clear();
        return all;
    }());
    const Books cancelled = whenCancelled(GetParam(), without);
};

std::string nameOf(const testing::TestParamInfo<Branch>& branch) {
    return branch.param.name;
}

INSTANTIATE_TEST_SUITE_P(Branches, BooksOf, testing::ValuesIn(tests::branches()), nameOf);

TEST_P(BooksOf, AreAsIfTheLineHadNeverBeenCharged) {
    EXPECT_EQ(now(), posted);
    expectRevoked();
    cancelling(line, {pressing("cmdSave")});
    EXPECT_EQ(now(), cancelled);
}

/// A second desk has the line open since before the first one cancelled it.
TEST_P(BooksOf, StayWhenASecondDeskCancelsTheLineAgain) {
    revocation::frmCancelRequest search;
    revocation::frmCancellation second;
    search.handOver(second, line.request);
    expectRevoked();
    cancelling(line, {pressing("cmdSave")});
    expectRevoked();
    second.Show();
    click(child<QPushButton>(second, "cmdSave"));
    EXPECT_TRUE(second.isUnloaded());
    EXPECT_EQ(now(), cancelled);
}

/// The line is pressed again while its box is up.
TEST_P(BooksOf, StayWhenTheCommandIsPressedTwice) {
    tests::MessageScript::Box box{"Data Successfully Revoked.", controls::vbOKOnly, "Message"};
    QPushButton* cmdSave = nullptr;
    box.meanwhile = [&] {
        EXPECT_FALSE(cmdSave->isEnabled());
        cmdSave->click();
    };
    boxes.expect(box);
    cancelling(line, {[&](QWidget& window) {
                   cmdSave = &child<QPushButton>(window, "cmdSave");
                   tests::keys(*cmdSave, "<Enter>");
               }});
    EXPECT_EQ(now(), cancelled);
}

// ---- processes of their own

const QString canceller = QStringLiteral("canceller");

class KillsOf : public tests::Workstations, public testing::WithParamInterface<Branch> {
  public:
    KillsOf() : line(GetParam().line(hospital)), without(books(hospital, line)) { post(hospital, line); }
    /// The numbers of the books.
    Counts counts = [this] {
        const Books all = books(hospital, line);
        return QList<int>{int(all.bill * 100),      int(all.stock), all.receipts, all.listed,
                          int(all.listedSum * 100), all.cancelled,  all.copies,   all.status == "R"};
    };
    const Charged line;
    const Books without;
};

/// Each way once: the desks are in the section's own state.
std::vector<Branch> plainBranches() {
    std::vector<Branch> plain;
    for (const Branch& branch : tests::branches()) {
        if (qstrcmp(branch.section, "NU") == 0)
            plain.push_back(branch);
    }
    return plain;
}

INSTANTIATE_TEST_SUITE_P(Branches, KillsOf, testing::ValuesIn(plainBranches()), nameOf);

TEST_P(KillsOf, LeaveTheLineChargedOrCancelledAndASecondTryCancelsItOnce) {
    EXPECT_GE(cutAtEveryStep(canceller, counts), 4);
    EXPECT_EQ(books(hospital, line), whenCancelled(GetParam(), without));
}

TEST_P(KillsOf, FourDesksAtOnceCancelItOnce) {
    qputenv("CANCELLER_WAITS", "1");
    std::vector<std::unique_ptr<QProcess>> desks;
    for (int i = 0; i < 4; ++i)
        desks.push_back(start(canceller, {"1"}));
    for (const auto& desk : desks)
        EXPECT_TRUE(desk->waitForReadyRead(60'000));
    for (const auto& desk : desks)
        desk->write("go\n");
    for (const auto& desk : desks) {
        desk->closeWriteChannel();
        EXPECT_TRUE(desk->waitForFinished(60'000));
        EXPECT_EQ(desk->exitCode(), 0) << desk->readAllStandardOutput().toStdString();
    }
    qunsetenv("CANCELLER_WAITS");
    EXPECT_EQ(books(hospital, line), whenCancelled(GetParam(), without));
}

} // namespace
