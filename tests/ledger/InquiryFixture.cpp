#include "tests/ledger/InquiryFixture.h"

#include "ledger/frmClearPatient.h"
#include "ledger/frmDischargeNotice.h"
#include "ledger/frmListDeposits.h"
#include "ledger/frmPatientLedger.h"
#include "ledger/frmVerification.h"
#include "platform/controls/screen/TestDoors.h"

namespace tests {

InquiryFixture::InquiryFixture() {
    script.acceptAny();
    takeTexts();
}

void InquiryFixture::answerRest(std::initializer_list<const char*> statements) {
    for (const char* statement : statements)
        answer(statement, "Nothing");
}

InquiryFixture::~InquiryFixture() {
    controls::release<ledger::frmClearPatient>();
    controls::release<ledger::frmDischargeNotice>();
    controls::release<ledger::frmListDeposits>();
    controls::release<ledger::frmPatientLedger>();
    controls::release<ledger::frmVerification>();
}

void InquiryFixture::answer(const char* statement, const char* columns, const std::vector<Row>& rows,
                            bool once) {
    session.server().answer(QLatin1String(statement), ScriptedProvider::rowsOf(QLatin1String(columns), rows),
                            once);
}

QStringList InquiryFixture::boxes() const {
    QStringList texts;
    for (const MessageScript::Box& box : script.boxes())
        texts += QStringLiteral("%1|%2|%3").arg(box.style).arg(box.title, box.prompt);
    return texts;
}

} // namespace tests
