#pragma once

#include "platform/report/layout/FontMeasure.h"
#include "platform/report/layout/PageDocument.h"

namespace report {

/// Where a text was found.
struct Hit {
    int page = 0; ///< from 0
    Frame frame;  ///< of the found signs
};

/// A search that goes through a document page by page, in reading order, cases not told apart. An empty text
/// is found nowhere.
class TextFind {
  public:
    static constexpr std::size_t mostHits = 100000;

    TextFind(std::shared_ptr<const PageDocument> document, QString text);

    /// Searches for about so many milliseconds; true when all pages there are were searched, or there are as
    /// many hits as anybody wants. Goes on when the document has grown.
    bool work(int milliseconds);
    const std::vector<Hit>& hits() const { return m_hits; }

  private:
    void searchPage(int page);

    std::shared_ptr<const PageDocument> m_document;
    QString m_text;
    FontMeasures m_measures;
    std::vector<Hit> m_hits;
    int m_page = 0; ///< the next one
};

/// All places of the text at once.
std::vector<Hit> findText(std::shared_ptr<const PageDocument> document, const QString& text);

} // namespace report
