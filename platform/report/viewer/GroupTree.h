#pragma once

#include "platform/report/layout/PageDocument.h"

#include <QTreeWidget>

namespace report {

/// The groups of a report, each with the place where it begins.
class GroupTree : public QTreeWidget {
    Q_OBJECT

  public:
    explicit GroupTree(QWidget* parent = nullptr);

    /// Adds the groups that have come since the last time; begins anew where there are fewer than that.
    void fill(const std::vector<TreeEntry>& entries);
    void empty();
    /// Takes the keyboard, standing at the last group that begins up to the page (from 0); tells nobody.
    void begin(int page);

  Q_SIGNALS:
    /// The place that the user went to.
    void picked(int page, report::Length y);

  private:
    std::vector<QTreeWidgetItem*> m_path; ///< the last entry and what it stands in
    std::size_t m_filled = 0;
};

} // namespace report
