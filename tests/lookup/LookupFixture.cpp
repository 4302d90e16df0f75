#include "tests/lookup/LookupFixture.h"

#include "lookup/frmListPatient.h"
#include "lookup/frmSearch.h"
#include "platform/controls/MessageBox.h"
#include "session/Session.h"

#include <QTimer>

namespace tests {

LookupFixture::LookupFixture() {
    auto provider = std::make_unique<ScriptedProvider>();
    server = provider.get();
    connection.Open(std::move(provider), QStringLiteral("scripted"));
    recorder.emplace(connection);
    session::gConnection = &connection;
    session::gHospitalName = QStringLiteral("Kerova General Hospital");
    session::setScreens(&screens);
    controls::setMessageScript([this](const QString& prompt, int style, const QString& title) {
        boxes += QStringLiteral("%1|%2|%3").arg(style).arg(title, prompt);
        return controls::vbOK;
    });
}

LookupFixture::~LookupFixture() {
    controls::SharedScreen<lookup::frmSearch>::release();
    controls::SharedScreen<lookup::frmListPatient>::release();
    controls::setMessageScript({});
    session::setScreens(nullptr);
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

void LookupFixture::insideModal(std::function<void()> driver) {
    QTimer::singleShot(0, std::move(driver));
}

QString cells(const controls::FlexGrid& grid, int row) {
    QStringList texts;
    for (int column = 0; column < grid.Cols(); ++column)
        texts += grid.TextMatrix(row, column);
    return texts.join(u'|');
}

} // namespace tests
