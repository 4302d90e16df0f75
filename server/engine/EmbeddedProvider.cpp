#include "server/engine/EmbeddedProvider.h"

#include "platform/ado/TransactionErrors.h"
#include "server/engine/Trace.h"
#include "server/engine/errors/ErrorMap.h"
#include "server/engine/parser/ObjectText.h"
#include "server/engine/run/BatchCache.h"
#include "server/engine/run/Interpreter.h"
#include "server/engine/run/Planner.h"
#include "server/engine/values/Ascii.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QHash>

#include <algorithm>
#include <atomic>
#include <utility>

namespace engine {
namespace {

constexpr const char* traceSetting = "trace";

/// Unlike any other connection's to the file: the process and a number within it.
int nextProcessId() {
    static std::atomic<int> count{0};
    constexpr int perProcess = 512;
    const auto process = int(QCoreApplication::applicationPid() % 4'000'000);
    return process * perProcess + count++ % perProcess;
}

std::string toStd(const QString& text) {
    return text.toStdString();
}

std::vector<std::string> toStd(const QStringList& texts) {
    std::vector<std::string> result;
    for (const QString& text : texts)
        result.push_back(text.toStdString());
    return result;
}

/// Ends a batch's own transaction, whatever happens.
class BatchTransaction {
  public:
    BatchTransaction(SqliteFile& file, SqliteFile::Boundary begin) : m_file(file) { m_file.cross(begin); }
    ~BatchTransaction() {
        if (!m_committed)
            m_file.attempt(SqliteFile::Boundary::Rollback);
    }
    BatchTransaction(const BatchTransaction&) = delete;
    BatchTransaction& operator=(const BatchTransaction&) = delete;
    void commit() {
        m_file.cross(SqliteFile::Boundary::Commit);
        m_committed = true;
    }

  private:
    SqliteFile& m_file;
    bool m_committed = false;
};

/// Hands on and counts.
class CountingSink : public ado::RowSink {
  public:
    explicit CountingSink(ado::RowSink& sink) : m_sink(sink) {}
    void begin(const std::vector<ado::Column>& columns) override {
        m_rows = 0;
        m_sink.begin(columns);
    }
    bool row(std::vector<base::Value>& values) override {
        ++m_rows;
        return m_sink.row(values);
    }
    bool isWanted() const override { return m_sink.isWanted(); }
    qint64 rows() const { return m_rows; }

  private:
    ado::RowSink& m_sink;
    qint64 m_rows = 0;
};

QString outcomeOf(const ado::Result& result) {
    return result.rows.columns.empty()
               ? QStringLiteral("%1 written").arg(std::max<qint64>(0, result.affected))
               : QStringLiteral("%1 rows").arg(result.rows.count());
}

QString outcomeOf(const ado::Streamed& end) {
    return QStringLiteral("%1 rows").arg(end.rows) + (end.stopped ? QStringLiteral(", stopped") : QString());
}

} // namespace

class EmbeddedProvider::Private {
  public:
    Private(const QString& path, const Options& options)
        : fileName(path)
        , file(toStd(path), toStd(options.newDatabases), {options.busyMilliseconds, options.waiting})
        , catalogue(file)
        , interpreter(file, catalogue, session, host)
        , trace(path, options.hostName)
        , dataVersion(file.prepare("PRAGMA data_version")) {
        host.catalogue = &catalogue;
        host.latinOrder = file.isInOrder();
        registerFunctions(file.handle(), host);
        session.database = catalogue.firstDatabase();
        session.hostName = toStd(options.hostName);
        session.programName = toStd(options.programName);
        session.loginName = toStd(options.loginName);
        session.processId = nextProcessId();
        readSettings();
        seenVersion = readVersion();
        sinceCheck.start();
    }

    ado::Result execute(const QString& text, ado::RowSink* sink = nullptr);
    void run(Module& module, ado::Result& result, ado::RowSink* sink);
    template <typename Call>
    auto traced(const QString& text, Call call);
    void sortOnDisk();
    void lookForChanges();
    void readSettings();
    void forget();
    void transactionStep(SqliteFile::Boundary boundary);
    void cross(SqliteFile::Boundary boundary);
    void seeTransaction();
    void endTransaction(bool keep);
    const Table* tableBelow(const ObjectText& object);
    void traceStep(SqliteFile::Boundary boundary, const QElapsedTimer& timer,
                   const base::RunTimeError* error);
    bool holdsSecret(const std::vector<StmtPtr>& statements, const std::string& defaultDatabase);

