#pragma once

#include "platform/controls/guide/GuidePages.h"

#include <QTextBrowser>

namespace controls {

/// Shows the pages of a guide: its links, the sections that they name, its pictures no wider than a column.
/// Nothing that lies outside of the guide's folder and the one around it is opened.
class GuideBrowser : public QTextBrowser {
    Q_OBJECT

  public:
    /// `folder` is a resource, ":/docs/guide".
    GuideBrowser(const QString& folder, QWidget* parent);

    /// "results.md", or "results.md#print-a-result" for one of its sections.
    void showPage(const QString& page);
    std::vector<GuideHit> find(const QString& words) const { return m_pages.find(words); }
    /// The same as a page of links.
    void showFound(const QString& words);
    /// The name of the page's file; "" while the page of a search is shown.
    QString page() const;
    /// The text of the heading that the last link named; "" for the page's begin.
    const QString& section() const { return m_section; }

    QVariant loadResource(int type, const QUrl& name) override;

  protected:
    void doSetSource(const QUrl& url, QTextDocument::ResourceType type) override;

  private:
    void setHeadings();
    void setTables();
    void goToSection(const QString& slug);

    QString m_root;
    GuidePages m_pages;
    QString m_section;
};

} // namespace controls
