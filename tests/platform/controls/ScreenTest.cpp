#include "platform/controls/screen/Screen.h"
#include "platform/controls/grid/FlexGrid.h"
#include "platform/controls/look/HeaderBand.h"
#include "platform/controls/screen/ScreenContents.h"
#include "platform/controls/screen/TestDoors.h"
#include "tests/support/screens/Driver.h"
#include "tests/support/screens/ErrorRecorder.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QTest>
#include <QVBoxLayout>

#include <gtest/gtest.h>

namespace controls {

namespace {

class Patient : public Screen {
  public:
    Patient() {
        setObjectName(QStringLiteral("Patient"));
        auto* column = new QVBoxLayout(this);
        txtName = new QLineEdit(this);
        txtName->setObjectName(QStringLiteral("txtName"));
        column->addWidget(txtName);
        cmdSave = new QPushButton(QStringLiteral("&Save"), this);
        cmdSave->setObjectName(QStringLiteral("cmdSave"));
        column->addWidget(cmdSave);
        on(cmdSave, &QPushButton::clicked, this, [this] { ++saved; });
        ++made;
    }
    ~Patient() override { ++gone; }

    using Screen::setEscapeCloses;

    QLineEdit* txtName;
    QPushButton* cmdSave;
    int saved = 0;
    bool refuse = false;
    QStringList calls;
    std::function<void()> whenLoaded;
    static inline int made = 0;
    static inline int gone = 0;

