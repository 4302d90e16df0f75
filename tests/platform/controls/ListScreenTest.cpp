#include "platform/controls/list/ListScreen.h"

#include "platform/controls/grid/FlexGrid.h"
#include "platform/controls/look/Look.h"
#include "tests/support/core/ScriptedProvider.h"
#include "tests/support/screens/Driver.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QVBoxLayout>

#include <gtest/gtest.h>

namespace controls {

namespace {

constexpr int widths[] = {100, 900, 2000, 500};

/// The lists of the house's kind, with as many rows as the test wants.
class Codes : public ListScreen {
  public:
    explicit Codes(const ListVariant& variant, bool withSearch = true) : ListScreen(nullptr) {
        auto* column = new QVBoxLayout(this);
        const auto add = [&](auto* widget) {
            column->addWidget(widget);
            return widget;
        };
        txtSearch = withSearch ? new QLineEdit(this) : nullptr;
        auto* row = new QHBoxLayout;
        column->addLayout(row);
        if (txtSearch)
            row->addWidget(txtSearch);
        cmbSearch = add(new QComboBox(this));
        cmbSearch->addItems({QStringLiteral("Code"), QStringLiteral("Name")});
        grid = add(new FlexGrid(this));
        cmdFind = add(new QPushButton(QStringLiteral("&Find"), this));
        cmdSelect = add(new QPushButton(QStringLiteral("&Select"), this));
        cmdClose = add(new QPushButton(QStringLiteral("&Close"), this));
        lblHits = add(new QLabel(this));
        resize(600, 400);
        setUpList({.grid = grid,
                   .search = txtSearch,
                   .searchBy = cmbSearch,
                   .find = cmdFind,
                   .select = cmdSelect,
                   .close = cmdClose,
                   .hits = lblHits},
                  variant);
    }

    void search() override {
        ++searches;
        auto provider = std::make_unique<tests::ScriptedProvider>();
        std::vector<std::vector<base::Value>> rows;
        for (int i = 1; i <= found; ++i)
            rows.push_back({QStringLiteral("C%1").arg(i), QStringLiteral("name %1").arg(i)});
        provider->answer(QStringLiteral("list"), tests::ScriptedProvider::rowsOf("Code,Name", rows));
        ado::Connection connection;
        connection.Open(std::move(provider), QStringLiteral("test"));
        ado::Recordset result;
        result.Open(ado::sql("list"), connection);
        EXPECT_EQ(bindRows(result), found);
        EXPECT_EQ(result.State(), ado::Recordset::adStateClosed);
    }
    void rowTaken() override {
        taken += cell(1);
        if (whenTaken)
            whenTaken();
    }

    using ListScreen::currentCells;
    using ListScreen::hits;
    using ListScreen::setHits;

    QLineEdit* txtSearch;
    QComboBox* cmbSearch;
    FlexGrid* grid;
    QPushButton* cmdFind;
    QPushButton* cmdSelect;
    QPushButton* cmdClose;
    QLabel* lblHits;
    int found = 3;
    int searches = 0;
    QStringList taken;
    std::function<void()> whenTaken;
};

constexpr ListVariant usual = {.format = " |Code|Name",
                               .widths = widths,
                               .one = "code",
                               .many = "codes",
                               .emptyText = "No code answers to this text.",
                               .most = 5};

class ListScreenTest : public testing::Test {
  protected:
    void open(const ListVariant& variant = usual, bool withSearch = true) {
        m_variant = variant;
        screen = std::make_unique<Codes>(m_variant, withSearch);
        screen->Show();
        screen->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(screen.get()));
    }
    void type(const char* keys) { tests::keysToFocus(*screen, QString::fromLatin1(keys)); }
    void find(int rows) {
        screen->found = rows;
        screen->txtSearch->setFocus();
        type("<Enter>");
    }
    void doubleClick(int row) {
        QTest::mouseDClick(screen->grid->viewport(), Qt::LeftButton, {},
                           screen->grid->visualRect(screen->grid->model()->index(row - 1, 0)).center());
    }
    QString told() { return screen->lblHits->text(); }

    std::unique_ptr<Codes> screen;

  private:
    ListVariant m_variant;
};

} // namespace

TEST_F(ListScreenTest, OpensLaidOutAndEmptyWithTheSearchBoxFocused) {
    open();
    EXPECT_EQ(screen->grid->TextMatrix(0, 1), "Code");
    EXPECT_EQ(screen->grid->Cols(), 4) << "widths beyond the headers make columns";
    EXPECT_EQ(screen->grid->ColWidth(2), 2000);
    EXPECT_EQ(screen->grid->ColWidth(3), 500);
    EXPECT_TRUE(screen->txtSearch->hasFocus());
    EXPECT_FALSE(screen->cmdSelect->isEnabled());
    EXPECT_EQ(told(), "");
    EXPECT_EQ(screen->searches, 0) << "when it reads is the leaf's own";
}

