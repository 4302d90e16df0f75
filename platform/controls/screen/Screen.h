#pragma once

#include "platform/controls/screen/Connect.h"
#include "platform/controls/screen/MessageBox.h"

#include <QCoreApplication>
#include <QDialog>

#include <memory>
#include <vector>

class QLineEdit;

namespace controls {

/// A window of the program. Made on first use, loaded when it is shown (or on load()), and unloaded once:
/// then its results stay readable until fresh() replaces it. Enter presses no button unless one has the
/// focus, and Escape closes nothing, unless setEscapeCloses(true) says so. A row that is
/// wider than the desktop lies below itself; what there is no room for even so is scrolled to, between the
/// band and the commands.
class Screen : public QDialog {
    Q_OBJECT

  public:
    explicit Screen(QWidget* parent = nullptr);
    ~Screen() override;

    /// Loads the screen, shows it and returns once it is unloaded or hidden by its own commands. Raises 400
    /// when it is shown already, ProgramStopped when the program stopped meanwhile.
    /// 364 once it was unloaded: a fresh() instance is needed then. Does nothing more when Form_Load unloads.
    void ShowModal();
    /// Loads and shows the screen; returns at once.
    void Show();
    /// Runs Form_Load once, before the screen is seen; a caller that fills controls first calls it itself.
    void load();
    /// Asks Form_QueryUnload, then runs Form_Unload and closes. False when the screen refused.
    bool Unload();
    /// Leaves the modal call without unloading: the results stay in the controls.
    void hideScreen();
    bool isLoaded() const { return m_loaded; }
    bool isUnloaded() const { return m_unloaded; }

    /// The screens that are open, outermost first (for the error box's copy of what they hold).
    static const std::vector<Screen*>& openScreens();
    void setVisible(bool visible) override;

  protected:
    virtual void Form_Load() {}
    /// `cancel` = true keeps the screen open.
    virtual void Form_QueryUnload(bool& cancel);
    virtual void Form_Unload() {}

    /// Makes the open screen that high, as far as the desktop has room; the window stays on it, and what was
    /// shown meanwhile and has no room is scrolled to.
    void growTo(int height);
    void setEscapeCloses(bool closes) { m_escapeCloses = closes; }
    /// The pointer as hourglass while the guard lives.
    class Hourglass {
      public:
        Hourglass();
        ~Hourglass();
        Hourglass(const Hourglass&) = delete;
        Hourglass& operator=(const Hourglass&) = delete;
    };

    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void reject() override;

  private:
    void calmButtons();
    void placeOver(QWidget* opener);
    void scrollContents();

    bool m_loaded = false;
    QObject* m_buttonKeys;
    bool m_placed = false;
    bool m_unloaded = false;
    bool m_escapeCloses = false;
    bool m_unloading = false;
};

/// The single shared instance of a screen.
///     auto& screen = SharedScreen<frmSearch>::fresh();   // empty, whatever was in it before
///     screen.Query = ...; screen.ShowModal(); if (screen.Valid) ...
template <typename T>
class SharedScreen {
  public:
    /// The instance, empty again if it was unloaded. Raises 400 through ShowModal when it is open.
    static T& fresh() {
        auto& instance = holder();
        if (!instance || instance->isUnloaded())
            instance = std::make_unique<T>();
        return *instance;
    }
    /// The instance as it is: made on first use.
    static T& current() {
        auto& instance = holder();
        if (!instance)
            instance = std::make_unique<T>();
        return *instance;
    }
    static bool exists() { return holder() != nullptr; }

  private:
    template <typename Released>
    friend void release(); // TestDoors.h
    static void forget() { holder().reset(); }
    static std::unique_ptr<T>& holder() {
        static std::unique_ptr<T> instance;
        // Windows must go before the application does.
        static const bool releasedInTime = (qAddPostRoutine(&SharedScreen::forget), true);
        Q_UNUSED(releasedInTime)
        return instance;
    }
};

/// Selection start 0, selection length the length of the text.
void SelectAllText(QLineEdit* field);

} // namespace controls
