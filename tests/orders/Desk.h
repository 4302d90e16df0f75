#pragma once

#include "tests/orders/RequestFixture.h"

namespace tests {

/// The request screen with a procedure, a fee and a supply keyed in.
class Desk : public RequestFixture {
  public:
    explicit Desk(Way way) : RequestFixture(way) {}
    void TestBody() override {}

    void keyIn() {
        openAdmitted();
        type("NU<Enter>1001<Enter>R<Enter>1<Enter>MD<Enter>201<Enter><Tab>1500<Enter>UR<Enter>40001<Enter><"
             "Enter>2"
             "<Enter>");
        ASSERT_GE(grid().Rows(), 4);
    }
    void save() {
        boxes.expect({QStringLiteral("Data Successfully Saved! ChargeSlip No.: 'C%1J'").arg(nextSlip()),
                      controls::vbOKOnly, "Message"});
        type("<Alt+S>");
    }
    /// Rows of every table that the save writes, the numbers, the stock on hand.
    QStringList state() {
        QStringList all;
        for (const char* query :
             {"SELECT COUNT(*) FROM NUCLEAR..tbNucMaster", "SELECT COUNT(*) FROM STATION..tbNurseLogBook",
              "SELECT COUNT(*) FROM BILLING..tbDailyBill", "SELECT COUNT(*) FROM INVENTORY..tbInvStockCard",
              "SELECT ChargeSlip FROM NUCLEAR..tbNucSlip", "SELECT RequestNum FROM NUCLEAR..tbNucSlip",
              "SELECT OnHand FROM INVENTORY..tbInvStock WHERE ItemID = '40001' AND LocationID = '224'"})
            all += value(QString::fromLatin1(query));
        return all;
    }
};

inline QByteArrayList bytesOf(const QStringList& texts) {
    QByteArrayList bytes;
    for (const QString& text : texts)
        bytes += text.toUtf8();
    return bytes;
}

} // namespace tests
