#include "platform/controls/look/Look.h"

#include "platform/controls/grid/FlexGrid.h"
#include "platform/controls/list/ListView.h"
#include "platform/controls/look/FlatButton.h"
#include "platform/controls/look/HeaderBand.h"
#include "platform/controls/look/LineDrawing.h"
#include "tests/support/screens/Driver.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QHelpEvent>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPainter>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QSpinBox>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <QToolButton>
#include <QToolTip>
#include <QTreeView>
#include <QVBoxLayout>

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

TEST(Look, EveryDrawingHoldsOnlyWhatIsDrawn) {
    const QDir drawings(QStringLiteral(":/scintra/icons"));
    EXPECT_GT(drawings.entryList().size(), 70);
    for (const QString& name : drawings.entryList()) {
        QFile file(drawings.filePath(name));
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        const QByteArray drawing = file.readAll();
        QImage image(48, 48, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::transparent);
        QPainter painter(&image);
        EXPECT_TRUE(paintDrawing(painter, image.rect(), drawing, look::ink)) << name.toStdString();
        painter.setTransform({});
        EXPECT_FALSE(paintDrawing(painter, image.rect(), QByteArray(drawing).replace("svg>", "text/></svg>"),
                                  look::ink))
            << name.toStdString();
    }
}

TEST(Look, EachSignOfTheStyleSheetIsDrawn) {
    const QString sheet = qApp->styleSheet();
    int signs = 0;
    for (qsizetype at = sheet.indexOf("url("); at >= 0; at = sheet.indexOf("url(", at + 1), ++signs) {
        const QString file = sheet.mid(at + 4, sheet.indexOf(u')', at) - at - 4);
        const QImage image = QIcon(file).pixmap(QSize(32, 32), 2.0).toImage();
        EXPECT_EQ(image.size(), QSize(64, 64)) << file.toStdString();
        EXPECT_TRUE(hasInk(image, QColor("#FFFFFF")) || hasInk(image, look::muted) ||
                    hasInk(image, QColor("#93A0AB")))
            << file.toStdString();
    }
    EXPECT_EQ(signs, 6);
}

TEST(PathOf, ReadsWhatDrawingsAreMadeOf) {
    const auto box = [](const char* data) { return pathOf(data).boundingRect(); };
    EXPECT_EQ(box("M1 2H4V6h-3z"), QRectF(1, 2, 3, 4));
    EXPECT_EQ(box("m1 2 3 0v4l-3,0"), QRectF(1, 2, 3, 4));
    EXPECT_EQ(pathOf("M1.5.5L-1-2").currentPosition(), QPointF(-1, -2)) << "numbers need no blank between";
    EXPECT_EQ(pathOf("M1 1l1 1zl2 0").currentPosition(), QPointF(3, 1)) << "closed: back at its beginning";
    EXPECT_EQ(pathOf("M0 0C0 1 1 2 2 2S4 1 4 0").currentPosition(), QPointF(4, 0));
    EXPECT_EQ(pathOf("M0 0c0 1 1 2 2 2s2-1 2-2"), pathOf("M0 0C0 1 1 2 2 2C3 2 4 1 4 0"));
    EXPECT_EQ(pathOf("M0 0L2 2S4 1 4 0"), pathOf("M0 0L2 2C2 2 4 1 4 0")) << "no curve before it";
}

TEST(PathOf, TakesTheArcThatIsMeant) {
    // from the left end of a circle of radius 5 around (5, 0) or so, the four ways to a point of it
    const auto box = [](const char* data) { return pathOf(data).boundingRect().toRect(); };
    EXPECT_EQ(box("M0 0A5 5 0 0 1 5-5"), QRect(0, -5, 5, 5));
    EXPECT_EQ(box("M0 0A5 5 0 1 0 5-5"), QRect(0, -5, 10, 10));
    EXPECT_EQ(box("M0 0a5 5 0 0 0 5-5"), QRect(0, -5, 5, 5));
    EXPECT_EQ(box("M0 0a5 5 0 1 1 5-5"), QRect(-5, -10, 10, 10));
    EXPECT_EQ(box("M0 0a1 1 0 0 1 10 0"), QRect(0, -5, 10, 5)) << "radii that do not reach grow";
    EXPECT_LT(QLineF(pathOf("M3 4a4.3 4.3 0 0 0-5.6 5.3").currentPosition(), QPointF(-2.6, 9.3)).length(),
              1e-9);
}

TEST(PathOf, IsEmptyForWhatItDoesNotKnow) {
    for (const char* data : {"M0 0Q1 1 2 2", "M0 0L1", "M0 0A5 5 30 0 1 5 5", "M0 0L1 1?", "1 2", ""})
        EXPECT_TRUE(pathOf(data).isEmpty()) << data;
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

TEST(Look, NothingIsDeletedWhereAFileIsSaved) {
    const QTemporaryDir folder;
    const QDir inside(folder.filePath(QStringLiteral("ours")));
    ASSERT_TRUE(inside.mkpath(QStringLiteral("deeper")));
    QFileDialog dialog(nullptr, QStringLiteral("Export"), folder.path());
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setOption(QFileDialog::DontUseNativeDialog);
    dialog.setViewMode(QFileDialog::Detail);
    dialog.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog));
    auto* list = dialog.findChild<QTreeView*>(QStringLiteral("treeView"));
    ASSERT_TRUE(list);
    ASSERT_TRUE(QTest::qWaitFor([list] { return list->model()->rowCount(list->rootIndex()) == 1; }));
    QTimer answer; // yes to whatever is asked
    QObject::connect(&answer, &QTimer::timeout, &answer, [] {
        if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget()))
            QTest::keyClick(box->button(QMessageBox::Yes), Qt::Key_Space);
    });
    answer.start(0);
    list->setFocus();
    list->setCurrentIndex(list->model()->index(0, 0, list->rootIndex()));
    QTest::keyClick(list, Qt::Key_Delete);
    EXPECT_TRUE(inside.exists(QStringLiteral("deeper")));
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