  protected:
    void Form_Load() override {
        calls << QStringLiteral("load");
        if (whenLoaded)
            whenLoaded();
    }
    void Form_QueryUnload(bool& cancel) override {
        calls << QStringLiteral("query");
        cancel = refuse;
    }
    void Form_Unload() override { calls << QStringLiteral("unload"); }
};

} // namespace

TEST(Screen, LoadsOnceAndUnloadsOnce) {
    Patient screen;
    tests::runModal([&] { screen.ShowModal(); }, {[&](QWidget& window) {
                        EXPECT_EQ(&window, &screen);
                        EXPECT_TRUE(screen.isLoaded());
                        EXPECT_EQ(Screen::openScreens(), std::vector<Screen*>{&screen});
                        EXPECT_TRUE(screen.Unload());
                    }});
    EXPECT_TRUE(screen.isUnloaded());
    EXPECT_TRUE(screen.Unload());
    EXPECT_EQ(screen.calls, QStringList({"load", "query", "unload"}));
    EXPECT_TRUE(Screen::openScreens().empty());
}

TEST(Screen, TheKeysGoBackToTheScreenBelowWhereTheDesktopGivesThemToNobody) {
    Patient below;
    Patient above;
    below.Show();
    tests::runModal([&] { above.ShowModal(); }, {[&](QWidget&) {
                        above.Unload();
                        QApplication::setActiveWindow(nullptr);
                    }});
    QCoreApplication::processEvents();
    EXPECT_TRUE(below.isActiveWindow());
}

TEST(Screen, ACallerMayLoadItFirst) {
    Patient screen;
    screen.load();
    screen.txtName->setText(QStringLiteral("SANTOS"));
    tests::runModal([&] { screen.ShowModal(); }, {[&](QWidget&) { screen.Unload(); }});
    EXPECT_EQ(screen.calls.count(QStringLiteral("load")), 1);
    EXPECT_EQ(screen.txtName->text(), QStringLiteral("SANTOS"));
}

TEST(Screen, ShownTwiceIsAnError) {
    Patient screen;
    int number = 0;
    tests::runModal([&] { screen.ShowModal(); }, {[&](QWidget&) {
                        try {
                            screen.ShowModal();
                        } catch (const base::RunTimeError& error) {
                            number = error.number();
                        }
                        screen.Unload();
                    }});
    EXPECT_EQ(number, 400);
    try {
        screen.ShowModal();
        FAIL() << "an unloaded screen is over";
    } catch (const base::RunTimeError& error) {
        EXPECT_EQ(error.number(), 364);
    }
}

TEST(Screen, ARefusedUnloadKeepsItOpen) {
    Patient screen;
    screen.refuse = true;
    tests::runModal([&] { screen.ShowModal(); }, {[&](QWidget&) {
                                                      EXPECT_FALSE(screen.Unload());
                                                      EXPECT_FALSE(screen.close());
                                                      EXPECT_TRUE(screen.isVisible());
                                                      screen.refuse = false;
                                                  },
                                                  [&](QWidget&) { EXPECT_TRUE(screen.close()); }});
    EXPECT_EQ(screen.calls, QStringList({"load", "query", "query", "query", "unload"}));
}

TEST(Screen, AScreenThatUnloadsWhileItLoadsIsNeverSeen) {
    Patient screen;
    screen.whenLoaded = [&] { screen.Unload(); };
    screen.ShowModal();
    EXPECT_FALSE(screen.isVisible());
    EXPECT_TRUE(screen.isUnloaded());
}

TEST(Screen, AnErrorWhileItLoadsReachesTheOpener) {
    Patient screen;
    screen.whenLoaded = [] { throw base::RunTimeError(base::errors::objectNotSet); };
    EXPECT_THROW(screen.ShowModal(), base::RunTimeError);
    EXPECT_FALSE(screen.isVisible());
}

TEST(Screen, HiddenItKeepsItsControlsAndIsShownAgainWithoutLoading) {
    Patient screen;
    tests::runModal([&] { screen.ShowModal(); }, {[&](QWidget&) {
                        tests::keys(*screen.txtName, QStringLiteral("abc"));
                        screen.hideScreen();
                    }});
    EXPECT_FALSE(screen.isUnloaded());
    EXPECT_EQ(screen.txtName->text(), QStringLiteral("abc"));
    tests::runModal([&] { screen.ShowModal(); }, {[&](QWidget&) { screen.Unload(); }});
    EXPECT_EQ(screen.calls.count(QStringLiteral("load")), 1);
}

TEST(Screen, EnterPressesOnlyAButtonThatHasTheFocus) {
    Patient screen;
    screen.whenLoaded = [&] { screen.cmdSave->setDefault(true); };
    tests::runModal([&] { screen.ShowModal(); }, {[&](QWidget&) {
                        tests::keys(*screen.txtName, QStringLiteral("A<Enter><KeypadEnter>"));
                        EXPECT_EQ(screen.saved, 0);
                        tests::keys(*screen.cmdSave, QStringLiteral("<Enter>"));
                        EXPECT_EQ(screen.saved, 1);
                        screen.Unload();
                    }});
}

TEST(Screen, AnEnterThatIsHeldDownPressesNoButton) {
    Patient screen;
    tests::runModal([&] { screen.ShowModal(); }, {[&](QWidget&) {
                        screen.cmdSave->setFocus();
                        QKeyEvent held(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, QString(), true);
                        QCoreApplication::sendEvent(screen.cmdSave, &held);
                        EXPECT_EQ(screen.saved, 0);
                        tests::keys(*screen.cmdSave, QStringLiteral("<Enter>"));
                        EXPECT_EQ(screen.saved, 1);
                        screen.Unload();
                    }});
}

TEST(Screen, EscapeClosesOnlyWhereItIsSaid) {
    Patient screen;
    tests::runModal([&] { screen.ShowModal(); }, {[&](QWidget&) {
                        tests::keys(*screen.txtName, QStringLiteral("<Esc>"));
                        EXPECT_TRUE(screen.isVisible());
                        screen.setEscapeCloses(true);
                        tests::keys(*screen.txtName, QStringLiteral("<Esc>"));
                        EXPECT_FALSE(screen.isVisible());
                    }});
    EXPECT_TRUE(screen.isUnloaded());
}

TEST(Screen, AMnemonicPressesItsButton) {
    Patient screen;
    tests::runModal([&] { screen.ShowModal(); }, {[&](QWidget&) {
                        tests::keys(*screen.txtName, QStringLiteral("<Alt+S>"));
                        EXPECT_EQ(screen.saved, 1);
                        screen.Unload();
                    }});
}

TEST(Screen, DeletedWhileOpenItEndsItsCall) {
    auto* screen = new Patient;
    bool returned = false;
    tests::runModal(
        [&] {
            screen->ShowModal();
            returned = true;
        },
        {[&](QWidget&) { delete screen; }});
    EXPECT_TRUE(returned);
    EXPECT_TRUE(Screen::openScreens().empty());
}

TEST(Screen, ShowReturnsAtOnce) {
    Patient screen;
    screen.Show();
    EXPECT_TRUE(screen.isVisible());
    EXPECT_FALSE(screen.isModal());
    screen.Show();
    EXPECT_EQ(screen.calls.count(QStringLiteral("load")), 1);
    EXPECT_TRUE(screen.close());
    EXPECT_TRUE(screen.isUnloaded());
}

TEST(Screen, OpensOverItsOpenerAndFitsTheSmallestDesk) {
    Patient opener;
    opener.resize(900, 600);
    Patient inner;
    inner.resize(2000, 1500);
    tests::runModal([&] { opener.ShowModal(); },
                    {[&](QWidget&) {
                         inner.ShowModal();
                         opener.Unload();
                     },
                     [&](QWidget&) {
                         EXPECT_LE(inner.width(), 1366);
                         EXPECT_LE(inner.height(), 768);
                         EXPECT_GE(inner.x(), 0);
                         EXPECT_GE(inner.y(), 0);
                         EXPECT_EQ(Screen::openScreens(), (std::vector<Screen*>{&opener, &inner}));
                         inner.Unload();
                     }});
}

TEST(Screen, AFreshInstanceIsEmptyAndAClosedOneStaysReadable) {
    controls::release<Patient>();
    auto& first = SharedScreen<Patient>::fresh();
    first.txtName->setText(QStringLiteral("SANTOS"));
    tests::runModal([&] { first.ShowModal(); }, {[&](QWidget&) { first.Unload(); }});
    EXPECT_EQ(SharedScreen<Patient>::current().txtName->text(), QStringLiteral("SANTOS"));
    EXPECT_EQ(SharedScreen<Patient>::fresh().txtName->text(), QString());
    EXPECT_TRUE(SharedScreen<Patient>::exists());
    controls::release<Patient>();
    EXPECT_FALSE(SharedScreen<Patient>::exists());
}

TEST(Screen, ItsContentsAsTextLeaveOutPasswordsAndEmptyFields) {
    Patient screen;
    screen.txtName->setText(QStringLiteral("SANTOS"));
    auto* password = new QLineEdit(&screen);
    password->setObjectName(QStringLiteral("txtPassword"));
    password->setEchoMode(QLineEdit::Password);
    password->setText(QStringLiteral("secret"));
    auto* empty = new QLineEdit(&screen);
    empty->setObjectName(QStringLiteral("txtEmpty"));
    auto* remarks = new QPlainTextEdit(QStringLiteral("first\nsecond"), &screen);
    remarks->setObjectName(QStringLiteral("txtRemarks"));
    auto* kind = new QComboBox(&screen);
    kind->setObjectName(QStringLiteral("cboType"));
    kind->setEditable(true);
    kind->addItem(QStringLiteral("STAT"));
    auto* tick = new QCheckBox(&screen);
    tick->setObjectName(QStringLiteral("chkCurrent"));
    tick->setChecked(true);
    auto* grid = new FlexGrid(&screen);
    grid->setObjectName(QStringLiteral("grdPackage"));
    grid->setTextMatrix(0, 1, QStringLiteral("Code"));
    grid->setTextMatrix(1, 1, QStringLiteral("1012"));
    EXPECT_EQ(contentsAsText(screen),
              QStringLiteral("txtName: SANTOS\ntxtRemarks: first\nsecond\ncboType: STAT\nchkCurrent: 1\n"
                             "grdPackage: 1012"));
}

TEST(Screen, AListThatIsFilledWhileLoadingHasTheHousesRows) {
    Patient screen;
    auto* list = new QListWidget(&screen);
    screen.whenLoaded = [&] {
        list->addItems({QStringLiteral("SANTOS"), QStringLiteral("CRUZ")});
        list->setCurrentRow(1);
    };
    screen.load();
    const int height = list->visualItemRect(list->item(0)).height();
    screen.Show();
    EXPECT_GE(height, screen.fontMetrics().height() + 8);
    EXPECT_EQ(list->visualItemRect(list->item(0)).height(), height);
    screen.Unload();
}

TEST(Screen, OneThatTheDesktopHasNoRoomForIsScrolledByTheFocus) {
    Patient screen;
    std::vector<QLineEdit*> fields;
    for (int i = 0; i < 60; ++i) {
        fields.push_back(new QLineEdit(&screen));
        screen.layout()->addWidget(fields.back());
    }
    fields[1]->hide();
    auto* loose = new QLineEdit(&screen); // as the editor of a grid: in no layout
    loose->hide();
    fields[2]->setFocus();
    tests::runModal([&] { screen.ShowModal(); }, {[&](QWidget& window) {
                        EXPECT_EQ(window.focusWidget(), fields[2]) << "the first focus is the screen's own";
                        EXPECT_EQ(window.height(), 768 - 48);
                        EXPECT_LE(window.width(), 1366 - 16);
                        const auto isSeen = [&](const QWidget* field) {
                            const QPoint middle = field->mapTo(&window, field->rect().center());
                            return field->isVisible() && window.rect().contains(middle);
                        };
                        EXPECT_TRUE(isSeen(screen.txtName));
                        EXPECT_FALSE(isSeen(fields[59]));
                        EXPECT_FALSE(fields[1]->isVisible());
                        EXPECT_FALSE(loose->isVisible());
                        EXPECT_NE(loose->parentWidget(), &window) << "scrolls along";
                        tests::keys(*screen.txtName, QStringLiteral("SANTOS<Shift+Tab>"));
                        EXPECT_EQ(window.focusWidget(), fields[59]);
                        EXPECT_TRUE(isSeen(fields[59]));
                        EXPECT_FALSE(isSeen(screen.txtName));
                        tests::keysToFocus(window, QStringLiteral("<Up><PageUp><Tab>"));
                        EXPECT_TRUE(isSeen(screen.txtName)) << "its first field comes behind its last";
                        EXPECT_EQ(screen.txtName->text(), QStringLiteral("SANTOS"));
                        tests::keysToFocus(window, QStringLiteral("<Alt+S>"));
                        EXPECT_EQ(screen.saved, 1);
                        screen.Unload();
                    }});
}

namespace {

/// As the screens of the house are: a band, a page with groups side by side, the commands last.
class Page : public Screen {
  public:
    explicit Page(int rows) {
        auto* column = new QVBoxLayout(this);
        column->setContentsMargins(0, 0, 0, 0);
        band = new HeaderBand(this);
        column->addWidget(band);
        auto* page = new QVBoxLayout;
        column->addLayout(page);
        auto* groups = new QHBoxLayout;
        page->addLayout(groups);
        for (QGroupBox*& group : sides) {
            groups->addWidget(group = new QGroupBox(this));
            groups->addStretch();
            group->setMinimumSize(400, 100);
        }
        for (int i = 0; i < rows; ++i)
            page->addWidget(new QLineEdit(this));
        auto* commands = new QHBoxLayout;
        page->addLayout(commands);
        commands->addStretch();
        commands->addWidget(cmdSave = new QPushButton(QStringLiteral("&Save"), this));
    }
    bool isSeen(const QWidget& widget) const {
        const QRect place(widget.mapTo(this, QPoint()), widget.size());
        return widget.isVisible() && rect().contains(place) && !widget.visibleRegion().isEmpty();
    }
    using Screen::growTo;
    HeaderBand* band;
    QGroupBox* sides[2];
    QPushButton* cmdSave;
};

} // namespace

TEST(Screen, WhatIsScrolledLiesBetweenTheBandAndTheCommands) {
    Page screen(60);
    screen.Show();
    QCoreApplication::processEvents();
    EXPECT_TRUE(screen.isSeen(*screen.band));
    EXPECT_TRUE(screen.isSeen(*screen.cmdSave));
    EXPECT_EQ(screen.band->mapTo(&screen, QPoint()), QPoint());
    EXPECT_EQ(screen.band->width(), screen.width());
    auto& area = tests::child<QScrollArea>(screen, "scrolledContents");
    EXPECT_FALSE(area.isAncestorOf(screen.cmdSave));
    EXPECT_GT(area.verticalScrollBar()->maximum(), 0);
    area.verticalScrollBar()->setValue(area.verticalScrollBar()->maximum());
    EXPECT_TRUE(screen.isSeen(*screen.band));
    EXPECT_TRUE(screen.isSeen(*screen.cmdSave));
    const auto& lastField = *area.findChildren<QLineEdit*>().last();
    EXPECT_EQ(lastField.mapTo(&screen, QPoint(lastField.width(), 0)).x(),
              area.verticalScrollBar()->mapTo(&screen, QPoint()).x())
        << "the bar stands in the page's margin";
    screen.Unload();
}

TEST(Screen, AFieldWithTheFocusIsSeenWhole) {
    Page screen(60);
    screen.Show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&screen));
    auto& area = tests::child<QScrollArea>(screen, "scrolledContents");
    auto& field = *area.findChildren<QLineEdit*>().at(30);
    constexpr int cut = 3; // its cursor is seen all the same
    const int top = field.mapTo(area.widget(), QPoint()).y();
    for (const int value : {top + cut, top + field.height() - area.viewport()->height() - cut}) {
        screen.cmdSave->setFocus();
        area.verticalScrollBar()->setValue(value);
        EXPECT_NE(field.visibleRegion().boundingRect(), field.rect());
        field.setFocus();
        EXPECT_EQ(field.visibleRegion().boundingRect(), field.rect());
    }
    screen.Unload();
}

