#pragma once

#include <QObject>
#include <QPointer>
#include <QStringList>
#include <QWidget>

#include <functional>

namespace attacks {

/// Types keys, each to what has the focus when its turn comes: also inside what a key before it opened. A key
/// is written as tests::keysToFocus() has it; "<Click 3>" clicks the third of the buttons that are enabled,
/// counted round from 0. Where to save or print is answered with a file of the current folder, by Enter: in
/// such a dialog nothing is typed, which could write, rename and delete all over the machine. Whatever is
/// open above the screen in the end is left, innermost first; what cannot be left is a fault.
class Hand {
  public:
    /// A key of the attack's own; false for every other one.
    using OwnKey = std::function<bool(QWidget& window, const QString& key)>;
    explicit Hand(QStringList keys, OwnKey own = {}) : m_keys(std::move(keys)), m_own(std::move(own)) {}

    /// Returns when all is typed and left, the screen is gone, or the program stops.
    void play(QWidget& screen);

  private:
    static constexpr int mostLeaving = 60;
    static constexpr int quietTurns = 10;

    void arm();
    void turn();
    void leave();
    void type(const QString& key);
    static bool answersFileDialog(QWidget* modal, const QString& key);
    static void clickButton(const QWidget& window, int place);

    QStringList m_keys;
    OwnKey m_own;
    qsizetype m_next = 0;
    int m_leaving = 0;
    int m_quiet = 0;
    bool m_over = false;
    QPointer<QWidget> m_screen;
    QObject m_context;
};

/// Every box is answered with one of its buttons.
void answerAtRandom(quint32 seed);

} // namespace attacks
