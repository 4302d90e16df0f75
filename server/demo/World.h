#pragma once

#include "platform/base/DateTime.h"
#include "server/demo/Chance.h"
#include "server/demo/Names.h"

#include <QString>

#include <optional>
#include <vector>

struct sqlite3;

namespace demo {

inline constexpr qint64 minuteMs = 60'000;
inline constexpr qint64 hourMs = 60 * minuteMs;
inline constexpr qint64 dayMs = 24 * hourMs;

/// A stay that requests can be filed for.
struct Stay {
    QString idNum;
    QString hospNum;
    PersonName name;
    base::DateTime from;
    /// Discharged, or as long as the demo's present.
    base::DateTime until;
    QString room;      ///< "OPD" for an out-patient
    QString roomClass; ///< "A" to "E", "" when the room is not on file
    QString doctor;
    bool outPatient = false;
    bool open = true; ///< neither discharged nor billed
    bool cashBasis = false;
};

struct WalkIn {
    QString hospNum;
    PersonName name;
};

/// A doctor's fee on a slip.
struct Fee {
    QString doctor;
    QString revenue; ///< "MD" professional fee, "FN" reader's fee
    QString refNum;
    QString exam; ///< the first one of the slip
    double amount;
    base::DateTime moment;
};

/// What the makers of the demo hospital hand on to each other. The file is open, inside one transaction.
struct World {
    sqlite3* file;
    base::DateTime now;
    Chance chance;
    std::vector<Stay> stays;
    std::vector<WalkIn> walkIns;
    std::vector<Fee> fees;
};

/// `days` days before, at a time of that day.
inline base::DateTime before(base::DateTime now, int days, int hour, int minute) {
    return {base::dateOnly(now).ms - days * dayMs + hour * hourMs + minute * minuteMs};
}

/// Full years, as text.
QString ageAt(base::DateTime birth, base::DateTime day);

void writeUsers(World& world);
void writeCatalogue(World& world);
void writePatients(World& world);
void writeRequests(World& world);
void writeWards(World& world);
void writeCashier(World& world);
void writeReaderPayments(World& world);

} // namespace demo
