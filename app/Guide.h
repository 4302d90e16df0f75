#pragma once

#include <QObject>

#include <memory>
#include <span>

class QMenuBar;

namespace controls {
class GuideReader;
}

namespace app {

/// Which page of the guide tells of a screen.
struct GuidePlace {
    const char* screen; ///< its class
    const char* page;   ///< "results.md", or one section of it: "results.md#symbols"
};

/// Every screen of the program.
std::span<const GuidePlace> guidePlaces();

/// The guide (docs/guide, which is part of the program). While it lives F1 opens the page of the screen in
/// front, wherever F1 has no meaning of its own, and Shift+F1 does so everywhere. Reading sends no statement.
class Guide : public QObject {
    Q_OBJECT

  public:
    Guide();
    ~Guide() override;

    /// The page of the screen in front; the contents while no screen is open.
    void open();
    /// Puts the menu Help behind the others, once.
    void addHelp(QMenuBar& bar);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    std::unique_ptr<controls::GuideReader> m_reader;
};

} // namespace app
