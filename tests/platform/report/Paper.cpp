#include "tests/platform/report/Paper.h"

#include "tests/support/hospital/Days.h"

#include <QRegularExpression>

#include <gtest/gtest.h>

#include <algorithm>

namespace tests {

void PrintTo(const Sum& sum, std::ostream* stream) {
    *stream << sum.count << " with " << double(sum.cents) / 100;
}

qint64 centsOf(QString amount) {
    return qRound64(amount.remove(u',').toDouble() * 100);
}

int numberIn(const QString& text) {
    static const QRegularExpression number("\\d[\\d,]*");
    return number.match(text).captured().remove(u',').toInt();
}

Paper::Paper(const report::PageDocument& document) {
    for (int page = 0; page < document.pageCount(); ++page) {
        for (const QString& line : toTestDays(report::textOf(*document.page(page))).split(u'\n'))
            m_lines.push_back(line.split(u'\t'));
    }
}

int Paper::count(const QString& start) const {
    return int(std::count_if(m_lines.begin(), m_lines.end(),
                             [&](const QStringList& cells) { return cells[0].startsWith(start); }));
}

QStringList Paper::line(const QString& start) const {
    EXPECT_EQ(count(start), 1) << qPrintable(start);
    const auto found = std::find_if(m_lines.begin(), m_lines.end(),
                                    [&](const QStringList& cells) { return cells[0].startsWith(start); });
    return found == m_lines.end() ? QStringList(QString()) : *found;
}

Sum Paper::total(const QString& start, int cell) const {
    const QStringList cells = line(start);
    if (cells.size() < 2) {
        ADD_FAILURE() << "no amount beside " << qPrintable(start);
        return {};
    }
    return {numberIn(cells[0]), centsOf(cell < 0 ? cells.last() : cells[cell])};
}

Sum Paper::groups(int cell) const {
    static const QRegularExpression footer("^[\\d,]+ (line|procedure|result|payment|patient)s?\\b");
    Sum all;
    for (const QStringList& cells : m_lines) {
        if (!footer.match(cells[0]).hasMatch())
            continue;
        const QString amount = cells.size() < 2 ? QString() : cell < 0 ? cells.last() : cells[cell];
        all = all + Sum{numberIn(cells[0]), centsOf(amount)};
    }
    return all;
}

QStringList Paper::firstCells() const {
    QStringList all;
    for (const QStringList& cells : m_lines)
        all << cells[0];
    return all;
}

} // namespace tests
