// Every screen on the smallest desktop of the hospital, and at 200 % (the suite runs a second time with
// QT_SCALE_FACTOR=2): all of it is reached, and every text is read.
#include "app/AppScreens.h"
#include "platform/controls/grid/FlexGrid.h"
#include "platform/controls/list/ListView.h"
#include "platform/controls/look/Look.h"
#include "platform/controls/screen/Screen.h"
#include "results/PatientFrames.h"
#include "session/TestDoors.h"
#include "tests/app/RoomCheck.h"
#include "tests/app/ScreenOpeners.h"
#include "tests/support/screens/Driver.h"
#include "tests/support/screens/LoggedOn.h"

#include <QApplication>
#include <QCheckBox>
#include <QDirIterator>
#include <QFile>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRegularExpression>
#include <QScrollArea>
#include <QScrollBar>
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

/// Help lines ("<b>Enter</b> Search") whose keys run into each other.
QStringList unpartedHelp(const QWidget& window) {
    QStringList found;
    for (const QLabel* label : window.findChildren<QLabel*>()) {
        const QString text = label->text();
        if (label->property("kind") == QVariant(QStringLiteral("help")) &&
            text.count(QStringLiteral("&nbsp;·&nbsp; <b>")) + 1 < text.count(QStringLiteral("<b>")))
            found << label->objectName() + QStringLiteral(": ") + text;
    }
    return found;
}

class EveryScreen : public tests::LoggedOn, public testing::WithParamInterface<tests::ScreenOpener> {
  protected:
    EveryScreen() { session::setProgramFolder(QStringLiteral(SCINTRA_SOURCE_DIR)); }
    ~EveryScreen() override { session::setProgramFolder({}); }
};

class EveryScreenInAMode : public tests::LoggedOn {};

/// Labels that do not show the colour of their kind.
QStringList labelsInAnotherColour(const QWidget& window) {
    using namespace controls;
    static const std::map<QString, QColor> colours{{"help", look::muted},         {"warn", look::warn},
                                                   {"danger", look::danger},      {"ok", look::ok},
                                                   {"heading", look::accentDark}, {"title", look::accentDark},
                                                   {"total", look::accentDark}};
    QStringList names;
    for (const QLabel* label : window.findChildren<QLabel*>()) {
        const auto meant = colours.find(label->property("kind").toString());
        if (meant != colours.end() && label->isEnabled() && label->isVisible() &&
            label->palette().color(QPalette::WindowText) != meant->second)
            names << label->objectName();
    }
    return names;
}

/// Lists and grids that stand empty and say nothing about it.
QStringList silentLists(const QWidget& window) {
    QStringList names;
    for (const auto* grid : window.findChildren<controls::FlexGrid*>()) {
        const int rows = grid->Rows() - grid->FixedRows();
        QString first;
        for (int column = 0; rows == 1 && column < grid->Cols(); ++column)
            first += grid->TextMatrix(grid->FixedRows(), column);
        if (grid->isVisible() && rows <= 1 && first.isEmpty() && !grid->showsEmptyText())
            names << grid->objectName();
    }
    for (const auto* list : window.findChildren<controls::ListView*>()) {
        if (list->isVisible() && list->Count() == 0 && !list->showsEmptyText())
            names << list->objectName();
    }
    return names;
}

