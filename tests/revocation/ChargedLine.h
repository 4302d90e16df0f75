#pragma once

#include "tests/support/hospital/TestHospital.h"

#include <QString>

#include <functional>
#include <ostream>
#include <vector>

namespace tests {

/// A line as the request screens posted it, in request, wards' log book and, as it fits, on the bill, the
/// stock card or a receipt.
struct Charged {
    QString request = QStringLiteral("90001");
    QString slip = QStringLiteral("C9001J");
    QString admission = QStringLiteral("26004078");
    QString hospNum = QStringLiteral("104078");
    QString item = QStringLiteral("1001");
    QString revenue = QStringLiteral("NU");
    QString ward = {}; ///< the ward's own number; "" is the request's
    double amount = 5620;
    int quantity = 1;
};

void post(const TestHospital& hospital, const Charged& line);

/// Of an out-patient whose bill is open.
Charged outPatients(const TestHospital& hospital);
/// Of a walk-in with a receipt.
Charged paidLine();
/// Of a number that begins with T.
Charged temporary();
Charged fee();
Charged supply();

/// What a line left in the books.
struct Books {
    double bill;      ///< of the slip
    double stock;     ///< on hand of the item, in all stores
    int receipts;     ///< lines of the slip that are still paid
    int listed;       ///< lines that the report of transactions has of the slip
    double listedSum; ///< their amounts
    int cancelled;    ///< lines that the report of cancelled procedures has of it
    int copies;       ///< lines that a re-print of the slip would have
    QString status;   ///< of the request
    bool operator==(const Books&) const = default;
};
void PrintTo(const Books& books, std::ostream* out);
Books books(const TestHospital& hospital, const Charged& line);

/// A way that a cancellation takes, and what the line counts for in the books.
struct Branch {
    const char* name;
    Charged (*line)(const TestHospital& hospital);
    bool isBilled = false;
    bool isStock = false;
    bool isPaid = false;
    bool isListed = true;       ///< in the section's reports: fees are not
    const char* section = "NU"; ///< of the desk when it is cancelled: that of the last line it saved
};
void PrintTo(const Branch& branch, std::ostream* out);
const std::vector<Branch>& branches();
/// The books with the line posted, or cancelled, that were `without` before.
Books whenPosted(const Branch& branch, const Charged& line, Books without);
Books whenCancelled(const Branch& branch, Books without);

} // namespace tests
