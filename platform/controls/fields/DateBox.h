#pragma once

#include "platform/controls/fields/MaskedDate.h"

namespace controls {

/// A date picker: shows "MM/dd/yyyy" and holds a day from earliest() to latest() at any time, today at first;
/// what lies beyond becomes the one or the other. Typed with or without slashes, with one digit or two, the
/// year in full or its last two digits. What is left out stays as it was; a day behind the end of its month
/// is the month's last one. Up and Down step the part at the cursor; the picture, F4 and Alt+Down open a
/// calendar.
class DateBox : public MaskedDate {
    Q_OBJECT

  public:
    explicit DateBox(QWidget* parent = nullptr);
    /// The day that stands there, also while it is being typed; without a time.
    base::DateTime date() const;
    /// The same as "mm/dd/yyyy".
    QString dateText() const;
    void setDate(base::DateTime date);

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

  private:
    void step(int by);
    void openCalendar();

    base::DateTime m_last; ///< what the parts that are not typed are taken from
};

} // namespace controls
