#include "tests/revocation/RevocationFixture.h"

#include "platform/controls/screen/TestDoors.h"
#include "revocation/frmAssessmentStatus.h"
#include "revocation/frmCancelRequest.h"
#include "revocation/frmCancellation.h"
#include "revocation/frmRePrint.h"
#include "session/reports/ReportLaunch.h"

#include <QComboBox>
#include <QRegularExpression>

namespace tests {

RevocationFixture::RevocationFixture(Way way) : LoggedOn(way) {}

RevocationFixture::~RevocationFixture() {
    controls::release<revocation::frmCancelRequest>();
    controls::release<revocation::frmCancellation>();
    controls::release<revocation::frmRePrint>();
    controls::release<revocation::frmAssessmentStatus>();
    session::gReport.reset();
}

Step RevocationFixture::pressing(const char* button) {
    return [button](QWidget& window) { click(child<QPushButton>(window, button)); };
}

void RevocationFixture::cancelling(const Charged& line, std::vector<Step> steps, bool reopens) {
    steps.insert(steps.begin(), [&](QWidget& search) {
        child<QComboBox>(search, "cmbSearch").setCurrentIndex(3);
        keys(child<QLineEdit>(search, "txtSearch"), line.request + QStringLiteral("<Enter>"));
        takeTexts();
        click(child<QPushButton>(search, "cmdSelect"));
    });
    if (reopens)
        steps.push_back([](QWidget& search) { keysToFocus(search, "<Esc>"); });
    runModal([] { revocation::openCancelRequest(); }, std::move(steps));
}

void RevocationFixture::expectRevoked() {
    boxes.expect({"Data Successfully Revoked.", controls::vbOKOnly, "Message"});
}

QStringList RevocationFixture::takeCancellation() {
    static const QRegularExpression moment(QStringLiteral("\\d\\d/\\d\\d/\\d{4} \\d\\d:\\d\\d:\\d\\d [AP]M"));
    QStringList texts;
    for (QString text : takeTexts()) {
        if (text.startsWith("SELECT P.IdNum, P.HospNum, P.AdmDate"))
            text = QStringLiteral("OpenAdmission ") + text.section(u'\'', 1, 1);
        else if (text.startsWith("SELECT M.HospNum, M.LastName"))
            continue; // its patient
        if (const auto found = moment.match(text); found.hasMatch()) {
            if (hospital.way() != Way::Site) {
                EXPECT_EQ(found.captured(), "11/21/2026 08:30:00 AM");
            }
            text.replace(found.captured(), QStringLiteral("{now}"));
        }
        texts += text;
    }
    return texts.mid(qMax(0, int(texts.indexOf("BEGIN"))));
}

std::string lines(const QStringList& texts) {
    return texts.join(u'\n').toStdString();
}

void close(QWidget& window) {
    dynamic_cast<controls::Screen&>(window).Unload();
}

} // namespace tests
