#pragma once

#include <QString>

class QWidget;

namespace results {

/// How far a request has come when its screen opens.
enum class ResultPoint {
    New,     ///< no result yet
    Saved,   ///< to view and edit
    ToRevoke ///< to be taken back, and nothing else
};

/// What a result screen says of the point beside the fields and commands that it allows: in its band, and by
/// the date of the saved result ("" when it is not known) beside today's.
void sayPoint(QWidget& screen, ResultPoint point, const QString& savedDate);

/// The sentence beside the commands. `takesSymbols`: there is a field that F5 could fill.
void sayWhatCanBeDone(QWidget& screen, ResultPoint point, bool takesSymbols);

} // namespace results
