#pragma once

#include "tests/platform/report/BusyPeriod.h"
#include "tests/platform/report/Paper.h"
#include "tests/platform/report/StoredReports.h"

#include <QSet>

#include <map>
#include <ostream>

namespace tests {

struct Period {
    const char* name;
    const char *from, *to;   ///< as the reports take it
    const char *first, *end; ///< as the tables hold it; `end` is the day after the last
};
void PrintTo(const Period& period, std::ostream* stream);

inline constexpr Period busy{"Busy", BusyPeriod::first, BusyPeriod::last, "2026-11-09", "2026-11-21"};
inline constexpr Period year{"Year", "01/01/2026", "12/31/2026", "2026-01-01", "2027-01-01"};

/// One line as the tables hold it.
struct Line {
    QString moment, revenue, item, status, number, refNum;
    qint64 cents;
    char kind; ///< 'I', 'O', 'W'

    bool in(const Period& period) const { return moment >= period.first && moment < period.end; }
    bool revoked() const { return status == "R"; }
    bool procedure() const { return revenue == "NU"; }
};

/// Printed totals beside what the tables hold, added up without the kit. Runs on the made-up hospital with
/// the lines of a busy period in it.
class Totals : public StoredReports {
  protected:
    static const BusyPeriod& busyPeriod();
    const QString& hospitalFile() const override;

    Paper paper(const QString& file, const QStringList& values) { return Paper(*open(file, values)->run()); }
    Paper over(const Period& period, const QString& file) { return paper(file, {period.from, period.to}); }
    Paper audit(const Period& period, int option) {
        return paper("NuclearMonthlyReport.RPT", {period.from, period.to, QString::number(option), "A"});
    }
    Paper transactions(const Period& period) {
        return paper("NuclearTrans.RPT", {period.from, period.to, "H", "A"});
    }

    /// Every row of a query as texts; Null is "".
    std::vector<QStringList> table(const QString& query) const;
    QSet<QString> column(const QString& query) const;
    /// The amounts of a query's first column.
    Sum amounts(const QString& query) const;
    /// The section's lines: requests, and paid lines that no request was filed for.
    std::vector<Line> lines() const;
    template <typename Wanted>
    Sum sumOf(Wanted wanted) const {
        Sum sum;
        for (const Line& line : lines()) {
            if (wanted(line))
                sum.add(line.cents);
        }
        return sum;
    }
    /// What a doctor gets of a fee, in hundredths: "doctor/revenue".
    std::map<QString, double> shares() const;
};

} // namespace tests
