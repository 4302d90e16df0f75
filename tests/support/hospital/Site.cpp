#include "tests/support/hospital/Site.h"

#include "platform/ado/Batch.h"
#include "platform/base/Conversion.h"
#include "platform/base/Error.h"
#include "platform/odbc/DataSources.h"
#include "platform/odbc/OdbcProvider.h"
#include "server/engine/EmbeddedProvider.h"
#include "server/site/Blueprint.h"
#include "server/site/Install.h"
#include "server/site/TableRows.h"
#include "tests/support/hospital/Days.h"

#include <QDir>
#include <QLockFile>

#include <map>
#include <stdexcept>

namespace tests::site {
namespace {

const char* const madeUp = "Kerova General Hospital";
const char* const asInstalled = "Hospital";

QString only(ado::Provider& server, const QString& query) {
    const ado::Result result = ado::runBatch(server, query);
    return result.rows.count() == 1 ? base::textOf(result.rows.at(0, 0)) : QString();
}

/// Before anything is written: what is there is the made-up hospital, or nobody's yet, with neither a patient
/// nor a name of its own.
void refuseAnothersHospital(ado::Provider& server) {
    const auto isThere = [&](const char* what) {
        return !only(server, QStringLiteral("SELECT ") + QLatin1StringView(what)).isEmpty();
    };
    if (!isThere("DB_ID('PATIENT_DATA')") || !isThere("OBJECT_ID('PATIENT_DATA..tbHospitalInfo')"))
        return;
    const QString hospital =
        only(server, QStringLiteral("SELECT Company FROM PATIENT_DATA..tbHospitalInfo")).trimmed();
    if (hospital == QLatin1StringView(madeUp))
        return;
    const bool isNobodys = hospital.isEmpty() || hospital == QLatin1StringView(asInstalled);
    if (!isNobodys || only(server, QStringLiteral("SELECT COUNT(*) FROM PATIENT_DATA..tbMaster")) != u"0")
        throw base::RunTimeError(58, QStringLiteral("SCINTRA_TEST_DSN names the server of \"%1\": the tests "
                                                    "would delete its rows.")
                                         .arg(hospital));
}

/// What one program of the tests keeps of the server, and the server for itself.
class Server {
  public:
    Server() : m_lock(QDir::temp().filePath(QStringLiteral("scintra-test-%1.lock").arg(name()))) {
        m_lock.setStaleLockTime(0);
        if (!m_lock.lock())
            throw std::runtime_error("another test program holds the server");
        m_session = connect({});
        refuseAnothersHospital(*m_session);
        putKitBack();
        const ado::Result asked = ado::runBatch(*m_session, QStringLiteral("SELECT GETDATE()"));
        const base::DateTime* now = asked.rows.at(0, 0).asDateTime();
        if (!now)
            throw std::runtime_error("the server does not tell the time");
        setServerNow(*now);
    }

    static std::unique_ptr<ado::Provider> connect(const QString& workstation) {
        odbc::ConnectionText text;
        text.add("DSN", name());
        text.add("Language", QStringLiteral("us_english")); // as the program's own sessions
        if (!workstation.isEmpty())
            text.add("WSID", workstation);
        odbc::Options options;
        options.statementSeconds = 600;
        auto session = odbc::OdbcProvider::open(text.text(), options);
        return session;
    }

    void putKitBack() { ::site::install(*m_session, {}); }

    void put(const QString& file) {
        QStringList& texts = m_texts[file];
        if (texts.isEmpty())
            texts = textsOf(file);
        m_session->begin();
        for (const QString& text : texts)
            ado::runBatch(*m_session, text);
        m_session->commit();
    }

  private:
    static QStringList textsOf(const QString& file) {
        QStringList texts;
        const auto source = engine::EmbeddedProvider::open(file, {});
        for (const engine::Table& table : ::site::tablesOf(file)) {
            for (const QString& text : ::site::tableRows(*source, table))
                texts += toServerDays(text);
        }
        return texts;
    }

    QLockFile m_lock;
    std::unique_ptr<ado::Provider> m_session;
    std::map<QString, QStringList> m_texts;
};

Server& server() {
    static Server only;
    return only;
}

} // namespace

QString name() {
    return qEnvironmentVariable("SCINTRA_TEST_DSN");
}

void prepare() {
    server();
}

void put(const QString& hospitalFile) {
    server().put(hospitalFile);
}

void putKitBack() {
    server().putKitBack();
}

std::unique_ptr<ado::Provider> open(const QString& workstation) {
    prepare();
    auto session = Server::connect(workstation);
    session->useDatabase(QStringLiteral("NUCLEAR"));
    return session;
}

} // namespace tests::site
