#include "platform/controls/list/ListView.h"

#include "platform/base/Error.h"
#include "platform/controls/list/ListScreen.h"
#include "platform/controls/look/Look.h"
#include "platform/controls/screen/ScreenContents.h"
#include "tests/support/screens/Driver.h"

#include <QHeaderView>
#include <QHelpEvent>
#include <QImage>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QToolTip>
#include <QVBoxLayout>

#include <gtest/gtest.h>

namespace controls {

namespace {

constexpr ListColumn columns[] = {
    {"Name", 3000}, {"Status", 1500}, {"Amount", 1500, Qt::AlignRight}, {"Code", 900}};

int errorOf(const std::function<void()>& call) {
    try {
        call();
    } catch (const base::RunTimeError& error) {
        return error.number();
    }
    return 0;
}

/// A list below a field, in a window of its own.
class ListViewTest : public testing::Test {
  protected:
    ListViewTest() {
        auto* column = new QVBoxLayout(&window);
        field = new QLineEdit(&window);
        view = new ListView(&window);
        view->setObjectName(QStringLiteral("lvw"));
        column->addWidget(field);
        column->addWidget(view);
        window.resize(600, 300);
        view->setColumns(columns);
    }
    void show() {
        window.show();
        window.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    }
    void fill(int items = 3) {
        for (int i = 1; i <= items; ++i)
            view->AddItem(QStringLiteral("K%1").arg(i), QStringLiteral("name %1").arg(i), "pending")
                .setSubItem(2, QStringLiteral("%1.00").arg(i));
    }
    QPoint middleOf(int index) { return view->visualItemRect(&view->Item(index)).center(); }
    QString selected() { return view->SelectedItem() ? view->SelectedItem()->key() : QString(); }

    QWidget window;
    QLineEdit* field;
    ListView* view;
};

} // namespace

TEST_F(ListViewTest, HasItsColumns) {
    ASSERT_EQ(view->columnCount(), 4);
    EXPECT_EQ(view->headerItem()->text(2), "Amount");
    EXPECT_EQ(view->columnWidth(0), 200);
    EXPECT_EQ(view->headerItem()->textAlignment(2), int(Qt::AlignRight | Qt::AlignVCenter));
    fill(1);
    EXPECT_EQ(view->Item(1).textAlignment(2), int(Qt::AlignRight | Qt::AlignVCenter));
    view->setColumns(std::span(columns, 2));
    EXPECT_EQ(view->Count(), 0);
    EXPECT_EQ(view->columnCount(), 2);
}

TEST_F(ListViewTest, ItemsAreFoundByKeyAndNumber) {
    fill();
    EXPECT_EQ(view->Count(), 3);
    EXPECT_EQ(view->Item(2).key(), "K2");
    EXPECT_EQ(view->find("K3")->Text(), "name 3");
    EXPECT_EQ(view->find("K4"), nullptr);
    EXPECT_EQ(errorOf([&] { (void)view->Item(0); }), 9);
    EXPECT_EQ(errorOf([&] { (void)view->Item(4); }), 9);
    EXPECT_EQ(errorOf([&] { view->AddItem("K1", "again"); }), 35602);
    EXPECT_EQ(view->Count(), 3);
    view->AddItem({}, "without");
    view->AddItem({}, "a key");
    EXPECT_EQ(view->Count(), 5);
    view->Clear();
    EXPECT_EQ(view->Count(), 0);
}

TEST_F(ListViewTest, SubItemsCountFromOne) {
    fill(1);
    ListItem& item = view->Item(1);
    item.setSubItem(1, "PAID");
    EXPECT_EQ(item.SubItem(1), "PAID");
    EXPECT_EQ(item.SubItem(2), "1.00");
    EXPECT_EQ(item.SubItem(3), "");
    EXPECT_EQ(errorOf([&] { (void)item.SubItem(0); }), 9);
    EXPECT_EQ(errorOf([&] { item.setSubItem(4, "x"); }), 9);
}

TEST_F(ListViewTest, EachIconHasADrawingAColourAndAWord) {
    QStringList words;
    std::vector<QImage> drawings;
    for (const char* name : {"paid", "pending", "revoke", "clear", "open"}) {
        ListItem& item = view->AddItem({}, "text", QString::fromLatin1(name));
        EXPECT_EQ(item.Icon(), name);
        words += item.toolTip(0);
        EXPECT_EQ(item.data(0, Qt::AccessibleDescriptionRole).toString(), item.toolTip(0));
        QImage drawn = look::icon(QString::fromLatin1(name), look::ink).pixmap(32, 32).toImage();
        ASSERT_FALSE(drawn.isNull()) << name;
        for (const QImage& other : drawings)
            EXPECT_NE(drawn, other) << name << " must not differ by its colour alone";
        drawings.push_back(drawn);
    }
    EXPECT_EQ(words, QStringList({"Paid", "Pending", "Revoked", "Cleared", "Not Cleared"}));
    ListItem& item = view->Item(1);
    const QImage paid = item.QTreeWidgetItem::icon(0).pixmap(16, 16).toImage();
    item.setIcon("revoke");
    EXPECT_NE(item.QTreeWidgetItem::icon(0).pixmap(16, 16).toImage(), paid);
    EXPECT_EQ(item.toolTip(0), "Revoked");
    item.setIcon({});
    EXPECT_TRUE(item.QTreeWidgetItem::icon(0).isNull());
    EXPECT_EQ(item.toolTip(0), "");
}

TEST_F(ListViewTest, FilledBeforeItIsSeenItsRowsAreThoseOfTheLook) {
    fill();
    view->select(view->Item(2));
    show();
    EXPECT_GE(view->visualItemRect(&view->Item(1)).height(), look::scaled(25));
}

TEST_F(ListViewTest, NothingIsSelectedUntilSomebodyChooses) {
    show();
    fill();
    EXPECT_EQ(view->SelectedItem(), nullptr);
    view->setFocus();
    EXPECT_EQ(view->SelectedItem(), nullptr) << "the program gave it the focus";
    field->setFocus();
    tests::keysToFocus(window, "<Tab>");
    EXPECT_EQ(selected(), "K1");
    tests::keysToFocus(window, "<Down>");
    EXPECT_EQ(selected(), "K2");
    QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, middleOf(3));
    EXPECT_EQ(selected(), "K3");
    tests::keysToFocus(window, "<Shift+Tab><Tab>");
    EXPECT_EQ(selected(), "K3") << "a choice stays";
    view->select(view->Item(1));
    EXPECT_EQ(selected(), "K1");
    view->Clear();
    EXPECT_EQ(view->SelectedItem(), nullptr);
}

