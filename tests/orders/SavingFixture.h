#pragma once

#include "platform/base/Format.h"
#include "tests/orders/RequestFixture.h"

namespace tests {

/// The list of texts, one a line, for a readable difference.
inline std::string listed(const QStringList& texts) {
    return texts.join(u'\n').toStdString();
}

/// Saves on a request screen, held against whole lists of texts.
class SavingFixture : public RequestFixture {
  public:
    explicit SavingFixture(Way way = usualWay()) : RequestFixture(way) {}

    static QString slipText(int slip) { return QStringLiteral("C%1J").arg(slip); }
    /// Puts the numbers of a save into an expected list of texts: {slip} and {r1}, {r2} ... for the requests.
    static QStringList expected(QStringList texts, int slip, int request) {
        for (QString& text : texts) {
            text.replace("{slip}", slipText(slip));
            for (int i = 1; i <= 9; ++i)
                text.replace(QStringLiteral("{r%1}").arg(i), QString::number(request + i - 1));
        }
        return texts;
    }
    void expectSaved(const QString& slip) {
        boxes.expect({QStringLiteral("Data Successfully Saved! ChargeSlip No.: '%1'").arg(slip),
                      controls::vbOKOnly, "Message"});
    }
    void save(const QString& slip) {
        expectSaved(slip);
        type("<Alt+S>");
    }
    /// The server dates the save. Where its clock is its own, these are the texts with the time that it told.
    QStringList atServerTime(QStringList texts, int slip) const {
        if (hospital.way() != Way::Site)
            return texts;
        const auto moment = [&](const char* column, const char* table, const char* reference) {
            return *hospital
                        .run(QStringLiteral("SELECT TOP 1 %1 FROM %2 WHERE %3 = '%4'")
                                 .arg(QLatin1String(column), QLatin1String(table), QLatin1String(reference),
                                      slipText(slip)))
                        .at(0, 0)
                        .asDateTime();
        };
        const base::DateTime billed = moment("TransDate", "BILLING..tbDailyBill", "RefNum");
        EXPECT_TRUE(isServerNow(billed));
        texts.replaceInStrings(QStringLiteral("11/21/2026 08:30:00 AM"),
                               toTestDays(base::Format(billed, QStringLiteral("mm/dd/yyyy hh:mm:ss AMPM"))));
        if (texts.filter(QStringLiteral("[processdate] = ")).isEmpty())
            return texts;
        const base::DateTime processed = moment("ProcessDate", "STATION..tbNurseLogBook", "ReferenceNum");
        EXPECT_TRUE(isServerNow(processed));
        return texts.replaceInStrings(QStringLiteral("2026-11-21T08:30:00.000"),
                                      toTestDays(base::toIso(processed).replace(u' ', u'T')));
    }
};

} // namespace tests