TEST_F(ListScreenTest, EnterReadsAndStaysInTheSearchBox) {
    open();
    type("ab'<Enter>");
    EXPECT_EQ(screen->txtSearch->text(), "AB`");
    EXPECT_EQ(screen->txtSearch->selectedText(), "AB`");
    EXPECT_TRUE(screen->txtSearch->hasFocus());
    EXPECT_EQ(screen->hits(), 3);
    EXPECT_TRUE(screen->cmdSelect->isEnabled());
    EXPECT_EQ(screen->taken, QStringList());
    tests::click(*screen->cmdFind);
    EXPECT_EQ(screen->searches, 2);
    EXPECT_TRUE(screen->txtSearch->hasFocus());
}

TEST_F(ListScreenTest, SaysHowManyThereAre) {
    open();
    find(1);
    EXPECT_EQ(told(), "1 code");
    find(4);
    EXPECT_EQ(told(), "4 codes");
    EXPECT_EQ(screen->lblHits->property("kind"), "help");
    find(5);
    EXPECT_EQ(told(), "Only the first 5 are shown: type more of the name.");
    EXPECT_EQ(screen->lblHits->property("kind"), "warn");
    find(0);
    EXPECT_EQ(told(), "No code found.");
    EXPECT_EQ(screen->lblHits->property("kind"), "help");
    EXPECT_TRUE(screen->grid->showsEmptyText());
    EXPECT_FALSE(screen->cmdSelect->isEnabled());
}

TEST_F(ListScreenTest, ASearchThatFindsNothingMayKeepTheRows) {
    ListVariant keeping = usual;
    keeping.nothingFound = ListVariant::NothingFound::KeepsRows;
    open(keeping);
    find(0);
    EXPECT_EQ(told(), "No code found.");
    find(2);
    find(0);
    EXPECT_EQ(told(), "No code found. The list is that of the search before.");
    EXPECT_EQ(screen->hits(), 2);
    EXPECT_EQ(screen->grid->TextMatrix(2, 1), "C2");
    EXPECT_TRUE(screen->cmdSelect->isEnabled());
    type("<Down><Down><Enter>");
    EXPECT_EQ(screen->taken, QStringList("C2"));
}

TEST_F(ListScreenTest, ACommandOnceEnabledMayStaySo) {
    ListVariant once = usual;
    once.selectable = ListVariant::Selectable::OnceFound;
    open(once);
    find(0);
    EXPECT_FALSE(screen->cmdSelect->isEnabled());
    find(1);
    find(0);
    EXPECT_TRUE(screen->cmdSelect->isEnabled());
    once.selectable = ListVariant::Selectable::AsItStands;
    open(once);
    EXPECT_TRUE(screen->cmdSelect->isEnabled());
    find(0);
    EXPECT_TRUE(screen->cmdSelect->isEnabled());
    screen->cmdSelect->setEnabled(false);
    find(1);
    EXPECT_FALSE(screen->cmdSelect->isEnabled());
}

TEST_F(ListScreenTest, BeforeTheFirstSearchItSaysWhatEnterDoes) {
    open();
    EXPECT_TRUE(screen->grid->showsEmptyText());
    const QImage before = screen->grid->grab().toImage();
    find(0);
    screen->txtSearch->setFocus();
    EXPECT_TRUE(screen->grid->showsEmptyText());
    EXPECT_NE(screen->grid->grab().toImage(), before) << "another sentence";
    find(1);
    EXPECT_FALSE(screen->grid->showsEmptyText());
    open(usual, false);
    EXPECT_FALSE(screen->grid->showsEmptyText()) << "nothing is typed there";
}

TEST_F(ListScreenTest, TheSearchBoxHasALetterOfItsOwn) {
    open();
    screen->grid->setFocus();
    type("<Alt+E>"); // S, C and F are the commands'
    EXPECT_TRUE(screen->txtSearch->hasFocus());
}

TEST_F(ListScreenTest, BehindTheCommandTheFocusIsOnTheListAgain) {
    open();
    find(3);
    type("<Alt+S>");
    EXPECT_EQ(screen->taken, QStringList("C1"));
    EXPECT_TRUE(screen->grid->hasFocus());
    screen->whenTaken = [&] { screen->txtSearch->setFocus(); };
    type("<Alt+S>");
    EXPECT_TRUE(screen->txtSearch->hasFocus()) << "unless what it did went elsewhere";
}

TEST_F(ListScreenTest, TheRowItStandsOnIsSeenFromTheSearchBox) {
    open();
    find(3);
    ASSERT_TRUE(screen->txtSearch->hasFocus());
    screen->grid->setCurrentCell(2, 1);
    const QImage image = screen->grid->viewport()->grab().toImage();
    const auto barIn = [&](int row) {
        const QRect cell = screen->grid->visualRect(screen->grid->model()->index(row, 0));
        return image.pixelColor(cell.left() + 1, cell.center().y()) == look::accent;
    };
    EXPECT_FALSE(barIn(0));
    EXPECT_TRUE(barIn(1));
}

