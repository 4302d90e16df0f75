#pragma once

#include <QImage>
#include <QString>
#include <QStringList>

#include <map>

class QWidget;

namespace tour {

/// The pictures of the guide (docs/guide/pictures/list.txt: their names with the screens that they show): the
/// first of that name that the walk takes, small.
class GuidePictures {
  public:
    /// The folder is made; "" keeps none.
    explicit GuidePictures(QString folder);

    /// Raises a sentence where the window is another screen than the guide tells of.
    void take(const QString& name, const QWidget& window, const QImage& picture);
    /// The names that the walk did not come by.
    QStringList missing() const;

  private:
    QString m_folder;
    std::map<QString, QString> m_waiting;
};

/// The picture in its 256 most frequent colours; other points take the nearest of them.
QImage withFewColours(const QImage& picture);

} // namespace tour
