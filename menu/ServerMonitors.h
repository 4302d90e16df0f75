#pragma once

#include "menu/Merlin.h"
#include "menu/Monitors.h"

#include <QObject>
#include <QTimer>

#include <array>

namespace menu {

/// Asks the server every half minute what waits: requests of nurses, prepaid requests, notices of discharge.
/// Types and blinks it on the indicators; the character tells of notices. A poll that fails is an error like
/// any other.
class ServerMonitors : public QObject, public Monitors {
    Q_OBJECT

  public:
    explicit ServerMonitors(const Indicators& indicators);
    ~ServerMonitors() override;

    void start() override;
    void checkNow() override;
    void openDischargeNotices() override;
    void turnSilence() override;

    Merlin& merlin() { return m_merlin; }

  private:
    void tmrChkPendingRequests_Timer();
    void tmrGetDischargeNotice_Timer();
    void tmrPrepaid_Timer();
    void tmrCheckDeposit_Timer() {}
    void Timer1_Timer();
    void tmrPending_Timer();
    void tmrPendingCaption_Timer();
    void tmrPendingButton_Timer();

    void type(QLabel* label, const QString& text);
    void blink(IndicatorButton* button);
    void tellChecked();
    void showNotices(int count);
    void showSilence();

    struct Row;
    static const Row rows[];

    Indicators m_on;
    Merlin m_merlin;
    QTimer m_tmrChkPendingRequests, m_tmrGetDischargeNotice, m_tmrPrepaid, m_tmrCheckDeposit, m_Timer1,
        m_tmrPending, m_tmrPendingCaption, m_tmrPendingButton;
    qint16 m_position = 0; ///< letters typed; Timer1 and tmrPendingCaption share it
    qint16 m_phase = 0;    ///< 0 or 1; tmrPending and tmrPendingButton share it
    bool m_isClearing = false;
};

} // namespace menu
