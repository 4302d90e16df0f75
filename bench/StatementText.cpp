#include "bench/Measure.h"
#include "bench/Measures.h"

#include "platform/ado/Statement.h"

namespace bench {

namespace {

constexpr int texts = 10'000;

// The longest text that a save sends, with the values of one line.
QString checkedText(const QString& number) {
    return ado::sql("sp_addbill 'I','{}','{}','{}', '{}','{}','{}','{}','{}','','', '{}'", number,
                    "11/21/2026 08:30:00 AM", "C1234J", "1012", 6250.0, "NU", "1001", 1.0, "0045127")
        .text();
}

QString joinedText(const QString& number) {
    return QStringLiteral("sp_addbill 'I','") + number +
           QStringLiteral("','11/21/2026 08:30:00 AM','C1234J', '1012','") + QString::number(6250.0) +
           QStringLiteral("','NU','1001','") + QString::number(1.0) + QStringLiteral("','','', '0045127'");
}

} // namespace

bool statementText(const QString&) {
    qsizetype length = 0;
    const auto manyOf = [&length](QString (*text)(const QString&)) {
        return [&length, text](int) {
            return timed([&] {
                for (int i = 0; i < texts; ++i)
                    length += text(QString::number(2'600'000 + i)).size();
            });
        };
    };
    const Outcome outcome = interleave(21, 3, manyOf(checkedText), manyOf(joinedText));
    Report::line(QStringLiteral("10,000 texts checked / only joined"), outcome, 0);
    Report::note(QStringLiteral("  %1 statement texts built and checked a second (%2 characters each)")
                     .arg(texts / (outcome.ours.median / 1e9), 0, 'f', 0)
                     .arg(length / (2 * 24 * texts)));
    return true;
}

} // namespace bench
