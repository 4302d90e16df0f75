#include "tests/support/tds/TdsSession.h"

#include "tests/support/odbc/ServerViews.h"
#include "tests/support/tds/RowWriter.h"

#include <QRegularExpression>

namespace tests::tds {
namespace {

/// What a Done says of the statement it ends.
enum Command { None = 0x00, Select = 0xC1, Insert = 0xC3 };

/// A procedure's name and its arguments, without EXEC or with it.
bool isCall(const QString& text) {
    static const QRegularExpression statement(
        QStringLiteral(
            R"(^\s*(?:SELECT|INSERT|UPDATE|DELETE|IF|WHILE|DECLARE|SET|USE|CREATE|ALTER|DROP|WITH|BEGIN|)"
            R"(TRUNCATE|PRINT|RAISERROR|--|/\*)(?:\W|$))"),
        QRegularExpression::CaseInsensitiveOption);
    return !statement.match(text).hasMatch();
}

/// Begins a transaction in words, which the engine does not know.
bool isBegin(const QString& text) {
    static const QRegularExpression begin(
        QStringLiteral(R"(^\s*(?:IF @@TRANCOUNT = 0 )?BEGIN TRAN(?:SACTION)?\s*$)"),
        QRegularExpression::CaseInsensitiveOption);
    return begin.match(text).hasMatch();
}

bool asksForTransaction(const QString& text) {
    return text == QLatin1StringView("SELECT @@TRANCOUNT");
}

} // namespace

/// Keeps every result of a batch, and asks the line whether they are still wanted.
class TdsSession::Collector : public ado::RowSink {
  public:
    explicit Collector(Line& line) : m_line(line) {}
    void begin(const std::vector<ado::Column>& columns) override { results.push_back({columns, {}}); }
    bool row(std::vector<base::Value>& values) override {
        for (base::Value& value : values)
            results.back().values.push_back(std::move(value));
        return true;
    }
    bool isWanted() const override { return !m_line.isGivenUp(); }

    std::vector<ado::Rows> results;

