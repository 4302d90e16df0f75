#pragma once

#include <QObject>
#include <QPointer>
#include <QTimer>

namespace tests {

/// Watches for windows whose modal loop nobody drives: such a window fails the test at once, by its name, and
/// is closed as if its user had left it. A test that goes on opening them is ended as a program is that
/// stops. One for the whole program.
class ModalWatch : public QObject {
  public:
    ModalWatch();
    /// A new test begins.
    void forget() { m_undriven = 0; }

    /// Somebody drives the modal windows while this lives.
    class Driver {
      public:
        Driver();
        virtual ~Driver();
        Driver(const Driver&) = delete;
        Driver& operator=(const Driver&) = delete;
        /// False while another driver, made later, lives.
        bool isInnermost() const;
        /// A modal window came up. Only the innermost driver is told.
        virtual void modalShown() {}

      private:
        Driver* m_outer;
    };

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    /// A driver that is no more than a timer without delay has had its turn by then.
    static constexpr int roundsToWait = 5;
    static constexpr int mostUndriven = 3;

    void look();
    void close(QWidget& window);

    QTimer m_rounds;
    QPointer<QWidget> m_window;
    int m_levelBefore = 0;
    int m_round = 0;
    int m_undriven = 0;
};

} // namespace tests
