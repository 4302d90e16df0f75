#pragma once

#include <memory>

class QAbstractButton;
class QLabel;

namespace menu {

class IndicatorButton;

/// What watches the server while the menu is open and shows it on the menu's indicators. Lives as long as the
/// menu is loaded.
class Monitors {
  public:
    virtual ~Monitors() = default;
    /// At the very start of loading, also without a connection: the character is loaded, the timers begin.
    virtual void start() = 0;
    /// At the end of loading with a connection: one immediate round.
    virtual void checkNow() = 0;
    /// The list of discharge notices, as a click on the character opens it.
    virtual void openDischargeNotices() {}
    /// The character is silenced for the session, or may speak again.
    virtual void turnSilence() {}
};

/// Where the monitors show what waits. Shown and hidden by them alone.
struct Indicators {
    IndicatorButton* btnCommunication;
    QLabel* Label1;
    QLabel* communicationCount;
    QAbstractButton* cmdPrepaid;
    QLabel* txtPrepaid;
    QLabel* prepaidCount;
    IndicatorButton* btnDepositComm;
    QLabel* Label2;
    QAbstractButton* btnDischarge;
    QLabel* lblDischarge;
    QLabel* dischargeCount;
    QLabel* lblSilence;        ///< what the key for silence does next
    QLabel* lblNothingWaiting; ///< what is said where nothing waits; shown by the menu
    QLabel* lblChecked;        ///< when the server was asked last
};

/// The monitors of a menu that loads; null for none.
std::unique_ptr<Monitors> makeMonitors(const Indicators& indicators);

} // namespace menu
