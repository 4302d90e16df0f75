#include "tests/orders/RequestFixture.h"

#include "tests/support/screens/Workstations.h"

#include <QCoreApplication>
#include <QTest>

namespace tests {

RequestFixture::RequestFixture() = default;

RequestFixture::~RequestFixture() {
    controls::SharedScreen<orders::frmRequest>::release();
}

orders::frmRequest& RequestFixture::screen() {
    return controls::SharedScreen<orders::frmRequest>::current();
}

orders::frmRequest& RequestFixture::open(const session::RequestEntry& entry) {
    auto& request = controls::SharedScreen<orders::frmRequest>::fresh();
    request.PatIdNum = entry.PatIdNum;
    request.PatientType = entry.PatientType;
    request.CashBasis = entry.CashBasis;
    request.NurseCommnunication = entry.NurseCommnunication;
    request.CashOrNum = entry.CashOrNum;
    request.NursingRemarks = entry.NursingRemarks;
    request.RequestingNurse = entry.RequestingNurse;
    request.Classification = entry.Classification;
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

QString RequestFixture::value(const QString& query) {
    return hospitalValue(file, query);
}

int RequestFixture::count(const QString& table, const QString& where) {
    return value(QStringLiteral("SELECT COUNT(*) FROM %1 WHERE %2").arg(table, where)).toInt();
}

} // namespace tests
