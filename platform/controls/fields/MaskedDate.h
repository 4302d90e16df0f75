#pragma once

#include "platform/base/DateTime.h"

#include <QLineEdit>

#include <optional>

namespace controls {

/// A date field that shows "__/__/____" until something is typed: digits only, the slashes stand.
/// Text() is what is shown, blanks included; text() is the same without the blanks ("//" when empty).
class MaskedDate : public QLineEdit {
    Q_OBJECT
    Q_PROPERTY(QString Text READ Text WRITE setText)

  public:
    static inline const QString emptyText = QStringLiteral("__/__/____");

    explicit MaskedDate(QWidget* parent = nullptr);
    /// "11/21/2026", "1_/__/____", or emptyText.
    QString Text() const { return displayText(); }
    /// True when no digit was typed.
    bool isEmpty() const;
    /// What a server takes and can still count a day on from.
    static base::DateTime earliest();
    static base::DateTime latest(); ///< 12/30/9999

    /// Nothing when it is empty, half typed, no day of the calendar, or beyond what a server takes.
    std::optional<base::DateTime> date() const;
    void setDate(base::DateTime date);
    QSize sizeHint() const override;

  protected:
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

  private:
    bool m_resumes = false; ///< left for another window: back from it typing goes on where it was
};

} // namespace controls
