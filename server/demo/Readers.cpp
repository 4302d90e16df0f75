#include "server/demo/Catalogue.h"
#include "server/demo/TableWriter.h"
#include "server/demo/World.h"

#include <cmath>

namespace demo {

namespace {

/// The first half of a month is paid on its 16th, the second half on the 1st of the next.
base::DateTime payDay(base::DateTime moment) {
    base::CalendarDate day = base::calendarDate(moment);
    if (day.day < 16) {
        day.day = 16;
    } else {
        day.day = 1;
        if (++day.month > 12) {
            day.month = 1;
            ++day.year;
        }
    }
    return *base::makeDateTime(day, {10, 0, 0, 0});
}

} // namespace

/// Pays the doctors what they earned on the fees of the half months that are over.
void writeReaderPayments(World& world) {
    TableWriter payments(world.file, "CARDIO..tbReaderPayment",
                         {"DoctorID", "RevenueID", "RefNum", "ItemID", "Amount", "PaidDate", "UserID"});
    for (const Fee& fee : world.fees) {
        const base::DateTime paid = payDay(fee.moment);
        if (paid < world.now)
            payments.row(fee.doctor, fee.revenue, fee.refNum, fee.exam,
                         std::round(fee.amount * feePercentage(fee.revenue)) / 100, paid, "3001");
    }
}

} // namespace demo
