#pragma once

#include <QString>

namespace attacks {

/// What a hospital's books hold after any number of saves of the programs that the attacks start. A request
/// of theirs is two requests, two lines of the log book, a bill, a stock card and one slip number; an
/// assessment is two lines.
struct Books {
    int requests = 0, logBook = 0, bills = 0, stockCards = 0, slips = 0, numbers = 0, stockTaken = 0;
    int walkIns = 0, walkInNumber = 0;
    int assessments = 0, assessedLines = 0, assessedNumbers = 0;
    int shared = 0; ///< numbers that two rows have

    static Books of(const QString& file);
    int saves(const Books& before) const { return slips - before.slips; }
    int registrations(const Books& before) const { return walkInNumber - before.walkInNumber; }
    int filed(const Books& before) const { return assessments - before.assessments; }
    /// "" when every book tells of the same number of saves since `before`; else all of them.
    QString disagreement(const Books& before) const;
};

/// What SQLite and the engine find wrong with the file; "" for nothing.
QString damageOf(const QString& file);

} // namespace attacks
