#include "tests/support/tds/TdsServer.h"

#include "tests/support/tds/TdsSession.h"

#include <QSemaphore>
#include <QTcpServer>
#include <QThread>

#include <atomic>
#include <functional>
#include <stdexcept>
#include <vector>

namespace tests {
namespace {

/// Hands descriptors over as they come.
class Door : public QTcpServer {
  public:
    using Visit = std::function<void(qintptr)>;
    explicit Door(Visit visit) : m_visit(std::move(visit)) {}

  protected:
    void incomingConnection(qintptr descriptor) override { m_visit(descriptor); }

  private:
    Visit m_visit;
};

} // namespace

class TdsServer::Private {
  public:
    explicit Private(Options given) : options(std::move(given)) {}

    /// The thread that waits for connections.
    void serve() {
        std::vector<std::unique_ptr<QThread>> visitors;
        Door door([&](qintptr descriptor) {
            visitors.emplace_back(QThread::create([this, descriptor] {
                tds::TdsSession(descriptor, {options.file, options.user, options.password}, diary, stopping)
                    .serve();
            }));
            visitors.back()->start();
        });
        port = door.listen(QHostAddress::LocalHost, options.port) ? door.serverPort() : 0;
        ready.release();
        constexpr int lookEvery = 20; // milliseconds
        while (port != 0 && !stopping) {
            door.waitForNewConnection(lookEvery);
            std::erase_if(visitors, [](const auto& visitor) { return visitor->isFinished(); });
        }
        for (const auto& visitor : visitors)
            visitor->wait();
    }

    Options options;
    tds::Diary diary;
    std::atomic<bool> stopping{false};
    quint16 port = 0;
    QSemaphore ready;
    std::unique_ptr<QThread> thread;
};

QString freeTdsDriver() {
    return QStringLiteral(SCINTRA_FREETDS_DRIVER);
}

TdsServer::TdsServer(Options options) : d(std::make_unique<Private>(std::move(options))) {
    d->thread.reset(QThread::create([this] { d->serve(); }));
    d->thread->start();
    d->ready.acquire();
    if (d->port == 0) {
        d->thread->wait();
        throw std::runtime_error("the port cannot be listened on");
    }
}

TdsServer::~TdsServer() {
    d->stopping = true;
    d->thread->wait();
}

quint16 TdsServer::port() const {
    return d->port;
}

QString TdsServer::connectionText() const {
    return QStringLiteral(
               "Driver=%1;Server=127.0.0.1;Port=%2;TDS_Version=7.4;ClientCharset=UTF-8;UID=%3;PWD=%4;")
        .arg(freeTdsDriver())
        .arg(port())
        .arg(d->options.user.isEmpty() ? QStringLiteral("scintra") : d->options.user,
             d->options.password.isEmpty() ? QStringLiteral("any") : d->options.password);
}

QString TdsServer::dataSource(const QString& name) const {
    return QStringLiteral("[%1]\n").arg(name) + connectionText().replace(u';', u'\n');
}

void TdsServer::strike(int step, Fault fault) {
    d->diary.strike(step, fault);
}

int TdsServer::steps() const {
    return d->diary.steps();
}

QStringList TdsServer::takeWire() {
    return d->diary.take();
}

} // namespace tests
