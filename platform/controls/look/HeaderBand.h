#pragma once

#include <QFrame>

class QLabel;

namespace controls {

/// The band at the top of every screen: title, a line below it (who the patient is), chips at the right.
class HeaderBand : public QFrame {
    Q_OBJECT
    Q_PROPERTY(QString title READ title WRITE setTitle)
    Q_PROPERTY(QString subtitle READ subtitle WRITE setSubtitle)

  public:
    explicit HeaderBand(QWidget* parent = nullptr);
    QString title() const;
    void setTitle(const QString& title);
    QString subtitle() const;
    void setSubtitle(const QString& subtitle);
    /// Up to any number of chips; empty ones are left out.
    void setChips(const QStringList& chips);
    /// As they stand, from left to right.
    QStringList chips() const;

  private:
    QLabel* m_title;
    QLabel* m_subtitle;
    QWidget* m_chips;
};

} // namespace controls