    QString fileName;
    FunctionHost host;
    SessionState session;
    SqliteFile file;
    Catalogue catalogue;
    Interpreter interpreter;
    Trace trace;
    SqliteStatement dataVersion;
    BatchCache batches{session};
    QHash<QString, QStringList> primaryKeys; ///< by the table's name as it was asked for
    bool tracing = false;
    long long seenChanges = 0;
    std::int64_t seenVersion = 0;
    bool sortsOnDisk = false;
    QElapsedTimer sinceCheck;

  private:
    std::int64_t readVersion() {
        const StatementReset reset(dataVersion.get());
        return file.step(dataVersion.get()) ? sqlite3_column_int64(dataVersion.get(), 0) : 0;
    }
};

void EmbeddedProvider::Private::readSettings() {
    tracing = catalogue.setting(traceSetting).value_or("off") == "on";
    const long long changes = catalogue.changes();
    if (changes != seenChanges)
        forget();
    seenChanges = changes;
}

void EmbeddedProvider::Private::forget() {
    batches.forget();
    catalogue.forget();
    primaryKeys.clear();
}

/// Now and then, whether another provider has written settings or definitions.
void EmbeddedProvider::Private::lookForChanges() {
    constexpr qint64 interval = 500;
    if (session.inTransaction || sinceCheck.elapsed() < interval)
        return;
    sinceCheck.restart();
    const std::int64_t version = readVersion();
    if (version == seenVersion)
        return;
    seenVersion = version;
    readSettings();
}

/// A full disk takes the whole transaction back, not the statement alone.
void EmbeddedProvider::Private::seeTransaction() {
    session.rolledBack = session.inTransaction && sqlite3_get_autocommit(file.handle()) != 0;
}

ado::Result EmbeddedProvider::Private::execute(const QString& text, ado::RowSink* sink) {
    if (session.rolledBack)
        throw ado::rolledBackByServer();
    const QByteArray utf8 = text.toUtf8();
    const std::shared_ptr<Module> module = batches.batch({utf8.constData(), std::size_t(utf8.size())});
    ado::Result result;
    try {
        run(*module, result, sink);
    } catch (...) {
        seeTransaction();
        if (interpreter.takeDefinitionRan())
            forget();
        throw;
    }
    if (interpreter.takeDefinitionRan())
        forget();
    return result;
}

void EmbeddedProvider::Private::run(Module& module, ado::Result& result, ado::RowSink* sink) {
    const Plan plan = Planner(catalogue).plan(module);
    if (session.inTransaction || plan == Plan::Single) {
        interpreter.runBatch(module, batches.values(), result, sink);
        return;
    }
    BatchTransaction transaction(file, plan == Plan::Writes ? SqliteFile::Boundary::BeginWriting
                                                            : SqliteFile::Boundary::Begin);
    interpreter.runBatch(module, batches.values(), result, sink);
    transaction.commit();
}

/// A call among the statements whose procedure takes a password's hash.
bool EmbeddedProvider::Private::holdsSecret(const std::vector<StmtPtr>& statements,
                                            const std::string& defaultDatabase) {
    for (const StmtPtr& statement : statements) {
        if (holdsSecret(statement->body, defaultDatabase) ||
            holdsSecret(statement->otherwise, defaultDatabase))
            return true;
        if (statement->kind != StmtKind::Execute)
            continue;
        const ObjectName& name = statement->call->name;
        const std::string& database = name.database.empty() ? defaultDatabase : name.database;
        const std::shared_ptr<Module> called = catalogue.module(database, name.name);
        if (called && called->holdsSecret)
            return true;
    }
    return false;
}

/// The table of that name, or the one table that the view of that name reads; null when it is neither.
const Table* EmbeddedProvider::Private::tableBelow(const ObjectText& object) {
    if (const Table* table = catalogue.table(object.database, object.name))
        return table;
    const std::shared_ptr<Module> view = catalogue.module(object.database, object.name);
    if (!view || view->definition->kind != ModuleKind::View)
        return nullptr;
    const Select& select = *view->definition->view;
    const auto& from = select.cores.front().from;
    if (select.cores.size() != 1 || from.size() != 1 || from.front()->left || from.front()->derived)
        return nullptr;
    const ObjectName& name = from.front()->name;
    return catalogue.table(name.database.empty() ? view->database : name.database, name.name);
}

/// There is none any more afterwards, whatever is raised.
void EmbeddedProvider::Private::endTransaction(bool keep) {
    const bool gone = std::exchange(session.rolledBack, false);
    session.inTransaction = false;
    if (gone) {
        if (keep)
            throw ado::rolledBackByServer();
        return;
    }
    const int code = file.attempt(keep ? SqliteFile::Boundary::Commit : SqliteFile::Boundary::Rollback);
    if (code == SQLITE_OK)
        return;
    const base::RunTimeError error = errorOfSqlite(file.handle(), code);
    if (sqlite3_get_autocommit(file.handle()) == 0)
        file.attempt(SqliteFile::Boundary::Rollback);
    if (keep || sqlite3_get_autocommit(file.handle()) == 0) // what was to be undone is undone
        throw base::RunTimeError(error);
}

void EmbeddedProvider::Private::transactionStep(SqliteFile::Boundary boundary) {
    lookForChanges();
    QElapsedTimer timer;
    if (tracing)
        timer.start();
    try {
        cross(boundary);
    } catch (const base::RunTimeError& error) {
        traceStep(boundary, timer, &error);
        throw;
    }
    traceStep(boundary, timer, nullptr);
}

void EmbeddedProvider::Private::cross(SqliteFile::Boundary boundary) {
    if (boundary == SqliteFile::Boundary::BeginWriting) {
        if (session.inTransaction)
            throw ado::transactionIsOpen();
        file.cross(boundary);
        session.inTransaction = true;
        return;
    }
    const bool keep = boundary == SqliteFile::Boundary::Commit;
    if (!session.inTransaction)
        throw keep ? ado::nothingToCommit() : ado::nothingToRollBack();
    endTransaction(keep);
}

void EmbeddedProvider::Private::traceStep(SqliteFile::Boundary boundary, const QElapsedTimer& timer,
                                          const base::RunTimeError* error) {
    if (tracing)
        trace.write({QString::fromLatin1(boundaryText(boundary)), timer.nsecsElapsed(),
                     error ? error->description() : QString(), error ? error->number() : 0, false});
}

std::unique_ptr<EmbeddedProvider> EmbeddedProvider::open(const QString& file, const Options& options) {
    return std::unique_ptr<EmbeddedProvider>(new EmbeddedProvider(std::make_unique<Private>(file, options)));
}

EmbeddedProvider::EmbeddedProvider(std::unique_ptr<Private> self) : d(std::move(self)) {}

EmbeddedProvider::~EmbeddedProvider() {
    if (!sqlite3_get_autocommit(d->file.handle()))
        sqlite3_exec(d->file.handle(), "ROLLBACK", nullptr, nullptr, nullptr);
}

/// Runs the call, which gives what came of it and its outcome in words, and writes it into the diary.
template <typename Call>
auto EmbeddedProvider::Private::traced(const QString& text, Call call) {
    if (!session.rolledBack)
        lookForChanges();
    QElapsedTimer timer;
    if (tracing)
        timer.start();
    Trace::Line line{text, 0, {}, 0, false};
    const auto finish = [&] {
        if (!tracing)
            return;
        line.nanoseconds = timer.nsecsElapsed();
        try {
            const QByteArray utf8 = text.toUtf8();
            const std::shared_ptr<Module> batch = batches.batch({utf8.constData(), std::size_t(utf8.size())});
            line.masked = holdsSecret(batch->batch.statements, batch->database);
        } catch (const base::RunTimeError&) {
            line.masked = true; // a text that cannot be read may hold anything
        }
        trace.write(line);
    };
    const auto fail = [&](const base::RunTimeError& error) {
        line.error = error.number();
        line.outcome = error.description();
        finish();
    };
    try {
        auto result = call();
        if (tracing)
            line.outcome = outcomeOf(result);
        finish();
        return result;
    } catch (const ScriptError& error) {
        fail(error);
        throw error.of(text);
    } catch (const base::RunTimeError& error) {
        fail(error);
        throw error.withStatement(text);
    }
}

/// A statement whose rows are not held shall not hold them to sort them, either.
void EmbeddedProvider::Private::sortOnDisk() {
    if (sortsOnDisk || session.inTransaction)
        return;
    file.execute("PRAGMA temp_store = FILE; PRAGMA cache_size = -16384");
    sortsOnDisk = true;
}

ado::Result EmbeddedProvider::execute(const QString& text) {
    return d->traced(text, [&] { return d->execute(text); });
}

ado::Streamed EmbeddedProvider::stream(const QString& text, ado::RowSink& sink) {
    d->sortOnDisk();
    return d->traced(text, [&] {
        CountingSink counting(sink);
        ado::Streamed end;
        try {
            end.affected = d->execute(text, &counting).affected;
        } catch (const Interpreter::SinkIsFull&) {
            end.stopped = true;
        } catch (const base::RunTimeError&) {
            if (sink.isWanted())
                throw;
            end.stopped = true; // interrupted in the middle of a row
        }
        end.rows = counting.rows();
        return end;
    });
}

void EmbeddedProvider::begin() {
    d->transactionStep(SqliteFile::Boundary::BeginWriting);
}

void EmbeddedProvider::commit() {
    d->transactionStep(SqliteFile::Boundary::Commit);
}

void EmbeddedProvider::rollback() {
    d->transactionStep(SqliteFile::Boundary::Rollback);
    d->forget();
}

bool EmbeddedProvider::inTransaction() const {
    return d->session.inTransaction;
}

void EmbeddedProvider::useDatabase(const QString& name) {
    d->session.database = d->catalogue.database(toStd(name));
    d->primaryKeys.clear();
}

QStringList EmbeddedProvider::primaryKey(const QString& table) {
    const auto known = d->primaryKeys.constFind(table);
    if (known != d->primaryKeys.constEnd())
        return *known;
    const ObjectText object = readObjectText(toStd(table), d->session.database);
    const Table* found = d->catalogue.hasDatabase(object.database) ? d->tableBelow(object) : nullptr;
    QStringList& columns = d->primaryKeys[table];
    if (!found)
        return columns;
    for (int ordinal = 1; ordinal <= int(found->columns.size()); ++ordinal) {
        for (const TableColumn& column : found->columns) {
            if (column.keyOrdinal == ordinal)
                columns += toQString(column.name);
        }
    }
    return columns;
}

const QString& EmbeddedProvider::file() const {
    return d->fileName;
}

QString EmbeddedProvider::database() const {
    return toQString(d->session.database);
}

bool EmbeddedProvider::hasDatabase(const QString& name) const {
    return d->catalogue.hasDatabase(toStd(name));
}

QString EmbeddedProvider::setting(const QString& name) {
    return toQString(d->catalogue.setting(toStd(name)).value_or(""));
}

void EmbeddedProvider::setSetting(const QString& name, const QString& value) {
    d->catalogue.setSetting(toStd(name), toStd(value));
    d->readSettings();
}

bool EmbeddedProvider::isTracing() {
    return d->tracing;
}

void EmbeddedProvider::setTracing(bool on) {
    setSetting(QString::fromLatin1(traceSetting), on ? QStringLiteral("on") : QStringLiteral("off"));
}

QStringList EmbeddedProvider::check() {
    QStringList problems;
    const SqliteStatement integrity = d->file.prepare("PRAGMA integrity_check");
    while (d->file.step(integrity.get())) {
        const std::string line = columnText(integrity.get(), 0);
        if (line != "ok")
            problems += toQString(line);
    }
    if (!d->file.isInOrder())
        problems +=
            QStringLiteral("Two rows have one key but for case or blanks at the end: names are not in the "
                           "server's order.");
    for (const Catalogue::ModuleKey& module : d->catalogue.modules()) {
        const QString name = toQString(module.database + ".." + module.name);
        try {
            d->interpreter.prepareAll(*d->catalogue.module(module.database, module.name));
        } catch (const ScriptError& error) {
            problems += QStringLiteral("%1 (line %2, column %3): %4")
                            .arg(name)
                            .arg(error.position().line)
                            .arg(error.position().column)
                            .arg(error.description());
        } catch (const base::RunTimeError& error) {
            problems += name + QStringLiteral(": ") + error.description();
        }
    }
    return problems;
}

sqlite3* EmbeddedProvider::handle() const {
    return d->file.handle();
}

QString sqliteName(const QString& table) {
    const ObjectText object = readObjectText(toStd(table), {});
    return toQString(quotedName(upperText(object.database) + "." + object.name));
}

} // namespace engine
