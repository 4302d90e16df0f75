#include "platform/report/viewer/GroupTree.h"

#include "platform/controls/look/Look.h"
#include "platform/controls/screen/Connect.h"

#include <QSignalBlocker>
#include <QTreeWidgetItemIterator>

#include <algorithm>

namespace report {
namespace {

enum TreeRole { PageRole = Qt::UserRole, HeightRole };

} // namespace

GroupTree::GroupTree(QWidget* parent) : QTreeWidget(parent) {
    setHeaderHidden(true);
    setAccessibleName(tr("Groups of the report"));
    setMinimumWidth(controls::look::scaled(200));
    controls::on(
        this, &QTreeWidget::currentItemChanged, this, [this](QTreeWidgetItem* item, QTreeWidgetItem*) {
            if (item)
                Q_EMIT picked(item->data(0, PageRole).toInt(), Length{item->data(0, HeightRole).toInt()});
        });
}

void GroupTree::fill(const std::vector<TreeEntry>& entries) {
    const QSignalBlocker blocker(this);
    if (m_filled > entries.size()) // a run that began anew
        empty();
    QList<QTreeWidgetItem*> top;
    for (; m_filled < entries.size(); ++m_filled) {
        const TreeEntry& entry = entries[m_filled];
        auto* item = new QTreeWidgetItem({entry.text.isEmpty() ? tr("(blank)") : entry.text});
        item->setData(0, PageRole, entry.page);
        item->setData(0, HeightRole, entry.y.hundredths);
        m_path.resize(std::min(m_path.size(), std::size_t(entry.level)));
        if (m_path.empty())
            top << item;
        else
            m_path.back()->addChild(item);
        m_path.push_back(item);
    }
    addTopLevelItems(top);
}

void GroupTree::empty() {
    clear();
    m_path.clear();
    m_filled = 0;
}

void GroupTree::begin(int page) {
    const QSignalBlocker blocker(this);
    setCurrentItem(topLevelItem(0));
    for (QTreeWidgetItemIterator item(this); *item; ++item) {
        if ((*item)->data(0, PageRole).toInt() <= page)
            setCurrentItem(*item);
    }
    setFocus(Qt::ShortcutFocusReason);
}

} // namespace report
