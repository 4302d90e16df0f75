#pragma once

#include "platform/base/DateTime.h"
#include "server/engine/EmbeddedProvider.h"

#include <memory>

namespace tests {

/// Puts the odd lines of a busy period into a made-up hospital, posted with the procedures that the screens
/// call, each at its own moment: the first and last moment of the period, nothing to pay, exams without a
/// form, more than one of a thing, cash lines filed and not, lines revoked in all ways, results read and
/// revoked, fees paid and taken back, patients who come and go at midnight.
class BusyPeriod {
  public:
    static constexpr const char* first = "11/09/2026";
    static constexpr const char* last = "11/20/2026";

    /// `file` is changed.
    explicit BusyPeriod(const QString& file);
    ~BusyPeriod();

    /// What was revoked by a screen, on a day of the period.
    int revokedLines() const { return m_revokedLines; }
    qint64 revokedCents() const { return m_revokedCents; }

  private:
    struct Stay {
        const char* type; ///< "I", "O", "" for a walk-in
        QString hospNum;
        QString idNum;
    };
    struct Line {
        QString requestNum, slip, item, amount, revenue;
        Stay stay;
    };
    void run(const QString& text);
    Stay anyStay(const char* type, int number);
    QString nextSlip() { return QStringLiteral("C%1J").arg(m_slip++); }
    /// A line as the request screens post it: request and charge, or for a supply request and stock card.
    Line post(const char* moment, const Stay& stay, const QString& amount, const char* item = "1001",
              int quantity = 1, const char* doctor = "204", const char* revenue = "NU", QString slip = {});
    /// As the cancellation screen does it.
    void revoke(const Line& line, const char* moment);
    void read(const Line& line, const char* caseNumber, const char* reader, const char* moment);
    void assess(const char* moment, const char* receipt, const QString& item, const char* amount,
                const char* revenue = "NU", const QString& idNum = {});
    void postEdges();
    void postRevoked();
    void postCash();
    void postResults();
    void postFees();
    void admitAndDischarge();

    std::unique_ptr<engine::EmbeddedProvider> m_provider;
    Stay m_in, m_out, m_walkIn;
    int m_request = 90001;
    int m_slip = 80001;
    int m_revokedLines = 0;
    qint64 m_revokedCents = 0;
};

} // namespace tests
