#include "platform/controls/look/Look.h"

#include "platform/controls/look/FlatButton.h"
#include "platform/controls/look/HeaderBand.h"
#include "tests/support/screens/Driver.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QImage>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

namespace controls {

namespace {

const char* const givenIcons[] = {
    "request", "results",  "folder",       "reports",    "leave",      "assessment", "charge",    "inpatient",
    "supply",  "pharmacy", "result-entry", "inquiry",    "cancel",     "reprint",    "status",    "ledger",
    "walkin",  "build",    "transaction",  "monthly",    "statistics", "income",     "cancelled", "exams",
    "quit",    "user",     "settings",     "search",     "print",      "save",       "first",     "previous",
    "next",    "last",     "zoom-in",      "zoom-out",   "fit-width",  "fit-page",   "export",    "copy",
    "tree",    "info",     "warning",      "error",      "question",   "calendar",   "chevron",   "app",
    "up",      "list",     "details",      "folder-add", "computer",   "page"};

bool hasInk(const QImage& image, const QColor& color) {
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (image.pixelColor(x, y) == color)
                return true;
    return false;
}

} // namespace

TEST(Look, EveryIconOfTheHouseDrawsSomething) {
    for (const char* name : givenIcons) {
        const QIcon icon = look::icon(QString::fromLatin1(name));
        ASSERT_FALSE(icon.isNull()) << name;
        const QImage image = icon.pixmap(QSize(48, 48), 1.0).toImage();
        int inked = 0;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                inked += image.pixelColor(x, y).alpha() > 128;
        EXPECT_GT(inked, 60) << name;
    }
    EXPECT_TRUE(look::icon(QStringLiteral("no such icon")).isNull());
}

TEST(Look, TheDialogsOfTheToolKitWearTheHousesIcons) {
    const QStyle& style = *QApplication::style();
    for (const auto& [sign, name] : {std::pair(QStyle::SP_FileDialogToParent, "up"),
                                     {QStyle::SP_FileDialogNewFolder, "folder-add"},
                                     {QStyle::SP_FileDialogListView, "list"},
                                     {QStyle::SP_FileDialogDetailedView, "details"},
                                     {QStyle::SP_FileDialogBack, "previous"},
                                     {QStyle::SP_DirIcon, "folder"},
                                     {QStyle::SP_FileIcon, "page"}})
        EXPECT_EQ(style.standardIcon(sign).name(), QLatin1String(name));
    EXPECT_FALSE(style.standardIcon(QStyle::SP_TitleBarCloseButton).isNull())
        << "what the house does not draw";
    EXPECT_FALSE(style.styleHint(QStyle::SH_DialogButtonBox_ButtonsHaveIcons));
}

TEST(Look, AnIconTakesItsColourAndIsSharpWhenScaled) {
    const QIcon icon = look::icon(QStringLiteral("save"), look::danger);
    EXPECT_TRUE(hasInk(icon.pixmap(QSize(48, 48), 1.0).toImage(), look::danger));
    EXPECT_FALSE(hasInk(icon.pixmap(QSize(48, 48), 1.0).toImage(), look::accent));
    const QPixmap large = icon.pixmap(QSize(24, 24), 2.0);
    EXPECT_EQ(large.size(), QSize(48, 48));
    EXPECT_EQ(large.devicePixelRatio(), 2.0);
    EXPECT_FALSE(hasInk(icon.pixmap(QSize(48, 48), 1.0, QIcon::Disabled).toImage(), look::danger));
}

TEST(Look, TheStyleSheetHasNoTokenLeftAndNamesNoColourOfTheHouse) {
    EXPECT_FALSE(qApp->styleSheet().isEmpty());
    EXPECT_FALSE(qApp->styleSheet().contains(QLatin1Char('@')));
    EXPECT_TRUE(qApp->styleSheet().contains(look::accent.name()));
    QFile sheet(QStringLiteral(SCINTRA_SOURCE_DIR "/assets/look.qss"));
    ASSERT_TRUE(sheet.open(QIODevice::ReadOnly));
    const QString text = QString::fromUtf8(sheet.readAll()).toLower();
    for (const QColor* color : {&look::ink, &look::muted, &look::page, &look::card, &look::line,
                                &look::accent, &look::accentDark, &look::warn, &look::danger, &look::ok})
        EXPECT_FALSE(text.contains(color->name())) << color->name().toStdString();
}

TEST(Look, FieldsAndRowsHaveTheHousesHeight) {
    QLineEdit field;
    EXPECT_EQ(field.sizeHint().height(), look::scaled(28));
    EXPECT_EQ(QApplication::font().pointSize(), 10);
}

TEST(Look, ThePrimaryButtonLooksLikeOne) {
    QPushButton button(QStringLiteral("Save"));
    button.resize(100, 30);
    EXPECT_FALSE(hasInk(button.grab().toImage(), look::accent));
    look::setPrimary(&button);
    EXPECT_TRUE(hasInk(button.grab().toImage(), look::accent));
}

TEST(HeaderBand, LeavesOutEmptyChips) {
    HeaderBand band;
    band.setTitle(QStringLiteral("InPatient Request Entry"));
    band.setSubtitle(QStringLiteral("SANTOS, MARIA"));
    band.setChips({QStringLiteral("Adm. 2601184"), QString(), QStringLiteral("Hosp. 0045127")});
    EXPECT_EQ(band.title(), QStringLiteral("InPatient Request Entry"));
    EXPECT_EQ(band.subtitle(), QStringLiteral("SANTOS, MARIA"));
    EXPECT_EQ(band.chips(), QStringList({"Adm. 2601184", "Hosp. 0045127"}));
    band.setChips({});
    EXPECT_EQ(band.chips(), QStringList());
}

TEST(HeaderBand, ALongNameNeverWidensTheWindow) {
    HeaderBand band;
    const int before = band.minimumSizeHint().width();
    band.setSubtitle(QString(500, QLatin1Char('M')));
    EXPECT_EQ(band.minimumSizeHint().width(), before);
}

TEST(FlatButton, SpaceAndEnterPressIt) {
    FlatButton button;
    button.setText(QStringLiteral("&Assessment"));
    button.setSecondLine(QStringLiteral("Out-Patient Request Entry (CASH)"));
    button.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&button));
    QSignalSpy clicks(&button, &QAbstractButton::clicked);
    tests::keys(button, QStringLiteral("<Enter><KeypadEnter><Space>"));
    EXPECT_EQ(clicks.size(), 3);
    tests::click(button);
    EXPECT_EQ(clicks.size(), 4);
    tests::keys(button, QStringLiteral("<Alt+A>"));
    EXPECT_EQ(clicks.size(), 5);
}

TEST(FlatButton, ShowsItsFocusAndItsChoice) {
    FlatButton button;
    button.setText(QStringLiteral("Results"));
    button.setShape(FlatButton::Shape::Tile);
    button.setCheckable(true);
    button.resize(button.sizeHint());
    const QImage plain = button.grab().toImage();
    EXPECT_FALSE(hasInk(plain, look::accent));
    button.setChecked(true);
    EXPECT_TRUE(hasInk(button.grab().toImage(), look::accent));
    button.setChecked(false);
    button.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&button));
    button.setFocus();
    EXPECT_TRUE(hasInk(button.grab().toImage(), look::accent));
}

} // namespace controls
