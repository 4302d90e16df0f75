// Every screen on the smallest desktop of the hospital, and at 150 % and 200 % (the suite runs again with
// QT_SCALE_FACTOR 1.5 and 2): all of it is reached, and every text is read.
#include "app/AppScreens.h"
#include "platform/controls/screen/Screen.h"
#include "results/PatientFrames.h"
#include "results/frmResultEntry.h"
#include "results/frmResultEntryGFR.h"
#include "results/frmResultEntryMPI.h"
#include "results/frmResultRadioImmuno.h"
#include "session/TestDoors.h"
#include "tests/app/LookCheck.h"
#include "tests/app/RoomCheck.h"
#include "tests/app/ScreenOpeners.h"
#include "tests/support/screens/Driver.h"
#include "tests/support/screens/LoggedOn.h"

#include <QApplication>
#include <QCheckBox>
#include <QDirIterator>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRegularExpression>
#include <QScrollArea>
#include <QTabWidget>

#include <map>
#include <ostream>

namespace tests {

static void PrintTo(const ScreenOpener& opener, std::ostream* stream) {
    *stream << opener.screen;
}

} // namespace tests

namespace {

using tests::whatIsOutOfReach;

/// What stands wrong on screens that were there before this test: "<scale>% <screen> <what is found>". Only
/// ever gets shorter: a line that is no longer found has to go, and no new screen enters.
const QStringList known;

class EveryScreen : public tests::LoggedOn, public testing::WithParamInterface<tests::ScreenOpener> {
  protected:
    EveryScreen() { session::setProgramFolder(QStringLiteral(SCINTRA_SOURCE_DIR)); }
    ~EveryScreen() override { session::setProgramFolder({}); }
};

class EveryScreenInAMode : public tests::LoggedOn {};

std::string told(const QStringList& lines) {
    return lines.join(u'\n').toStdString();
}

/// A picture of each page of the window, in the folder that SCINTRA_PICTURES names, if it names one.
void writePictures(QWidget& window) {
    const QString folder = qEnvironmentVariable("SCINTRA_PICTURES");
    if (folder.isEmpty())
        return;
    int page = 0;
    tests::turnAllPages(window, [&] {
        const QString file = QStringLiteral("%1/%2-%3-%4.png")
                                 .arg(folder, window.objectName())
                                 .arg(qRound(qApp->devicePixelRatio() * 100))
                                 .arg(page++);
        EXPECT_TRUE(window.grab().save(file)) << file.toStdString();
    });
}

TEST_P(EveryScreen, IsReachedAndReadInItsRoom) {
    const QString screen = QString::fromLatin1(GetParam().screen);
    const QString begin = QStringLiteral("%1% %2 ").arg(qRound(qApp->devicePixelRatio() * 100)).arg(screen);
    bool looked = false;
    GetParam().open([&](QWidget& window) {
        looked = true;
        EXPECT_EQ(window.objectName(), screen);
        writePictures(window);
        QStringList left = known.filter(QRegularExpression(u'^' + QRegularExpression::escape(begin)));
        for (const QString& found : whatIsOutOfReach(window)) {
            if (!left.removeOne(begin + found))
                ADD_FAILURE() << (begin + found).toStdString();
        }
        EXPECT_EQ(told(tests::whatLooksWrong(window)), "");
        EXPECT_EQ(told(tests::whatHasTooLittleRoom(window)), "");
        EXPECT_TRUE(left.isEmpty()) << "Found no more, and out of the list: "
                                    << left.join(u'\n').toStdString();
    });
    EXPECT_TRUE(looked);
}

INSTANTIATE_TEST_SUITE_P(Room, EveryScreen, testing::ValuesIn(tests::screenOpeners()),
                         [](const auto& opener) { return std::string(opener.param.screen); });

/// A result that was saved before shows its date beside today's.
template <typename T>
void expectRoomBesideASavedDate() {
    T screen;
    screen.load();
    screen.template findChild<results::PatientFrames*>()->showSavedDate(QStringLiteral("12/31/2026"));
    screen.Show();
    QCoreApplication::processEvents();
    EXPECT_EQ(told(whatIsOutOfReach(screen)), "");
    EXPECT_EQ(told(tests::whatHasTooLittleRoom(screen)), "");
    screen.hideScreen();
}

TEST_F(EveryScreenInAMode, ASavedResultHasRoomForBothOfItsDates) {
    expectRoomBesideASavedDate<results::frmResultEntry>();
    expectRoomBesideASavedDate<results::frmResultEntryMPI>();
    expectRoomBesideASavedDate<results::frmResultEntryGFR>();
    expectRoomBesideASavedDate<results::frmResultRadioImmuno>();
}

/// A paid assessment's request has a row more than others.
TEST_F(EveryScreenInAMode, ThePaidRequestHasRoomForItsReceipt) {
    tests::runModal(
        [] {
            app::AppScreens().openRequest(
                {.PatIdNum = "26004078", .PatientType = "I", .CashBasis = true, .CashOrNum = "OR31023"});
        },
        {[](QWidget& window) {
            QCoreApplication::processEvents();
            writePictures(window);
            EXPECT_TRUE(tests::child<QLineEdit>(window, "txtOrNo").isVisible());
            EXPECT_EQ(tests::child<QLineEdit>(window, "txtAmount").text(), "3,900.00");
            EXPECT_EQ(told(whatIsOutOfReach(window)), "");
            EXPECT_EQ(told(tests::whatHasTooLittleRoom(window)), "");
            static_cast<controls::Screen&>(window).Unload();
        }});
}

/// Base of every class of the program, by the headers and sources.
std::multimap<QString, QString> basesInTheProgram() {
    static const QRegularExpression derived(
        QStringLiteral("\\bclass\\s+(\\w+)(?:\\s+final)?\\s*:\\s*public\\s+(?:\\w+::)*(\\w+)"));
    std::multimap<QString, QString> bases;
    for (const QString& top :
         QDir(QStringLiteral(SCINTRA_SOURCE_DIR)).entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
        if (QStringList{"build", "tests", "bench", "tools"}.contains(top))
            continue;
        QDirIterator all(QStringLiteral(SCINTRA_SOURCE_DIR "/") + top, {"*.h", "*.cpp"}, QDir::Files,
                         QDirIterator::Subdirectories);
        while (all.hasNext()) {
            QFile file(all.next());
            EXPECT_TRUE(file.open(QIODevice::ReadOnly));
            auto matches = derived.globalMatch(QString::fromUtf8(file.readAll()));
            while (matches.hasNext()) {
                const QRegularExpressionMatch match = matches.next();
                bases.emplace(match.captured(1), match.captured(2));
            }
        }
    }
    return bases;
}

TEST(ScreenOpeners, EveryScreenOfTheProgramIsOpened) {
    const auto bases = basesInTheProgram();
    QStringList screens{QStringLiteral("Screen")};
    for (qsizetype before = 0; before != screens.size();) {
        before = screens.size();
        for (const auto& [name, base] : bases) {
            if (screens.contains(base) && !screens.contains(name))
                screens << name;
        }
    }
    EXPECT_TRUE(screens.contains("frmRegisteredOPD")) << "found over its base";
    QStringList opened;
    for (const tests::ScreenOpener& opener : tests::screenOpeners())
        opened << QString::fromLatin1(opener.screen);
    for (const QString& screen : screens) {
        const bool isABase =
            std::any_of(bases.begin(), bases.end(), [&](const auto& one) { return one.second == screen; });
        if (isABase && !screen.startsWith(QStringLiteral("frm")))
            continue;
        EXPECT_TRUE(opened.removeOne(screen)) << screen.toStdString() << " has no opener";
    }
    EXPECT_TRUE(opened.isEmpty()) << "no such screen: " << opened.join(u' ').toStdString();
    EXPECT_LE(known.size(), 10) << "the list has only ever lost lines";
    for (const QString& line : known)
        EXPECT_TRUE(screens.contains(line.section(u' ', 1, 1))) << line.toStdString();
}

/// A window as wide as a screen, with one control laid in it by hand.
class Faulty : public testing::Test {
  protected:
    Faulty() { window.resize(400, 300); }
    QStringList found() {
        window.show();
        QCoreApplication::processEvents();
        return whatIsOutOfReach(window);
    }
    template <typename T>
    T& put(const QRect& place, const QString& text, QWidget* parent = nullptr) {
        auto* control = new T(parent ? parent : &window);
        control->setObjectName(QStringLiteral("it"));
        control->setText(text);
        control->setGeometry(place);
        return *control;
    }
    static QRect roomy() { return {10, 10, 200, 40}; }