TEST_F(ListViewTest, EnterAndDoubleClickAreTold) {
    show();
    fill();
    int entered = 0;
    int doubled = 0;
    on(view, &ListView::EnterPressed, view, [&] { ++entered; });
    on(view, &ListView::DblClick, view, [&] { ++doubled; });
    tests::keys(*view, "<Down><Enter><KeypadEnter>");
    EXPECT_EQ(entered, 2);
    QKeyEvent held(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, "\r", true);
    QCoreApplication::sendEvent(view, &held);
    EXPECT_EQ(entered, 2);
    QTest::mouseDClick(view->viewport(), Qt::LeftButton, {}, middleOf(2));
    EXPECT_EQ(doubled, 1);
    EXPECT_EQ(selected(), "K2");
    QTest::mouseDClick(view->viewport(), Qt::RightButton, {}, middleOf(2));
    QTest::mouseDClick(view->viewport(), Qt::LeftButton, {}, view->viewport()->rect().bottomRight());
    EXPECT_EQ(doubled, 1);
}

TEST_F(ListViewTest, EveryKeyIsToldAndTypingDoesNotSearch) {
    show();
    fill();
    QList<int> told;
    on(view, &ListView::KeyDown, view, [&](QKeyEvent* event) {
        told << event->key();
        if (event->key() == Qt::Key_End)
            event->accept();
    });
    view->select(view->Item(2));
    tests::keys(*view, "n<End>");
    EXPECT_EQ(told, QList<int>({Qt::Key_N, Qt::Key_End}));
    EXPECT_EQ(selected(), "K2");
}

TEST_F(ListViewTest, AnEmptyListSaysSo) {
    const QImage before = view->grab().toImage();
    view->setEmptyText("Nothing is waiting.");
    const QImage after = view->grab().toImage();
    EXPECT_NE(before, after);
    view->AddItem({}, {});
    view->Item(1).setHidden(true);
    EXPECT_EQ(view->grab().toImage(), before);
}

TEST_F(ListViewTest, StandsInTheCopyOfAScreen) {
    fill(2);
    EXPECT_EQ(contentsAsText(window), "lvw: name 1 | 1.00\nlvw: name 2 | 2.00");
    EXPECT_EQ(typedAsText(window), "");
}