TEST(Screen, WhatIsShownMeanwhileIsScrolledToo) {
    Page screen(3);
    screen.sides[0]->hide();
    screen.Show();
    EXPECT_EQ(screen.findChild<QScrollArea*>(), nullptr);
    screen.sides[0]->show();
    for (const int height : {900, 1200}) { // then it is scrolled already
        screen.sides[0]->setMinimumHeight(height);
        screen.growTo(screen.height());
        QCoreApplication::processEvents();
        EXPECT_LE(screen.height(), 768 - 48);
        EXPECT_TRUE(screen.isSeen(*screen.band));
        EXPECT_TRUE(screen.isSeen(*screen.cmdSave));
        EXPECT_EQ(screen.sides[0]->height(), height);
    }
    screen.Unload();
}

TEST(Screen, GroupsThatHaveNoRoomSideBySideLieOneBelowTheOther) {
    Page narrow(3);
    for (QGroupBox* side : narrow.sides)
        side->setMinimumWidth(700);
    narrow.Show();
    QCoreApplication::processEvents();
    EXPECT_EQ(narrow.sides[0]->x(), narrow.sides[1]->x());
    EXPECT_GE(narrow.sides[1]->y(), narrow.sides[0]->geometry().bottom());
    EXPECT_LE(narrow.width(), 1366 - 16);
    EXPECT_EQ(narrow.findChild<QScrollArea*>(), nullptr) << "there is room below";
    narrow.Unload();
    Page wide(3);
    wide.Show();
    EXPECT_EQ(wide.sides[0]->y(), wide.sides[1]->y());
    wide.Unload();
}

