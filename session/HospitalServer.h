#pragma once

#include "platform/ado/Provider.h"

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
};

using HospitalServers = std::vector<std::shared_ptr<HospitalServer>>;

/// This computer's own server, unless others were set.
const HospitalServers& hospitalServers();
/// An empty list brings back this computer's own server.
void setHospitalServers(HospitalServers servers);

/// The hospital file of this computer's own server. "" is the default place.
QString hospitalFile();
void setHospitalFile(const QString& path);
/// The server in a hospital file: what a user logs on to on one machine.
std::shared_ptr<HospitalServer> fileServer(const QString& path);

} // namespace session