/// Amounts and quantities that stand at the left of their column or field. The two stores' grids are told so.
QStringList numbersAtTheLeft(const QWidget& window) {
    static const QRegularExpression number(QStringLiteral("^(Amount|Amt|Price|Qty|Quantity|Balance|Rate .)$"),
                                           QRegularExpression::CaseInsensitiveOption);
    QStringList captions;
    for (const auto* view : window.findChildren<QAbstractItemView*>()) {
        const QAbstractItemModel* model = view->model();
        const bool isStores = window.objectName() == u"frmPHEntry" || window.objectName() == u"frmCSEntry";
        for (int section = 0; model && !isStores && section < model->columnCount(); ++section) {
            const QString caption = model->headerData(section, Qt::Horizontal).toString().trimmed();
            const auto place =
                Qt::Alignment(model->headerData(section, Qt::Horizontal, Qt::TextAlignmentRole).toInt());
            if (number.match(caption).hasMatch() && !(place & Qt::AlignRight))
                captions << view->objectName() + QStringLiteral(": ") + caption;
        }
    }
    static const QRegularExpression amount(QStringLiteral("(Amount|Gross|Rate[A-E])$"));
    for (const auto* field : window.findChildren<QLineEdit*>(amount)) {
        if (!(field->alignment() & Qt::AlignRight))
            captions << field->objectName();
    }
    return captions;
}

/// Grids that show less than three rows, or on the smallest desktop not all of their columns. The in-tray's
/// thirteen captions are wider than that desktop.
QStringList gridsWithoutRoom(const QWidget& window) {
    QStringList names;
    const bool mayScroll = qApp->devicePixelRatio() != 1 || window.objectName() == u"frmNurseCommunication";
    for (const auto* grid : window.findChildren<controls::FlexGrid*>()) {
        if (!grid->isVisible())
            continue;
        if (grid->viewport()->height() < 3 * grid->verticalHeader()->defaultSectionSize())
            names << grid->objectName() + QStringLiteral(": less than three rows");
        if (!mayScroll && grid->horizontalScrollBar()->maximum() > 0)
            names << grid->objectName() + QStringLiteral(": scrolled sideways");
    }
    return names;
}

/// Names and numbers as the hospital's usual long ones are; a name is about thirty letters in all.
const std::map<QString, QString> usualTexts{{"txtLname", "MONTEFALCO-UY"},
                                            {"txtSname", "MONTEFALCO-UY"},
                                            {"txtLastName", "MONTEFALCO-UY"},
                                            {"txtFname", "DIVINA GRACIA"},
                                            {"txtFirstName", "DIVINA GRACIA"},
                                            {"txtMname", "MAGSAYSAY"},
                                            {"txtMiddleName", "MAGSAYSAY"},
                                            {"txtPName", "MONTEFALCO-UY, DIVINA GRACIA M."},
                                            {"txtDoctor", "MONTEFALCO-UY, DIVINA GRACIA"},
                                            {"txtAttendingDr", "MONTEFALCO-UY, DIVINA GRACIA"},
                                            {"txtRequestingDr", "MONTEFALCO-UY, DIVINA GRACIA"},
                                            {"txtHospNum", "104245"},
                                            {"txtIdNum", "O26002095"},
                                            {"txtDoctorID", "230"},
                                            {"txtAge", "102"},
                                            {"txtBDate", "09/30/1960"},
                                            {"txtWeight", "104"},
                                            {"txtHeight", "165"},
                                            {"txtRoom", "ICU4"},
                                            {"txtOrNo", "OR31023"}};

/// Fields that do not show such a text whole.
QStringList fieldsTooNarrow(const QWidget& window) {
    QStringList names;
    for (auto* field : window.findChildren<QLineEdit*>()) {
        const auto usual = usualTexts.find(field->objectName());
        if (usual == usualTexts.end() || !field->isVisible())
            continue;
        constexpr int besideTheText = 4; // the toolkit's own margin of two pixels on either side
        const int room = field->contentsRect().width() - field->textMargins().left() -
                         field->textMargins().right() - besideTheText;
        if (field->fontMetrics().horizontalAdvance(usual->second) > room)
            names << field->objectName();
    }
    return names;
}

