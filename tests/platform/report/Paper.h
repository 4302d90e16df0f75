#pragma once

#include "platform/report/layout/PageDocument.h"

#include <QStringList>

#include <ostream>
#include <vector>

namespace tests {

/// How many, and how much in centavos.
struct Sum {
    int count = 0;
    qint64 cents = 0;

    void add(qint64 more) {
        ++count;
        cents += more;
    }
    bool operator==(const Sum&) const = default;
    Sum operator+(const Sum& other) const { return {count + other.count, cents + other.cents}; }
    Sum operator-(const Sum& other) const { return {count - other.count, cents - other.cents}; }
};
void PrintTo(const Sum& sum, std::ostream* stream);

/// "1,234.50" and "1234.5" alike.
qint64 centsOf(QString amount);
/// The first number in a text, as "1,234 lines".
int numberIn(const QString& text);

/// The texts of all pages of a report, line by line and cell by cell.
class Paper {
  public:
    explicit Paper(const report::PageDocument& document);

    /// Lines whose first cell begins with this.
    int count(const QString& start) const;
    /// The only such line; fails the test when there are none or several.
    QStringList line(const QString& start) const;
    /// A grand total: the number in the line's first cell, the amount in its last or in the one told.
    Sum total(const QString& start, int cell = -1) const;
    /// What the groups' footers add up to. Their first cell reads "12 lines", "1 procedure, ...".
    Sum groups(int cell = -1) const;
    const std::vector<QStringList>& lines() const { return m_lines; }
    /// The first cells of all lines.
    QStringList firstCells() const;

  private:
    std::vector<QStringList> m_lines;
};

} // namespace tests