TEST_F(ListScreenTest, ARowIsTakenByEnterDoubleClickAndCommand) {
    open();
    find(3);
    type("<Down><Down><Enter>");
    doubleClick(3);
    tests::click(*screen->cmdSelect);
    EXPECT_EQ(screen->taken, QStringList({"C2", "C3", "C3"}));
    EXPECT_EQ(screen->currentCells(), QStringList({"", "C3", "name 3", ""}));
}

TEST_F(ListScreenTest, AnEmptyListGivesNoRow) {
    open();
    find(0);
    type("<Down>");
    EXPECT_TRUE(screen->txtSearch->hasFocus());
    doubleClick(1);
    screen->grid->setFocus();
    type("<Enter>");
    EXPECT_EQ(screen->taken, QStringList());
}

TEST_F(ListScreenTest, AnEmptyRowMayBeTakenToo) {
    ListVariant blank = usual;
    blank.emptyRow = ListVariant::EmptyRow::NotEnter;
    blank.selectable = ListVariant::Selectable::AsItStands;
    open(blank);
    doubleClick(1);
    tests::click(*screen->cmdSelect);
    screen->grid->setFocus();
    type("<Enter>");
    EXPECT_EQ(screen->taken, QStringList({"", ""}));
    blank.emptyRow = ListVariant::EmptyRow::Anything;
    open(blank);
    screen->grid->setFocus();
    type("<Enter>");
    EXPECT_EQ(screen->taken, QStringList(""));
}

TEST_F(ListScreenTest, ARowThatIsBeingDealtWithIsNotTakenAgain) {
    open();
    find(1);
    screen->whenTaken = [this] { screen->cmdSelect->click(); };
    screen->cmdSelect->click();
    EXPECT_EQ(screen->taken, QStringList("C1"));
    screen->whenTaken = nullptr;
    screen->cmdSelect->click();
    EXPECT_EQ(screen->taken, QStringList({"C1", "C1"}));
}

TEST_F(ListScreenTest, KeysGoBetweenTheBoxAndTheList) {
    open();
    find(3);
    type("<Down>");
    EXPECT_TRUE(screen->grid->hasFocus());
    EXPECT_EQ(screen->grid->Row(), 1);
    type("<Down><Up>");
    EXPECT_TRUE(screen->grid->hasFocus());
    type("<Up>");
    EXPECT_TRUE(screen->txtSearch->hasFocus());
    type("old<Down>n");
    EXPECT_TRUE(screen->txtSearch->hasFocus());
    EXPECT_EQ(screen->txtSearch->text(), "N");
    type("<Down><Backspace>");
    EXPECT_TRUE(screen->txtSearch->hasFocus());
    EXPECT_EQ(screen->txtSearch->text(), "");
    type("x<Down>");
    QKeyEvent altGr(QEvent::KeyPress, Qt::Key_At, Qt::ControlModifier | Qt::AltModifier, "@");
    QCoreApplication::sendEvent(screen->grid, &altGr);
    EXPECT_EQ(screen->txtSearch->text(), "@");
    type("<Down>");
    QKeyEvent command(QEvent::KeyPress, Qt::Key_X, Qt::AltModifier, "x");
    QCoreApplication::sendEvent(screen->grid, &command);
    EXPECT_TRUE(screen->grid->hasFocus());
}

TEST_F(ListScreenTest, AnEnterHeldInTheBoxReadsOnce) {
    open();
    type("A<Enter>");
    QKeyEvent held(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, "\r", true);
    QCoreApplication::sendEvent(screen->txtSearch, &held);
    EXPECT_EQ(screen->searches, 1);
}

TEST_F(ListScreenTest, AChoiceOfTheSearchGoesBackToTheBox) {
    open();
    screen->txtSearch->setText("ABC");
    screen->cmbSearch->setFocus();
    type("<Down>");
    EXPECT_TRUE(screen->txtSearch->hasFocus());
    EXPECT_EQ(screen->txtSearch->selectedText(), "ABC");
}

TEST_F(ListScreenTest, AListWithoutASearchBoxHasTheFocusItself) {
    open(usual, false);
    EXPECT_TRUE(screen->grid->hasFocus());
    screen->search();
    type("<Up>x<Down><Enter>");
    EXPECT_TRUE(screen->grid->hasFocus());
    EXPECT_EQ(screen->taken, QStringList("C2"));
}

TEST_F(ListScreenTest, RowsMayBeFilledByTheLeaf) {
    open();
    screen->grid->setRows(3);
    screen->grid->setTextMatrix(1, 1, "A");
    screen->setHits(2);
    EXPECT_EQ(told(), "2 codes");
    type("<Down><Enter>");
    EXPECT_EQ(screen->taken, QStringList("A"));
}

TEST_F(ListScreenTest, CloseAndEscapeLeave) {
    open();
    tests::click(*screen->cmdClose);
    EXPECT_TRUE(screen->isUnloaded());
    open();
    type("<Esc>");
    EXPECT_TRUE(screen->isUnloaded());
}

} // namespace controls