TEST(Screen, AGroupKeepsLessAroundItselfBeforeItsPageIsScrolled) {
    const auto roomAround = [](int rows) {
        Page screen(rows);
        for (QGroupBox* side : screen.sides)
            (new QVBoxLayout(side))->setContentsMargins(12, 12, 12, 12);
        screen.Show();
        const QMargins around = screen.sides[0]->layout()->contentsMargins();
        screen.Unload();
        return around;
    };
    EXPECT_EQ(roomAround(3), QMargins(12, 12, 12, 12));
    EXPECT_EQ(roomAround(60), QMargins(4, 4, 4, 0));
}

TEST(Screen, TheRoomOfAGroupThatHoldsOneListIsTheLists) {
    Page screen(3);
    for (QGroupBox* side : screen.sides) {
        auto* column = new QVBoxLayout(side);
        column->setContentsMargins(12, 12, 12, 12);
        column->addWidget(new FlexGrid);
    }
    screen.sides[1]->layout()->addWidget(new QLineEdit);
    screen.Show();
    EXPECT_EQ(screen.sides[0]->layout()->contentsMargins(), QMargins(0, 4, 0, 0));
    EXPECT_EQ(screen.sides[1]->layout()->contentsMargins(), QMargins(12, 12, 12, 12));
    screen.Unload();
}

TEST(Screen, OneThatFitsIsNot) {
    Patient screen;
    screen.Show();
    EXPECT_EQ(screen.findChild<QWidget*>(QStringLiteral("scrolledContents")), nullptr);
    EXPECT_EQ(screen.txtName->parentWidget(), &screen);
    screen.Unload();
}

TEST(Screen, CaptionsStandAloneOnTheirWindows) {
    const QString name = QCoreApplication::applicationName();
    EXPECT_EQ(name, QStringLiteral("Visual Kerova - Visual Scintra"));
    // A display name of its own would not follow, and would be drawn behind every caption.
    QCoreApplication::setApplicationName(QStringLiteral("another"));
    EXPECT_EQ(QGuiApplication::applicationDisplayName(), QStringLiteral("another"));
    QCoreApplication::setApplicationName(name);
}

TEST(Screen, SelectAllTextStartsAtTheFirstCharacter) {
    QLineEdit field;
    field.setText(QStringLiteral("1012"));
    SelectAllText(&field);
    EXPECT_EQ(field.selectionStart(), 0);
    EXPECT_EQ(field.selectedText(), QStringLiteral("1012"));
}

} // namespace controls