  private:
    Line& m_line;
};

TdsSession::TdsSession(qintptr descriptor, Hospital hospital, Diary& diary, const std::atomic<bool>& stopping)
    : m_hospital(std::move(hospital)), m_diary(diary), m_line(descriptor, stopping) {}

TdsSession::~TdsSession() = default;

void TdsSession::serve() {
    try {
        while (!m_isDone) {
            const std::optional<Message> message = m_line.read();
            if (!message)
                return;
            answer(*message);
        }
    } catch (const std::exception&) {
        m_line.cut();
    }
}

void TdsSession::answer(const Message& message) {
    switch (message.type) {
    case MessageType::Prelogin:
        return answerPrelogin();
    case MessageType::Login:
        m_isDone = !logOn(readLogin(message.data));
        return;
    case MessageType::Attention:
        return answerAttention();
    default:
        break;
    }
    if (!m_provider)
        throw ProtocolError("a request before the log-on");
    if (message.type == MessageType::Batch)
        answerText(message.data);
    else if (message.type == MessageType::Transaction)
        answerTransaction(message.data);
    else
        throw ProtocolError("a request of a kind that is not known");
}

/// The client's wish came when the answer was on its way already.
void TdsSession::answerAttention() {
    Answer answer;
    answer.done(End::Statement, state(Answer::GivenUp), None);
    m_line.send(answer.out.bytes());
}

void TdsSession::answerText(const QByteArray& data) {
    ByteReader reader(data);
    reader.skipTo(reader.number<quint32>()); // what comes with a request, its own length first
    const QString text = fromUnits(reader.rest());
    Answer answer;
    if (!asksForTransaction(text) && !isBegin(text) && handled(answer, m_diary.step(text)))
        return;
    runText(answer, text);
    if (m_line.takeAttention()) {
        Answer given;
        tellTransactionLost(given);
        given.done(End::Statement, state(Answer::GivenUp), None);
        m_line.send(given.out.bytes());
        return;
    }
    m_line.send(answer.out.bytes());
}

/// Does what it is to do in the place of its work; true when there is no more to do.
bool TdsSession::handled(Answer& answer, const std::optional<Fault>& fault) {
    if (!fault)
        return false;
    switch (*fault) {
    case Fault::Error:
        fail(answer, base::RunTimeError(50000, QStringLiteral("Injected failure.")));
        break;
    case Fault::Deadlock:
        strikeDeadlock(answer);
        break;
    case Fault::TimeOut:
        m_line.waitForAttention();
        if (m_line.takeAttention())
            answerAttention();
        return true;
    case Fault::Cut:
        m_provider.reset(); // the server rolls back as the line goes
        m_line.cut();
        m_isDone = true;
        return true;
    }
    m_line.send(answer.out.bytes());
    return true;
}

void TdsSession::strikeDeadlock(Answer& answer) {
    if (m_provider->inTransaction())
        m_provider->rollback();
    if (m_open)
        closeTransaction(answer, Environment::RolledBack);
    fail(answer, base::RunTimeError(
                     1205, QStringLiteral("Transaction (Process ID 51) was deadlocked on lock resources with "
                                          "another process and has been chosen as the deadlock victim. Rerun "
                                          "the transaction.")));
}

void TdsSession::runText(Answer& answer, const QString& text) {
    const QString before = m_provider->database();
    Collector collector(m_line);
    try {
        if (isBegin(text)) {
            if (!m_open)
                openTransaction(answer);
            answer.done(End::Statement, state(0), None);
            return;
        }
        qint64 affected = -1;
        if (asksForTransaction(text)) { // no reason to begin one in the engine
            collector.begin({{QString(), ado::DataType::Integer, {}, {}}});
            collector.results.back().values.emplace_back(m_open ? 1 : 0);
            tellResults(answer, collector.results, affected, false);
            return;
        }
        startInEngine();
        if (auto views = catalogueRows(*m_provider, text))
            collector.results.push_back(std::move(views->rows));
        else
            affected = m_provider->stream(text, collector).affected;
        if (m_provider->database() != before) {
            answer.changed(Environment::Database, m_provider->database(), before);
            answer.message({5701, 2, 0,
                            QStringLiteral("Changed database context to '%1'.").arg(m_provider->database()),
                            1});
        }
        tellResults(answer, collector.results, affected, isCall(text));
    } catch (const base::RunTimeError& error) {
        for (const ado::Rows& rows : collector.results) {
            RowWriter(m_provider->handle(), rows, m_version >= version73).write(answer.out);
            answer.done(End::Statement, state(Answer::More | Answer::Counted), Select, rows.count());
        }
        tellTransactionLost(answer);
        fail(answer, error);
    }
}

void TdsSession::tellResults(Answer& answer, const std::vector<ado::Rows>& results, qint64 affected,
                             bool isCall) {
    const End end = isCall ? End::InProcedure : End::Statement;
    qsizetype open = qsizetype(results.size()) + (affected >= 0 ? 1 : 0);
    const auto more = [&] { return --open > 0 || isCall ? int(Answer::More) : 0; };
    // rows written come before the rows read, as a server tells them without SET NOCOUNT ON
    if (affected >= 0)
        answer.done(end, state(more() | Answer::Counted), Insert, affected);
    for (const ado::Rows& rows : results) {
        RowWriter(m_provider->handle(), rows, m_version >= version73).write(answer.out);
        answer.done(end, state(more() | Answer::Counted), Select, rows.count());
    }
    if (isCall) {
        answer.returned(0);
        answer.done(End::Procedure, state(0), None);
    } else if (results.empty() && affected < 0) {
        answer.done(End::Statement, state(0), None);
    }
}

void TdsSession::fail(Answer& answer, const base::RunTimeError& error) {
    ServerMessage message{error.number(), 1, 16, error.description(), 1};
    constexpr int deadlock = 1205;
    constexpr int broken = 2627;
    if (error.number() == deadlock)
        message.severity = 13;
    else if (error.number() == broken)
        message.severity = 14;
    answer.message(message);
    answer.done(End::Statement, state(Answer::Failed), None);
}

} // namespace tests::tds
