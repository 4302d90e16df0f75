#include "tests/orders/AssessmentFixture.h"

#include "platform/base/Format.h"
#include "platform/controls/screen/TestDoors.h"

#include <QCoreApplication>
#include <QTest>

namespace tests {

AssessmentFixture::~AssessmentFixture() {
    controls::release<orders::frmAssessment>();
}

orders::frmAssessment& AssessmentFixture::open() {
    auto& fresh = controls::SharedScreen<orders::frmAssessment>::fresh();
    fresh.Show();
    fresh.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&fresh));
    QCoreApplication::processEvents();
    takeTexts();
    return fresh;
}

orders::frmAssessment& AssessmentFixture::openForRegular() {
    auto& opened = open();
    find("optType_1", "104078<Enter>");
    type("204<Enter>");
    takeTexts();
    return opened;
}

QString AssessmentFixture::line(int row) {
    QStringList cells;
    for (int column = 1; column <= 7; ++column)
        cells += cell(row, column);
    return cells.join(u'|');
}

QString AssessmentFixture::patient() {
    QStringList texts;
    for (const char* name : {"txtHospNum", "txtIdNum", "txtSname", "txtFname", "txtMname", "txtRoomClassID"})
        texts += field(name).text();
    return texts.join(u'|');
}

void AssessmentFixture::find(const char* kind, const QString& typed) {
    click(child<QRadioButton>(screen(), kind));
    keys(field("txtSname"), typed);
}

QString AssessmentFixture::savedAt(const QString& reference) const {
    const base::DateTime moment =
        *hospital
             .run("SELECT TOP 1 TransDate FROM BILLING..tbCashAssessment WHERE RefNum = '" + reference + "'")
             .at(0, 0)
             .asDateTime();
    EXPECT_TRUE(isServerNow(moment));
    return toTestDays(base::Format(moment, QStringLiteral("mm/dd/yyyy hh:mm:ss AMPM")));
}

} // namespace tests
