#pragma once

#include <QString>
#include <QStringList>

#include <vector>

namespace controls {

/// One section of a page that a search found.
struct GuideHit {
    QString link;    ///< "results.md#print-a-result"
    QString title;   ///< of the page
    QString heading; ///< "" for what stands before the page's first section
    QString line;    ///< the first line that holds a word, without Markdown's marks
};

/// The pages of a guide: Markdown files of one folder, a file or a resource. A page's first heading is its
/// title.
class GuidePages {
  public:
    explicit GuidePages(QString folder) : m_folder(std::move(folder)) {}

    /// The names of the files, first the one of the contents, README.md.
    QStringList names() const;
    /// The sections that hold all of the words, small or capital, those that name one in a heading first;
    /// none for a text without a word.
    std::vector<GuideHit> find(const QString& words) const;
    /// The hits as a page of links.
    QString foundPage(const QString& words) const;

    /// The name of a heading in a link, as the usual hosts of Markdown have it: "Print a result" is
    /// "print-a-result".
    static QString slugOf(const QString& heading);

  private:
    QString m_folder;
};

} // namespace controls
