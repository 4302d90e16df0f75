#pragma once

#include <QObject>

class QKeyEvent;
class QLineEdit;

namespace charges {

/// The keys of a rate's box: one that no rate has (a quote, a comma, a slash, whatever comes behind the
/// digits, letters with it) is a Backspace. What is pasted loses such signs.
class RateKeys : public QObject {
    Q_OBJECT

  public:
    /// Once a box, which owns it.
    static void attach(QLineEdit* box);

    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    explicit RateKeys(QLineEdit* box);

    QLineEdit* m_box;
};

} // namespace charges