    QWidget window;
};

TEST_F(Faulty, AControlInItsPlaceIsNone) {
    put<QLabel>(roomy(), QStringLiteral("Patient"));
    EXPECT_EQ(found(), QStringList());
}

TEST_F(Faulty, AControlOutsideOfItsWindow) {
    put<QPushButton>(roomy().translated(300, 0), QStringLiteral("Save"));
    EXPECT_EQ(found(), QStringList{"it: outside of its place"});
}

TEST_F(Faulty, ButNotWhereOneCanScrollToIt) {
    QScrollArea area(&window);
    auto* inside = new QWidget;
    inside->resize(300, 900);
    put<QPushButton>(roomy().translated(0, 800), QStringLiteral("Save"), inside);
    area.setWidget(inside);
    area.setGeometry(0, 0, 400, 300);
    EXPECT_EQ(found(), QStringList());
}

TEST_F(Faulty, ATextThatIsCut) {
    const QString sentence = QStringLiteral("The patient's account was closed yesterday");
    QLabel& label = put<QLabel>(roomy(), sentence);
    EXPECT_EQ(found(), QStringList{"it: cut"});
    label.setText(label.fontMetrics().elidedText(sentence, Qt::ElideRight, label.width()));
    EXPECT_EQ(found(), QStringList()) << "an ellipsis says that there is more";
    label.setText(sentence);
    label.setWordWrap(true);
    EXPECT_EQ(found(), QStringList());
    label.setFixedHeight(18);
    EXPECT_EQ(found(), QStringList{"it: cut"});
}

TEST_F(Faulty, ACaptionThatIsCut) {
    const QString caption = QStringLiteral("Save and print the charge slip");
    put<QPushButton>({10, 10, 100, 30}, caption).setObjectName("button");
    put<QCheckBox>({10, 60, 100, 30}, caption).setObjectName("box");
    auto& field = put<QLineEdit>({10, 110, 100, 30}, caption);
    EXPECT_EQ(found(), (QStringList{"box: cut", "button: cut"})) << "a field is scrolled by its writer";
    field.setReadOnly(true);
    EXPECT_EQ(found(), (QStringList{"box: cut", "button: cut", "it: cut"}));
}

TEST_F(Faulty, ControlsOverEachOther) {
    put<QLabel>(roomy(), QStringLiteral("Patient")).setObjectName("a");
    put<QLineEdit>(roomy().translated(100, 10), {}).setObjectName("b");
    EXPECT_EQ(found(), QStringList{"a: overlaps b"});
}

TEST_F(Faulty, AWindowLargerThanTheDesktop) {
    window.resize(tests::roomForAWindow() + QSize(0, 1));
    EXPECT_EQ(found(), QStringList{"window: larger than the desktop"});
}

TEST_F(Faulty, OnAPageBehind) {
    QTabWidget tabs(&window);
    tabs.resize(400, 300);
    tabs.addTab(new QWidget, QStringLiteral("One"));
    auto* second = new QWidget;
    tabs.addTab(second, QStringLiteral("Two"));
    put<QPushButton>({10, 10, 30, 30}, QStringLiteral("Save and print"), second);
    EXPECT_EQ(found(), QStringList{"it: cut"});
    EXPECT_EQ(tabs.currentIndex(), 0);
}

} // namespace
