#include "tests/orders/RequestFixture.h"

#include "orders/frmOutRequest.h"
#include "orders/frmRequest.h"
#include "platform/controls/screen/TestDoors.h"

#include <QCoreApplication>
#include <QTest>

namespace tests {

using controls::SharedScreen;

RequestFixture::RequestFixture(Way way) : LoggedOn(way) {}

RequestFixture::~RequestFixture() {
    forget();
}

void RequestFixture::forget() {
    m_screen = nullptr;
    controls::release<orders::frmRequest>();
    controls::release<orders::frmOutRequest>();
}

entry::RequestScreen& RequestFixture::prepared(const session::RequestEntry& entry) {
    auto& request = SharedScreen<orders::frmRequest>::fresh();
    request.entry = entry;
    m_screen = &request;
    return request;
}

entry::RequestScreen& RequestFixture::preparedOut(const session::OutRequestEntry& entry) {
    auto& request = SharedScreen<orders::frmOutRequest>::fresh();
    request.take(entry);
    m_screen = &request;
    return request;
}

entry::RequestScreen& RequestFixture::show() {
    m_screen->Show();
    m_screen->activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(m_screen));
    QCoreApplication::processEvents();
    takeTexts();
    return *m_screen;
}

entry::RequestScreen& RequestFixture::open(const session::RequestEntry& entry) {
    prepared(entry);
    return show();
}

entry::RequestScreen& RequestFixture::openOut(const session::OutRequestEntry& entry) {
    preparedOut(entry);
    return show();
}

entry::RequestScreen& RequestFixture::openAdmitted(const QString& admission) {
    return open({.PatIdNum = admission, .PatientType = QStringLiteral("I")});
}

QString RequestFixture::line(int row) {
    QStringList cells;
    for (int column = 1; column <= 7; ++column)
        cells += cell(row, column);
    return cells.join(u'|');
}

} // namespace tests
