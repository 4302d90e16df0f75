#pragma once

#include "platform/report/layout/Page.h"
#include "platform/report/output/SheetHeading.h"

#include <list>
#include <memory>
#include <vector>

namespace report {

class RowSource;

/// One place of the group tree.
struct TreeEntry {
    QString text;
    int level = 0; ///< 0: outermost group
    int page = 0;  ///< from 0
    Length y;      ///< on the page
};

/// Makes pages when they are wanted.
class PageSource {
  public:
    virtual ~PageSource() = default;
    virtual int pageCount() const = 0;
    /// `index` from 0.
    virtual Page makePage(int index) = 0;
    /// Groups in the order of the pages.
    virtual const std::vector<TreeEntry>& groupTree() const;
    /// False as long as pages may be added.
    virtual bool isComplete() const { return true; }
};

/// A report laid out, or on its way there. Holds only the pages last looked at; what they show is made of the
/// rows each time.
class PageDocument {
  public:
    /// `source` null: there are no pages so far.
    PageDocument(std::unique_ptr<PageSource> source, QString title, Length width, Length height);
    ~PageDocument();

    const QString& title() const { return m_title; }
    void setTitle(const QString& title) { m_title = title; }
    Length pageWidth() const { return m_width; }
    Length pageHeight() const { return m_height; }
    /// So far.
    int pageCount() const { return m_source ? m_source->pageCount() : 0; }
    /// All pages are there: it can be printed and exported.
    bool isComplete() const { return m_source && m_source->isComplete(); }
    /// `index` from 0; raises 9 beyond the last page.
    std::shared_ptr<const Page> page(int index) const;
    const std::vector<TreeEntry>& groupTree() const;
    /// Other pages in place of those so far.
    void setPages(std::unique_ptr<PageSource> source);
    /// The number of pages is known now; pages that tell it are made again.
    void complete() { m_kept.clear(); }

    /// The rows of the details, for exports; null when the report reads none.
    const RowSource* rows() const { return m_rows.get(); }
    const SheetHeading& rowsHeading() const { return m_rowsHeading; }
    void setRows(std::shared_ptr<const RowSource> rows, SheetHeading heading);

  private:
    struct Kept {
        int index;
        std::shared_ptr<const Page> page;
    };
    std::unique_ptr<PageSource> m_source;
    QString m_title;
    Length m_width, m_height;
    std::shared_ptr<const RowSource> m_rows;
    SheetHeading m_rowsHeading;
    mutable std::list<Kept> m_kept; ///< last used first
};

} // namespace report
