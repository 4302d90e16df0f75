#include "session/logon/HospitalServer.h"

#include "platform/controls/screen/WaitingSign.h"
#include "server/demo/Hospital.h"
#include "server/engine/EmbeddedProvider.h"
#include "server/hospital/Create.h"
#include "session/TestDoors.h"
#include "session/logon/OdbcServer.h"

#include <QDir>
#include <QSysInfo>

namespace session {
namespace {

/// The server that comes along, on one hospital file.
class FileServer : public HospitalServer {
  public:
    /// "" is the program's hospital file, wherever that is when it is asked for.
    explicit FileServer(QString path) : m_path(std::move(path)) {}

    QString name() const override { return QStringLiteral("This computer"); }
    QString serverName() const override { return QStringLiteral("(local)"); }
    QString connectionString() const override {
        return QStringLiteral("Provider=Scintra;Data Source=") + QDir::toNativeSeparators(file());
    }
    bool isThere() const override { return hospital::isThere(file()); }
    void prepare(const std::function<void(int)>& progress) override {
        try {
            demo::createHospital(file(), [&](int percent, const QString&) { progress(percent); });
        } catch (const base::RunTimeError& error) {
            if (error.number() != base::errors::fileExists)
                throw; // else another program has made it since isThere() was asked
        }
    }
    std::unique_ptr<ado::Provider> open(const QString& login) override {
        engine::Options options;
        options.hostName = QSysInfo::machineHostName();
        options.programName = QStringLiteral("Visual Scintra");
        options.loginName = login;
        options.waiting = controls::showWaiting;
        auto provider = engine::EmbeddedProvider::open(file(), options);
        hospital::ensureKit(*provider);
        return provider;
    }

  private:
    QString file() const { return m_path.isEmpty() ? hospitalFile() : m_path; }

    QString m_path;
};

QString& otherHospitalFile() {
    static QString path;
    return path;
}

/// Servers that were set; empty for those of this computer.
HospitalServers& serversSet() {
    static HospitalServers servers;
    return servers;
}

QString& lastServerName() {
    static QString name;
    return name;
}

} // namespace

controls::KeptCharacters HospitalServer::keptCharacters(ado::Connection&) const {
    return controls::KeptCharacters::All;
}

void HospitalServer::setLogin(const QString&, const QString&) {}

bool HospitalServer::refusedLogin(const base::RunTimeError&) const {
    return false;
}

QString HospitalServer::sentence(const base::RunTimeError& error) const {
    return error.description();
}

HospitalServers hospitalServers() {
    if (!serversSet().empty())
        return serversSet();
    HospitalServers servers{std::make_shared<FileServer>(QString())};
    for (auto& server : odbcServers())
        servers.push_back(std::move(server));
    return servers;
}

void setHospitalServers(HospitalServers servers) {
    serversSet() = std::move(servers);
}

QString lastServer() {
    return lastServerName();
}

void setLastServer(const QString& name) {
    lastServerName() = name;
}

QString hospitalFile() {
    return otherHospitalFile().isEmpty() ? hospital::defaultHospitalFile() : otherHospitalFile();
}

void setHospitalFile(const QString& path) {
    otherHospitalFile() = path;
}

std::shared_ptr<HospitalServer> fileServer(const QString& path) {
    return std::make_shared<FileServer>(path);
}

} // namespace session
