#pragma once

#include <QWidget>

class QLabel;
class QLineEdit;

namespace report {

/// One line to search in: the text, how many hits, onwards and back. Enter is onwards, Shift+Enter back,
/// Escape closes.
class FindBar : public QWidget {
    Q_OBJECT

  public:
    explicit FindBar(QWidget* parent = nullptr);
    /// Shows the bar, its text selected.
    void begin();
    QString text() const;
    /// `current` from 0, -1 when there is none; the search may still be going on.
    void setCount(int current, int count, bool searching);

  Q_SIGNALS:
    void textChanged(const QString& text);
    void step(int direction); ///< 1 onwards, -1 back
    void closed();

  protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

  private:
    void close();

    QLineEdit* m_text;
    QLabel* m_count;
};

} // namespace report
