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
    std::vector<Opened> opened;
    std::vector<session::RequestEntry> requests;
    std::vector<session::OutRequestEntry> outRequests;
    int packages = 0;
    int nucCharges = 0;
    /// What the package screens answer.
    bool hasPackageScreens = false;
    /// Runs while any of the screens counts as open.
    std::function<void()> whileOpen;

    void showMainMenu() override;
    void open(session::MenuScreen screen, const QString& formMode) override;
    void openRequest(const session::RequestEntry& entry) override;
    void openOutRequest(const session::OutRequestEntry& entry) override;
    bool openNuclearPackage(session::PackageHandOver& grids) override;
    bool openNucCharges(session::PackageHandOver& grids) override;

  private:
    void pass();
};

} // namespace tests
