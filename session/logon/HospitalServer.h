#pragma once

#include "platform/ado/Connection.h"
#include "platform/base/Error.h"
#include "platform/controls/fields/KeptCharacters.h"

#include <QString>

#include <functional>
#include <memory>
#include <vector>

namespace session {

/// A server that a user can log on to. The log-on offers those of hospitalServers(), the first one first.
class HospitalServer {
  public:
    virtual ~HospitalServer() = default;
    /// As the log-on shows it: "This computer".
    virtual QString name() const = 0;
    /// As report log-ons name it.
    virtual QString serverName() const = 0;
    /// Tells the connections of this server apart from others; holds no password.
    virtual QString connectionString() const = 0;
    /// False before the very first start: prepare() then sets the hospital up.
    virtual bool isThere() const = 0;
    /// `progress` takes 0 to 100. Raises what goes wrong.
    virtual void prepare(const std::function<void(int)>& progress) = 0;
    /// A session of its own. Raises what the server says.
    virtual std::unique_ptr<ado::Provider> open(const QString& login) = 0;
    /// Of the texts that its sessions send. Raises what the server says.
    virtual controls::KeptCharacters keptCharacters(ado::Connection& session) const;
    /// The database login of the sessions to come, for a server that wants one.
    virtual void setLogin(const QString& user, const QString& password);
    /// The server wants another database login: it can be asked for.
    virtual bool refusedLogin(const base::RunTimeError& error) const;
    /// An error of open(), or of the first look into the hospital, in words for the one who logs on.
    virtual QString sentence(const base::RunTimeError& error) const;
};

using HospitalServers = std::vector<std::shared_ptr<HospitalServer>>;

/// This computer's own server, then its ODBC data sources as they are now, unless others were set.
HospitalServers hospitalServers();

/// Where somebody logged on last since the program was started; the log-on offers it first. "" is nowhere
/// yet.
QString lastServer();
void setLastServer(const QString& name);

/// The hospital file of this computer's own server. "" is the default place.
QString hospitalFile();
void setHospitalFile(const QString& path);
/// The server in a hospital file: what a user logs on to on one machine.
std::shared_ptr<HospitalServer> fileServer(const QString& path);

} // namespace session