TEST(HeaderBand, AnEllipsisAndAToolTipSayThatANameIsLonger) {
    HeaderBand band;
    band.setChips({QStringLiteral("Adm. 26004078"), QStringLiteral("Hosp. 104078")});
    const auto picture = [&](const QString& name) {
        band.setSubtitle(name);
        return band.grab().toImage();
    };
    const QString name = QStringLiteral("MONTEFALCO-SANTIAGO, DIVINA GRACIA");
    const auto toolTip = [&] {
        QToolTip::showText(QPoint(), QStringLiteral("of another")); // hiding takes its time
        auto& line = tests::child<QLabel>(band, "bandSubtitle");
        QHelpEvent asks(QEvent::ToolTip, QPoint(5, 5), line.mapToGlobal(QPoint(5, 5)));
        QCoreApplication::sendEvent(&line, &asks);
        return QToolTip::text();
    };
    band.resize(900, 61);
    band.show();
    EXPECT_NE(picture(name), picture(name + QStringLiteral(" MARIA")));
    EXPECT_EQ(toolTip(), "of another");
    band.resize(400, 61);
    QCoreApplication::processEvents();
    EXPECT_EQ(picture(name), picture(name + QStringLiteral(" MARIA")));
    band.setSubtitle(name);
    EXPECT_EQ(toolTip(), name);
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

namespace {

/// How many rows of pixels at the upper edge of a control are of that colour, in its middle.
int rowsAtTheEdge(QWidget& control, const QColor& color) {
    const QImage image = control.grab().toImage();
    int rows = 0;
    while (rows < image.height() && image.pixelColor(image.width() / 2, rows) == color)
        ++rows;
    return rows;
}

template <typename Control>
Control& put(QWidget& window) {
    auto* control = new Control(&window);
    window.layout()->addWidget(control);
    return *control;
}

} // namespace

TEST(FocusMark, IsTheSameTwoPixelsOnEveryControlAndMovesNothing) {
    QWidget window;
    new QVBoxLayout(&window);
    auto& first = put<QLineEdit>(window);
    auto& grid = put<FlexGrid>(window);
    auto& view = put<ListView>(window);
    view.AddItem({}, QStringLiteral("an item that reaches to the frame at either side of the list"));
    auto& memo = put<QPlainTextEdit>(window);
    QWidget* const controls[] = {&put<QLineEdit>(window),
                                 &put<QComboBox>(window),
                                 &put<QSpinBox>(window),
                                 &put<QCheckBox>(window),
                                 &put<QPushButton>(window),
                                 &put<QToolButton>(window),
                                 &put<FlatButton>(window),
                                 &grid,
                                 &view,
                                 &memo};
    window.resize(500, 900);
    window.show();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    for (QWidget* control : controls) {
        const char* kind = control->metaObject()->className();
        first.setFocus();
        EXPECT_EQ(rowsAtTheEdge(*control, look::accent), 0) << kind;
        const auto* area = qobject_cast<QAbstractScrollArea*>(control);
        const QRect before = area ? area->viewport()->geometry() : QRect();
        control->setFocus();
        ASSERT_TRUE(control->hasFocus()) << kind;
        EXPECT_EQ(rowsAtTheEdge(*control, look::accent), 2) << kind;
        EXPECT_EQ(area ? area->viewport()->geometry() : QRect(), before) << kind;
        if (!area)
            continue;
        // The rows of a list do not lie over its frame.
        const QImage image = control->grab().toImage();
        for (const int x : {0, 1, image.width() - 2, image.width() - 1})
            EXPECT_EQ(image.pixelColor(x, image.height() / 2), look::accent) << kind << " at " << x;
    }
}

TEST(FocusMark, OfACardThatIsChosenIsNotItsChoice) {
    QWidget window;
    new QVBoxLayout(&window);
    auto& field = put<QLineEdit>(window);
    auto& card = put<FlatButton>(window);
    card.setCheckable(true);
    card.setChecked(true);
    window.show();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    field.setFocus();
    EXPECT_EQ(rowsAtTheEdge(card, look::accent), 1);
    card.setFocus();
    EXPECT_EQ(rowsAtTheEdge(card, look::accent), 2);
}

TEST(FocusMark, OfThePrimaryCommandIsSeenOnItsColour) {
    QWidget window;
    new QVBoxLayout(&window);
    auto& field = put<QLineEdit>(window);
    auto& save = put<QPushButton>(window);
    look::setPrimary(&save);
    window.show();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    field.setFocus();
    EXPECT_FALSE(hasInk(save.grab().toImage(), look::card)) << "it has no caption";
    save.setFocus();
    EXPECT_TRUE(hasInk(save.grab().toImage(), look::card));
}

} // namespace controls
