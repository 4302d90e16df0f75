#pragma once

#include "session/Screens.h"

#include <functional>
#include <vector>

namespace tests {

/// Opens no screen: writes down which one was asked for, and what it was given. Installed while it lives.
class RecordedScreens : public session::Screens {
  public:
    RecordedScreens();
    ~RecordedScreens() override;
    RecordedScreens(const RecordedScreens&) = delete;
    RecordedScreens& operator=(const RecordedScreens&) = delete;

    struct Opened {
        session::MenuScreen screen;
        QString formMode;
    };

    int mainMenus = 0;
    int ends = 0;
    std::vector<Opened> opened;
    std::vector<session::RequestEntry> requests;
    std::vector<session::OutRequestEntry> outRequests;
    std::vector<session::PackageHandOver> packages;
    std::vector<session::PackageHandOver> nucCharges;
    int savesEnabled = 0;
    int dischargeNotices = 0;
    std::vector<QString> cleared; ///< admission numbers
    std::vector<session::SlipAgain> rePrints;
    std::vector<session::SlipAgain> assessmentStatuses;
    /// Runs while any of the screens counts as open.
    std::function<void()> whileOpen;
    std::function<void()> whenEnding;
    /// What the list of discharge notices comes back with.
    session::ChosenPatient notice;
    /// Without one no out-patient is found.
    std::function<std::optional<session::FoundOutPatient>(const QString&)> outPatientSearch;

    void showMainMenu() override;
    void endProgram() override;
    void open(session::MenuScreen screen, const QString& formMode) override;
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

  private:
    void pass();
};

} // namespace tests
