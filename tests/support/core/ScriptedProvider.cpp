#include "tests/support/core/ScriptedProvider.h"

namespace tests {

ado::Result ScriptedProvider::rowsOf(const QString& columns,
                                     const std::vector<std::vector<base::Value>>& rows) {
    ado::Result result;
    for (const QString& name : columns.split(u','))
        result.rows.columns.edit().push_back({name, ado::DataType::Text, {}, {}});
    for (const auto& row : rows)
        result.rows.values.insert(result.rows.values.end(), row.begin(), row.end());
    return result;
}

ado::Result ScriptedProvider::execute(const QString& text) {
    for (auto answer = m_answers.begin(); answer != m_answers.end(); ++answer) {
        if (!text.startsWith(answer->startsWith, Qt::CaseInsensitive))
            continue;
        ado::Result result = answer->result;
        if (answer->once)
            m_answers.erase(answer);
        return result;
    }
    return {};
}

void StatementRecorder::beforeStatement(const QString& text, ado::StatementKind kind) {
    texts += kind == ado::StatementKind::WriteBack ? QStringLiteral("UPDATE: ") + text : text;
}

void StatementRecorder::transactionStep(ado::TransactionStep step) {
    switch (step) {
    case ado::TransactionStep::Begin:
        texts += QStringLiteral("BEGIN");
        break;
    case ado::TransactionStep::Commit:
        texts += QStringLiteral("COMMIT");
        break;
    case ado::TransactionStep::Rollback:
        texts += QStringLiteral("ROLLBACK");
        break;
    }
}

void FaultInjector::beforeStatement(const QString&, ado::StatementKind) {
    if (++m_seen == m_failing)
        throw base::RunTimeError(50000, QStringLiteral("Injected failure."), QStringLiteral("42000"), {});
}

} // namespace tests
