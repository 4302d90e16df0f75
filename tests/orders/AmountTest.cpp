#include "tests/orders/RequestFixture.h"
#include "tests/support/core/DesksNumbers.h"

#include <gtest/gtest.h>

using tests::RequestFixture;

namespace {

class Amount : public RequestFixture {};

TEST_F(Amount, OfADeskWithACommaGoesOutWithAPointAndIsKept) {
    const tests::DesksNumbers german("de_DE.UTF-8");
    openAdmitted();
    type("NU<Enter>1001<Enter>R<Enter>1<Enter>MD<Enter>201<Enter><Tab>100.50");
    const QString slip = QStringLiteral("C%1J").arg(nextSlip());
    takeTexts();
    boxes.expect({QStringLiteral("Data Successfully Saved! ChargeSlip No.: '%1'").arg(slip),
                  controls::vbOKOnly, "Message"});
    type("<Alt+S>");
    const QStringList bills = takeTexts().filter("sp_addbill").filter("'201'");
    ASSERT_EQ(bills.size(), 1);
    EXPECT_TRUE(bills.first().contains("'201','100.5','MD'")) << bills.first().toStdString();
    EXPECT_EQ(
        value("SELECT Amount FROM BILLING..tbDailyBill WHERE RefNum = '" + slip + "' AND ItemID = '201'"),
        "100.5");
}

} // namespace
