#pragma once

#include "platform/report/Page.h"
#include "platform/report/SheetHeading.h"

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
};

/// A report laid out. Holds its rows but only the pages last looked at, so a long report costs what its rows
/// cost.
class PageDocument {
  public:
    PageDocument(std::unique_ptr<PageSource> source, QString title, Length width, Length height,
                 std::vector<TreeEntry> tree = {});
    ~PageDocument();

    const QString& title() const { return m_title; }
    Length pageWidth() const { return m_width; }
    Length pageHeight() const { return m_height; }
    int pageCount() const { return m_source->pageCount(); }
    /// `index` from 0; raises 9 beyond the last page.
    std::shared_ptr<const Page> page(int index) const;
    const std::vector<TreeEntry>& groupTree() const { return m_tree; }

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
    std::vector<TreeEntry> m_tree;
    std::shared_ptr<const RowSource> m_rows;
    SheetHeading m_rowsHeading;
    mutable std::list<Kept> m_kept; ///< last used first
};

} // namespace report