/// Whether a part of the page between the band and the commands has to be scrolled to. At 200 % the pages of
/// results, and a late charge over the list of the earlier ones, are higher than the desktop; none is wider.
bool isScrolledWithoutNeed(const QWidget& window) {
    static const QStringList high{"frmResultEntry", "frmResultEntryMPI", "frmResultEntryGFR",
                                  "frmResultRadioImmuno", "frmReceivableEntry"};
    const auto* area = window.findChild<QScrollArea*>(QStringLiteral("scrolledContents"));
    const bool mayBeHigh = qApp->devicePixelRatio() > 1 && high.contains(window.objectName());
    return area && (area->horizontalScrollBar()->maximum() > 0 ||
                    (area->verticalScrollBar()->maximum() > 0 && !mayBeHigh));
}

/// Whether a page of results begins below what is seen of its screen when it comes up.
bool beginsOutOfSight(const QWidget& window) {
    const auto* technical = window.findChild<QWidget*>(QStringLiteral("grpTechnical"));
    return technical && technical->visibleRegion().boundingRect().height() < controls::look::scaled(80);
}

/// Fields of a result's two frames that stand beside each other and on different lines.
QStringList fieldsOutOfLine(const QWidget& window) {
    constexpr std::pair<const char*, const char*> lines[] = {
        {"txtPName", "txtHospNum"}, {"txtAddress", "txtAccountName"}, {"txtWeight", "txtRoomID"}};
    QStringList names;
    const auto* hospital = window.findChild<QWidget*>(QStringLiteral("grpHosp"));
    for (const auto& [left, right] : lines) {
        const auto* one = window.findChild<QWidget*>(QLatin1StringView(left));
        const auto* other = window.findChild<QWidget*>(QLatin1StringView(right));
        const bool areBeside = hospital && hospital->x() > 0;
        if (areBeside && one->mapTo(&window, QPoint()).y() != other->mapTo(&window, QPoint()).y())
            names << QString::fromLatin1(left) + QStringLiteral(", ") + QString::fromLatin1(right);
    }
    return names;
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
        EXPECT_EQ(unpartedHelp(window), QStringList());
        QStringList left = known.filter(QRegularExpression(u'^' + QRegularExpression::escape(begin)));
        for (const QString& found : whatIsOutOfReach(window)) {
            if (!left.removeOne(begin + found))
                ADD_FAILURE() << (begin + found).toStdString();
        }
        EXPECT_EQ(labelsInAnotherColour(window), QStringList());
        EXPECT_EQ(numbersAtTheLeft(window), QStringList());
        EXPECT_EQ(gridsWithoutRoom(window), QStringList());
        EXPECT_EQ(fieldsTooNarrow(window), QStringList());
        EXPECT_FALSE(isScrolledWithoutNeed(window));
        EXPECT_FALSE(beginsOutOfSight(window));
        EXPECT_EQ(fieldsOutOfLine(window), QStringList());
        if (auto* frames = window.findChild<results::PatientFrames*>()) {
            frames->showSavedDate(QStringLiteral("12/31/2026")); // of a result that was saved before
            QCoreApplication::processEvents();
            EXPECT_EQ(whatIsOutOfReach(window), QStringList());
            EXPECT_EQ(fieldsTooNarrow(window), QStringList());
            EXPECT_FALSE(isScrolledWithoutNeed(window));
        }
        const bool canDoNothing = screen == u"frmNuclearChargesBuildFile_items";
        EXPECT_EQ(silentLists(window), canDoNothing ? QStringList("Grid1") : QStringList());
        EXPECT_TRUE(left.isEmpty()) << "Found no more, and out of the list: "
                                    << left.join(u'\n').toStdString();
    });
    EXPECT_TRUE(looked);
}

INSTANTIATE_TEST_SUITE_P(Room, EveryScreen, testing::ValuesIn(tests::screenOpeners()),
                         [](const auto& opener) { return std::string(opener.param.screen); });

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
            EXPECT_EQ(whatIsOutOfReach(window), QStringList());
            EXPECT_EQ(fieldsTooNarrow(window), QStringList());
            EXPECT_EQ(gridsWithoutRoom(window), QStringList());
            EXPECT_FALSE(isScrolledWithoutNeed(window));
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
