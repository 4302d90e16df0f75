#include "tests/lookup/WalkInFixture.h"

#include "platform/base/Conversion.h"
#include "platform/controls/screen/TestDoors.h"

#include <QApplication>
#include <QTest>

namespace tests {

WalkInFixture::~WalkInFixture() {
    controls::release<lookup::frmAddWalkIn>();
    controls::release<lookup::frmWalkInMaster>();
}

void WalkInFixture::activate(controls::Screen& screen) {
    screen.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&screen));
    QCoreApplication::processEvents();
}

lookup::frmAddWalkIn& WalkInFixture::openAdd() {
    auto& screen = controls::SharedScreen<lookup::frmAddWalkIn>::fresh();
    screen.Show();
    activate(screen);
    takeTexts();
    return screen;
}

lookup::frmWalkInMaster& WalkInFixture::openMaster() {
    auto& screen = controls::SharedScreen<lookup::frmWalkInMaster>::fresh();
    screen.Show();
    activate(screen);
    takeTexts();
    return screen;
}

std::string WalkInFixture::focus() {
    const QWidget* widget = QApplication::focusWidget();
    return widget ? widget->objectName().toStdString() : "<none>";
}

std::string WalkInFixture::patient(const QString& hospitalNumber) const {
    const ado::Rows rows = hospital.run("SELECT LastName, FirstName, MiddleName, BirthDate, Age, Sex, "
                                        "Civilstatusid, HouseStreet, Barangay, ZipCode FROM "
                                        "PATIENT_DATA..tbCashPatient WHERE hospnum = '" +
                                        hospitalNumber + "'");
    if (rows.count() == 0)
        return {};
    QStringList cells;
    for (int column = 0; column < 10; ++column) {
        const base::Value& cell = rows.at(0, column);
        cells += cell.isNull() ? QStringLiteral("<Null>") : base::textOf(cell);
    }
    return cells.join(u'|').toStdString();
}

std::string WalkInFixture::series() const {
    return value("SELECT lastopd + '/' + CONVERT(varchar(20), transnum) FROM PATIENT_DATA..tbLastWalkInNum")
        .toStdString();
}

} // namespace tests
