#include "tests/orders/RequestFixture.h"

#include "platform/controls/screen/TestDoors.h"

#include <QCoreApplication>
#include <QTest>

namespace tests {

RequestFixture::RequestFixture(Way way) : LoggedOn(way) {}

RequestFixture::~RequestFixture() {
    controls::release<orders::frmRequest>();
}

orders::frmRequest& RequestFixture::screen() {
    return controls::SharedScreen<orders::frmRequest>::current();
}

orders::frmRequest& RequestFixture::prepared(const session::RequestEntry& entry) {
    auto& request = controls::SharedScreen<orders::frmRequest>::fresh();
    request.PatIdNum = entry.PatIdNum;
    request.PatientType = entry.PatientType;
    request.CashBasis = entry.CashBasis;
    request.NurseCommnunication = entry.NurseCommnunication;
    request.CashOrNum = entry.CashOrNum;
    request.NursingRemarks = entry.NursingRemarks;
    request.RequestingNurse = entry.RequestingNurse;
    request.Classification = entry.Classification;
    return request;
}

orders::frmRequest& RequestFixture::open(const session::RequestEntry& entry) {
    auto& request = prepared(entry);
    request.Show();
    request.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&request));
    QCoreApplication::processEvents();
    takeTexts();
    return request;
}

orders::frmRequest& RequestFixture::openAdmitted(const QString& admission) {
    return open({.PatIdNum = admission, .PatientType = QStringLiteral("I")});
}

QString RequestFixture::line(int row) {
    QStringList cells;
    for (int column = 1; column <= 7; ++column)
        cells += cell(row, column);
    return cells.join(u'|');
}

} // namespace tests
