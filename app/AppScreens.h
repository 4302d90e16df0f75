#pragma once

#include "app/Guide.h"
#include "session/Screens.h"

#include <functional>
#include <map>

namespace app {

/// Which screen opens which: the one place that knows the screens of all folders. A menu screen that is not
/// in the table does nothing.
class AppScreens : public session::Screens {
  public:
    AppScreens();

    void showMainMenu() override;
    void endProgram() override;
    void open(session::MenuScreen screen, const QString& formMode = {}) override;
    void openRequest(const session::RequestEntry& entry) override;
    void openOutRequest(const session::OutRequestEntry& entry) override;
    void openNuclearPackage(const session::PackageHandOver& grids) override;
    void openNucCharges(const session::PackageHandOver& grids) override;
    void enableRequestSaves() override;
    session::ChosenPatient openDischargeNotice() override;
    void openClearPatient(const QString& IdNum) override;
    void openRePrint(const session::SlipAgain& slip) override;
    void openAssessmentStatus(const session::SlipAgain& slip) override;
    std::optional<session::FoundOutPatient> findOutPatient(const QString& searchText) override;

    /// Opens one screen and returns when it has closed. `formMode` is "" for screens without modes.
    using Opener = std::function<void(const QString& formMode)>;
    bool opens(session::MenuScreen screen) const { return m_table.contains(screen); }

  private:
    std::map<session::MenuScreen, Opener> m_table;
    Guide m_guide; ///< of the screens that it opens
};

} // namespace app
