#include "tests/lookup/LookupFixture.h"

#include "lookup/frmAddWalkIn.h"
#include "lookup/frmListPatient.h"
#include "lookup/frmPatientList.h"
#include "lookup/frmRegisteredOPD.h"
#include "lookup/frmSearch.h"
#include "platform/controls/screen/TestDoors.h"
#include "session/Session.h"

namespace tests {

LookupFixture::LookupFixture() {
    auto provider = std::make_unique<ScriptedProvider>();
    server = provider.get();
    connection.Open(std::move(provider), QStringLiteral("scripted"));
    recorder.emplace(connection);
    session::gConnection = &connection;
    session::gHospitalName = QStringLiteral("Kerova General Hospital");
    script.acceptAny();
}

LookupFixture::~LookupFixture() {
    controls::release<lookup::frmSearch>();
    controls::release<lookup::frmAddWalkIn>();
    controls::release<lookup::frmListPatient>();
    controls::release<lookup::frmPatientList>();
    controls::release<lookup::frmRegisteredOPD>();
    session::gConnection = nullptr;
    session::gHospitalName.clear();
}

void LookupFixture::answer(const char* statement, const char* columns,
                           const std::vector<std::vector<base::Value>>& rows, bool once) {
    server->answer(QString::fromLatin1(statement),
                   ScriptedProvider::rowsOf(QString::fromLatin1(columns), rows), once);
}

QStringList LookupFixture::takeStatements() {
    return std::exchange(recorder->texts, {});
}

QStringList LookupFixture::boxes() const {
    QStringList texts;
    for (const MessageScript::Box& box : script.boxes())
        texts += QStringLiteral("%1|%2|%3").arg(box.style).arg(box.title, box.prompt);
    return texts;
}

QString cells(const controls::FlexGrid& grid, int row) {
    QStringList texts;
    for (int column = 0; column < grid.Cols(); ++column)
        texts += grid.TextMatrix(row, column);
    return texts.join(u'|');
}

} // namespace tests