TEST_F(ListViewTest, AnAmountIsNeverCutAndAnotherTextStandsWholeInTheToolTip) {
    const QString amount = QStringLiteral("1,300,000,000,000.00");
    const QString name = QStringLiteral("MONTEFALCO-SANTIAGO, DIVINA GRACIA DE LA PAGUIO");
    ListItem& item = view->AddItem("K1", name, "pending");
    item.setSubItem(2, amount);
    item.setSubItem(1, QStringLiteral("PENDING"));
    show();
    EXPECT_GE(view->columnWidth(2), view->fontMetrics().horizontalAdvance(amount) + 8);
    const auto toolTipOf = [&](int column) {
        QToolTip::showText(QPoint(), QStringLiteral("of another")); // hiding takes its time
        const QModelIndex cell = view->model()->index(0, column);
        const QPoint at = view->visualRect(cell).center();
        QHelpEvent asks(QEvent::ToolTip, at, view->viewport()->mapToGlobal(at));
        QCoreApplication::sendEvent(view->viewport(), &asks);
        return QToolTip::text();
    };
    EXPECT_EQ(toolTipOf(0), name + QStringLiteral("\nPending"));
    EXPECT_EQ(toolTipOf(1), "of another");
    EXPECT_EQ(toolTipOf(2), "of another");
}

TEST_F(ListViewTest, TheChosenItemIsSeenFromTheSearchBox) {
    fill();
    show();
    view->select(view->Item(2));
    field->setFocus();
    const QImage image = view->viewport()->grab().toImage();
    const auto barIn = [&](int index) { return image.pixelColor(1, middleOf(index).y()) == look::accent; };
    EXPECT_FALSE(barIn(1));
    EXPECT_TRUE(barIn(2));
}

// ---- under a list screen

namespace {

constexpr ListVariant notices = {.one = "notice", .many = "notices", .emptyText = "No notice is open."};

class Notices : public ListScreen {
  public:
    Notices() : ListScreen(nullptr) {
        auto* column = new QVBoxLayout(this);
        txtSearch = new QLineEdit(this);
        view = new ListView(this);
        cmdSelect = new QPushButton(QStringLiteral("&Select"), this);
        lblHits = new QLabel(this);
        for (QWidget* widget : {static_cast<QWidget*>(txtSearch), static_cast<QWidget*>(view),
                                static_cast<QWidget*>(cmdSelect), static_cast<QWidget*>(lblHits)})
            column->addWidget(widget);
        view->setColumns(columns);
        setUpList({.view = view, .search = txtSearch, .select = cmdSelect, .hits = lblHits}, notices);
    }
    void search() override {
        view->Clear();
        for (int i = 1; i <= found; ++i)
            view->AddItem(QStringLiteral("K%1").arg(i), QStringLiteral("name %1").arg(i));
        setHits(view->Count());
    }
    void rowTaken() override { taken += view->SelectedItem() ? view->SelectedItem()->key() : QString(); }

    QLineEdit* txtSearch;
    ListView* view;
    QPushButton* cmdSelect;
    QLabel* lblHits;
    int found = 2;
    QStringList taken;
};

} // namespace

TEST(ListViewScreen, HasTheKeysOfAllLists) {
    Notices screen;
    screen.Show();
    screen.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&screen));
    EXPECT_TRUE(screen.txtSearch->hasFocus());
    const auto type = [&](const char* keys) { tests::keysToFocus(screen, QString::fromLatin1(keys)); };
    type("<Enter>");
    EXPECT_EQ(screen.lblHits->text(), "2 notices");
    tests::click(*screen.cmdSelect);
    EXPECT_EQ(screen.taken, QStringList("")) << "none was chosen yet";
    screen.txtSearch->setFocus();
    type("<Down>");
    EXPECT_TRUE(screen.view->hasFocus());
    type("<Enter><Down><Enter>");
    EXPECT_EQ(screen.taken, QStringList({"", "K1", "K2"}));
    type("<Up><Up>");
    EXPECT_TRUE(screen.txtSearch->hasFocus());
    type("<Down>n");
    EXPECT_EQ(screen.txtSearch->text(), "N");
    screen.found = 0;
    type("<Enter><Down>");
    EXPECT_TRUE(screen.txtSearch->hasFocus());
    EXPECT_EQ(screen.lblHits->text(), "No notice found.");
    EXPECT_FALSE(screen.cmdSelect->isEnabled());
}

} // namespace controls
