// The guide over every screen: its page, the focus and what was typed behind it; its pages against each
// other.
#include "app/Guide.h"

#include "app/AppScreens.h"
#include "menu/TestDoors.h"
#include "menu/frmMainMenu.h"
#include "orders/frmRequest.h"
#include "platform/controls/grid/FlexGrid.h"
#include "platform/controls/guide/GuideBrowser.h"
#include "platform/controls/guide/GuideReader.h"
#include "platform/controls/screen/MessageDialog.h"
#include "platform/controls/screen/ScreenContents.h"
#include "platform/controls/screen/TestDoors.h"
#include "session/TestDoors.h"
#include "tests/app/RoomCheck.h"
#include "tests/app/ScreenOpeners.h"
#include "tests/support/screens/Driver.h"
#include "tests/support/screens/LoggedOn.h"

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QFile>
#include <QImage>
#include <QLineEdit>
#include <QMenuBar>
#include <QPushButton>
#include <QRegularExpression>
#include <QTest>
#include <QWindow>

#include <ostream>
#include <set>

namespace tests {

static void PrintTo(const ScreenOpener& opener, std::ostream* stream) {
    *stream << opener.screen;
}

} // namespace tests

namespace {

const QString root = QStringLiteral(":/docs/guide/");

QString textOf(const QString& file) {
    QFile page(file);
    EXPECT_TRUE(page.open(QIODevice::ReadOnly)) << file.toStdString();
    return QString::fromUtf8(page.readAll());
}

QStringList pages() {
    return QDir(root).entryList({QStringLiteral("*.md")}, QDir::Files);
}

/// What stands in the round brackets behind each match.
QStringList targets(const QString& text, const QString& begin) {
    QStringList found;
    const QRegularExpression link(begin + QStringLiteral("\\[[^\\]]*\\]\\(([^)\\s]+)\\)"));
    for (auto each = link.globalMatch(text); each.hasNext();)
        found += each.next().captured(1);
    return found;
}

QStringList sectionsOf(const QString& page) {
    QStringList slugs;
    for (const QString& line : textOf(page).split(u'\n')) {
        if (line.startsWith(u'#'))
            slugs += controls::GuidePages::slugOf(line.section(u' ', 1));
    }
    return slugs;
}

/// "" where the link leads somewhere.
QString whatIsMissing(const QString& link) {
    const QString file = QDir::cleanPath(root + link.section(u'#', 0, 0));
    if (!QFile::exists(file))
        return QStringLiteral("no page ") + file;
    const QString section = link.section(u'#', 1);
    if (!section.isEmpty() && !sectionsOf(file).contains(section))
        return QStringLiteral("no section ") + section + QStringLiteral(" in ") + file;
    return {};
}

/// Screen of each picture by the pictures' list.
std::map<QString, QString> listedPictures() {
    std::map<QString, QString> pictures;
    for (const QString& line :
         textOf(root + QStringLiteral("pictures/list.txt")).split(u'\n', Qt::SkipEmptyParts))
        pictures[line.section(u' ', 0, 0)] = line.section(u' ', 1, 1);
    return pictures;
}

std::set<QString> screensOfTheProgram() {
    std::set<QString> screens;
    for (const tests::ScreenOpener& opener : tests::screenOpeners())
        screens.insert(QString::fromLatin1(opener.screen));
    return screens;
}

TEST(GuidePlaces, EveryScreenHasAPageAndASectionThatIsThere) {
    std::set<QString> placed;
    for (const app::GuidePlace& place : app::guidePlaces()) {
        EXPECT_TRUE(placed.insert(QString::fromLatin1(place.screen)).second) << place.screen;
        EXPECT_EQ(whatIsMissing(QString::fromLatin1(place.page)), QString()) << place.screen;
    }
    EXPECT_EQ(placed, screensOfTheProgram());
}

TEST(GuideText, LeadsNowhereThatIsNotThere) {
    EXPECT_GT(pages().size(), 10);
    for (const QString& page : pages()) {
        for (const QString& link : targets(textOf(root + page), QString()))
            EXPECT_EQ(whatIsMissing(link.startsWith(u'#') ? page + link : link), QString())
                << page.toStdString();
    }
}

TEST(GuideText, EveryPageIsReachedFromTheContents) {
    const QString contents = textOf(root + QStringLiteral("README.md"));
    for (const QString& page : pages()) {
        if (page != QLatin1String("README.md")) {
            EXPECT_TRUE(contents.contains(u'(' + page + u')')) << page.toStdString();
        }
    }
}

TEST(GuideText, ShowsPicturesThatTheTourMakesOfScreensThatExist) {
    const auto listed = listedPictures();
    const std::set<QString> screens = screensOfTheProgram();
    EXPECT_LE(listed.size(), 20U);
    QStringList shown;
    for (const QString& page : pages()) {
        for (const QString& picture : targets(textOf(root + page), QStringLiteral("!"))) {
            EXPECT_TRUE(listed.contains(QString(picture).remove("pictures/").remove(".png")))
                << picture.toStdString() << " of " << page.toStdString() << " is not in the list";
            shown += picture;
        }
    }
    for (const auto& [name, screen] : listed) {
        const QString file = QStringLiteral("pictures/%1.png").arg(name);
        EXPECT_TRUE(screens.contains(screen)) << name.toStdString() << " shows no screen of the program";
        EXPECT_TRUE(shown.contains(file)) << "no page shows " << file.toStdString();
    }
    const auto files =
        QDir(root + QStringLiteral("pictures")).entryInfoList({QStringLiteral("*.png")}, QDir::Files);
    qint64 bytes = 0;
    for (const QFileInfo& file : files) {
        EXPECT_TRUE(listed.contains(file.completeBaseName())) << file.fileName().toStdString();
        bytes += file.size();
    }
    EXPECT_LT(bytes, 2'500'000);
}

/// The reader that is on screen; raises while there is none.
controls::GuideReader& reader() {
    for (QWidget* window : QApplication::topLevelWidgets()) {
        auto* found = qobject_cast<controls::GuideReader*>(window);
        if (found && found->isVisible())
            return *found;
    }
    throw std::runtime_error("the guide is not open");
}

bool isOpen() {
    const auto windows = QApplication::topLevelWidgets();
    return std::any_of(windows.begin(), windows.end(), [](const QWidget* window) {
        return qobject_cast<const controls::GuideReader*>(window) && window->isVisible();
    });
}

controls::GuideBrowser& browser() {
    return tests::child<controls::GuideBrowser>(reader(), "guidePage");
}

/// As the desktop sends it: a modal window holds the keys of others up.
void press(QWidget& window, Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
    QTest::keyClick(window.windowHandle(), key, modifiers);
    QCoreApplication::processEvents();
}

class EveryScreensGuide : public tests::LoggedOn, public testing::WithParamInterface<tests::ScreenOpener> {
  protected:
    EveryScreensGuide() { session::setProgramFolder(QStringLiteral(SCINTRA_SOURCE_DIR)); }
    ~EveryScreensGuide() override { session::setProgramFolder({}); }
    app::Guide guide;
};

TEST_P(EveryScreensGuide, OpensAndLeavesTheScreenAsItWas) {
    const QString name = QString::fromLatin1(GetParam().screen);
    const bool hasItsOwnF1 = name == QLatin1String("frmMainMenu");
    QString page;
    for (const app::GuidePlace& place : app::guidePlaces())
        if (name == QLatin1String(place.screen))
            page = QString::fromLatin1(place.page);
    GetParam().open([&](QWidget& screen) {
        screen.activateWindow();
        QCoreApplication::processEvents(); // the log-on lists its servers a little later
        takeTexts();
        const QPointer<QWidget> focus = QApplication::focusWidget();
        const QString held = controls::contentsAsText(screen);
        press(screen, Qt::Key_F1, hasItsOwnF1 ? Qt::ShiftModifier : Qt::NoModifier);
        ASSERT_TRUE(isOpen());
        EXPECT_EQ(QApplication::activeWindow(), &reader());
        EXPECT_EQ(browser().page(), page.section(u'#', 0, 0));
        EXPECT_EQ(controls::GuidePages::slugOf(browser().section()), page.section(u'#', 1));
        press(reader(), Qt::Key_PageDown);
        press(reader(), Qt::Key_Escape);
        EXPECT_FALSE(isOpen());
        EXPECT_EQ(QApplication::activeWindow(), &screen);
        EXPECT_EQ(QApplication::focusWidget(), focus.data());
        EXPECT_EQ(controls::contentsAsText(screen), held);
        EXPECT_EQ(takeTexts(), QStringList());
    });
}

INSTANTIATE_TEST_SUITE_P(Guide, EveryScreensGuide, testing::ValuesIn(tests::screenOpeners()),
                         [](const auto& opener) { return std::string(opener.param.screen); });

class GuideOnDuty : public tests::LoggedOn {
  protected:
    /// A request of an admitted patient in which the first cell is open.
    void onARequest(const std::function<void(QWidget& screen)>& look) {
        tests::runModal([this] { program.openRequest({.PatIdNum = "26004078", .PatientType = "I"}); },
                        {[&](QWidget& screen) {
                            look(screen);
                            static_cast<controls::Screen&>(screen).hideScreen();
                        }});
        controls::release<orders::frmRequest>();
    }
    app::AppScreens program;
};

TEST_F(GuideOnDuty, AHalfTypedCellIsTypedOn) {
    onARequest([&](QWidget& screen) {
        tests::keysToFocus(screen, "nu<Enter>10");
        auto& cell = tests::child<QLineEdit>(screen, "txtEntry");
        ASSERT_EQ(QApplication::focusWidget(), &cell);
        takeTexts();
        press(screen, Qt::Key_F1);
        EXPECT_EQ(browser().page(), "in-patient.md");
        EXPECT_EQ(cell.text(), "10");
        press(reader(), Qt::Key_Escape);
        ASSERT_EQ(QApplication::focusWidget(), &cell);
        EXPECT_EQ(takeTexts(), QStringList());
        tests::keysToFocus(screen, "01<Enter>");
        EXPECT_EQ(tests::child<controls::FlexGrid>(screen, "grdPackage").TextMatrix(1, 2), "1001");
    });
}

TEST_F(GuideOnDuty, AHalfTypedDateIsTypedOn) {
    tests::runModal([this] { program.open(session::MenuScreen::Verification); }, {[](QWidget& screen) {
                        press(screen, Qt::Key_F1);
                        press(reader(), Qt::Key_Escape);
                        tests::keysToFocus(screen, "<Esc>");
                    }});
    for (const tests::ScreenOpener& opener : tests::screenOpeners()) {
        if (QLatin1String(opener.screen) != QLatin1String("frmReportDate"))
            continue;
        opener.open([](QWidget& screen) {
            tests::keysToFocus(screen, "12");
            auto* date = qobject_cast<QLineEdit*>(QApplication::focusWidget());
            ASSERT_TRUE(date);
            const QString half = date->text();
            press(screen, Qt::Key_F1);
            press(reader(), Qt::Key_Escape);
            EXPECT_EQ(date->text(), half);
            tests::keysToFocus(screen, "25");
            EXPECT_EQ(date->text().left(5), "12/25");
        });
    }
}

TEST_F(GuideOnDuty, IsReadWhileBoxesAndScreensComeAndGo) {
    onARequest([&](QWidget& screen) {
        press(screen, Qt::Key_F1);
        screen.activateWindow();
        controls::MessageDialog box(QStringLiteral("?"), controls::vbOKOnly, {}, &screen);
        tests::runModal([&] { box.exec(); }, {[&](QWidget& window) {
                            QCoreApplication::processEvents();
                            reader().activateWindow();
                            press(reader(), Qt::Key_F, Qt::ControlModifier);
                            EXPECT_EQ(QApplication::focusWidget(),
                                      &tests::child<QLineEdit>(reader(), "guideSearch"));
                            press(reader(), Qt::Key_Escape);
                            EXPECT_EQ(QApplication::activeWindow(), &window);
                            press(window, Qt::Key_F1);
                            EXPECT_EQ(browser().page(), "in-patient.md") << "of the screen below the box";
                            window.close();
                        }});
        EXPECT_TRUE(isOpen()) << "the box took nothing along";
        reader().activateWindow();
        press(reader(), Qt::Key_Escape);
        EXPECT_FALSE(isOpen());
        EXPECT_EQ(QApplication::activeWindow(), &screen);
    });
}

TEST_F(GuideOnDuty, AHeldKeyOpensNothing) {
    onARequest([&](QWidget& screen) {
        QKeyEvent held(QEvent::KeyPress, Qt::Key_F1, Qt::NoModifier, QString(), true);
        QCoreApplication::sendEvent(&screen, &held);
        EXPECT_FALSE(isOpen());
    });
}

class GuideOfTheMenu : public GuideOnDuty {
  protected:
    GuideOfTheMenu() {
        menu::setMonitorMaker(menu::noMonitors);
        program.showMainMenu();
        menuScreen().activateWindow();
        QCoreApplication::processEvents();
    }
    ~GuideOfTheMenu() override {
        menuScreen().Unload();
        controls::release<menu::frmMainMenu>();
        menu::setMonitorMaker({});
    }
    static menu::frmMainMenu& menuScreen() { return controls::SharedScreen<menu::frmMainMenu>::current(); }
};

TEST_F(GuideOfTheMenu, F1StillFindsAnAdmittedPatient) {
    session::setScreens(&program);
    tests::runModal([this] { QTest::keyClick(&menuScreen(), Qt::Key_F1); }, {[](QWidget& window) {
                        EXPECT_EQ(window.objectName(), "frmListPatient");
                        tests::keysToFocus(window, "<Esc>");
                    }});
    session::setScreens(&screens);
    EXPECT_FALSE(isOpen());
}

TEST_F(GuideOfTheMenu, HelpStandsBehindTheOtherMenus) {
    auto& bar = *menuScreen().findChild<QMenuBar*>();
    const QAction* last = bar.actions().constLast();
    EXPECT_EQ(last->text(), "&Help");
    program.showMainMenu();
    EXPECT_EQ(bar.actions().constLast(), last) << "once";
    menuScreen().findChild<QAction*>("mnuGuide")->trigger();
    EXPECT_EQ(browser().page(), "log-on.md");
    press(reader(), Qt::Key_Escape);
    EXPECT_EQ(QApplication::activeWindow(), &menuScreen());
}

TEST_F(GuideOfTheMenu, TheReaderHasRoom) {
    press(menuScreen(), Qt::Key_F1, Qt::ShiftModifier);
    EXPECT_EQ(tests::whatIsOutOfReach(reader()), QStringList());
}

} // namespace
