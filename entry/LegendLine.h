#pragma once

#include <QLabel>

namespace entry {

/// A help text that wraps where it has no room and shows each run of blanks as one; text() stays as given. As
/// narrow as its row wants it.
class LegendLine : public QLabel {
    Q_OBJECT

  public:
    explicit LegendLine(const QString& text, QWidget* parent = nullptr);
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    int heightForWidth(int width) const override;

  protected:
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;

  private:
    /// Layouts ask for the same widths again and again.
    struct Measured {
        int width = -1;
        int height = 0;
    };
    static constexpr int flags = int(Qt::AlignLeft | Qt::AlignVCenter) | Qt::TextWordWrap;

    QString m_shown;
    mutable Measured m_usual, m_asked;
};

} // namespace entry
