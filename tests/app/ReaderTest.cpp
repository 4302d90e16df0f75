// What a screen reader finds on every screen, and whether everybody can read it.
#include "platform/controls/grid/FlexGrid.h"
#include "platform/controls/list/ListView.h"
#include "platform/controls/look/Look.h"
#include "session/TestDoors.h"
#include "tests/app/ContrastCheck.h"
#include "tests/app/KeyCheck.h"
#include "tests/app/RoomCheck.h"
#include "tests/app/ScreenOpeners.h"
#include "tests/support/screens/LoggedOn.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QApplication>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRegularExpression>

#include <ostream>

namespace tests {

static void PrintTo(const ScreenOpener& opener, std::ostream* stream) {
    *stream << opener.screen;
}

} // namespace tests

namespace {

using controls::FlexGrid;

class HeardAndSeen : public tests::LoggedOn, public testing::WithParamInterface<tests::ScreenOpener> {
  protected:
    HeardAndSeen() { session::setProgramFolder(QStringLiteral(SCINTRA_SOURCE_DIR)); }
    ~HeardAndSeen() override { session::setProgramFolder({}); }
};

/// Its text is its name, and the first poll brings it.
const QStringList comesWithThePoll{QStringLiteral("menu::ClickLabel Label1")};

QString nameOf(const QObject& object) {
    return QString::fromLatin1(object.metaObject()->className()) + u' ' + object.objectName();
}

QString textOf(QAccessibleInterface* face, QAccessible::Text kind) {
    return face ? face->text(kind) : QString();
}

void expectGridsToGiveTheirCells(QWidget& window) {
    for (FlexGrid* grid : window.findChildren<FlexGrid*>()) {
        if (!grid->isVisible() || grid->Row() < grid->FixedRows())
            continue;
        QAccessibleInterface* face = QAccessible::queryAccessibleInterface(grid);
        ASSERT_TRUE(face && face->tableInterface());
        const int firstColumn = grid->FixedRows() > 0 && grid->FixedCols() > 0 ? 1 : 0;
        for (int column = firstColumn; column < grid->Cols(); ++column) {
            const int row = grid->Row();
            QAccessibleInterface* cell =
                face->tableInterface()->cellAt(row - grid->FixedRows(), column - firstColumn);
            ASSERT_TRUE(cell && cell->tableCellInterface()) << grid->objectName().toStdString();
            if (grid->cellIconName(row, column).isEmpty()) {
                // as it is shown: a date without what no clerk reads
                const QModelIndex place = grid->model()->index(row - grid->FixedRows(), column - firstColumn);
                EXPECT_EQ(textOf(cell, QAccessible::Name), place.data().toString());
            } else {
                EXPECT_FALSE(textOf(cell, QAccessible::Name).isEmpty()) << "a picture without a word";
            }
            if (grid->FixedRows() == 0)
                continue;
            const auto headers = cell->tableCellInterface()->columnHeaderCells();
            ASSERT_EQ(headers.size(), 1);
            EXPECT_EQ(textOf(headers.front(), QAccessible::Name), grid->TextMatrix(0, column).trimmed());
        }
    }
}

void expectListsToGiveTheirCells(QWidget& window) {
    for (auto* list : window.findChildren<controls::ListView*>()) {
        if (!list->isVisible() || list->Count() == 0)
            continue;
        QAccessibleInterface* face = QAccessible::queryAccessibleInterface(list);
        ASSERT_TRUE(face && face->tableInterface());
        const controls::ListItem& first = list->Item(1);
        for (int column = 0; column < list->columnCount(); ++column) {
            QAccessibleInterface* cell = face->tableInterface()->cellAt(0, column);
            EXPECT_EQ(textOf(cell, QAccessible::Name), column == 0 ? first.Text() : first.SubItem(column));
            const auto headers = cell->tableCellInterface()->columnHeaderCells();
            ASSERT_EQ(headers.size(), 1);
            EXPECT_EQ(textOf(headers.front(), QAccessible::Name), list->headerItem()->text(column));
        }
        if (!first.Icon().isEmpty()) {
            EXPECT_FALSE(textOf(face->tableInterface()->cellAt(0, 0), QAccessible::Description).isEmpty())
                << first.Icon().toStdString();
        }
    }
}

/// A colour is never the only sign: beside it a cell of the row is bold or has a picture.
void expectNoColourToSpeakAlone(QWidget& window) {
    for (const FlexGrid* grid : window.findChildren<FlexGrid*>()) {
        const QAbstractItemModel& cells = *grid->model();
        for (int row = 0; row < cells.rowCount(); ++row) {
            bool isColoured = false, isMarked = false;
            for (int column = 0; column < cells.columnCount(); ++column) {
                if (grid->columnWidth(column) == 0)
                    continue; // nobody sees its picture
                const QModelIndex cell = cells.index(row, column);
                isColoured = isColoured || cell.data(Qt::ForegroundRole).isValid();
                isMarked =
                    isMarked || cell.data(Qt::FontRole).isValid() || cell.data(Qt::DecorationRole).isValid();
            }
            EXPECT_TRUE(!isColoured || isMarked) << nameOf(*grid).toStdString() << " line " << row + 1;
        }
    }
}

/// Buttons with a picture or dots in place of a word, and no tool tip that says what they do.
QStringList wordlessButtons(const QWidget& window) {
    QStringList names;
    for (const auto* button : window.findChildren<QAbstractButton*>()) {
        const QString text = button->text();
        const bool hasWord =
            std::any_of(text.begin(), text.end(), [](QChar letter) { return letter.isLetterOrNumber(); });
        if (button->isVisible() && !hasWord && !tests::isInnerPart(*button) && button->toolTip().isEmpty())
            names << nameOf(*button);
    }
    return names;
}

TEST_P(HeardAndSeen, ByEverybody) {
    GetParam().open([&](QWidget& window) {
        const QStringList nameless =
            std::string_view(GetParam().screen) == "frmMainMenu" ? comesWithThePoll : QStringList();
        tests::turnAllPages(window, [&] {
            EXPECT_EQ(tests::withoutAName(window), nameless);
            EXPECT_EQ(wordlessButtons(window), QStringList());
            EXPECT_EQ(tests::faintTexts(window).join(u'\n').toStdString(), "");
        });
        expectGridsToGiveTheirCells(window);
        expectListsToGiveTheirCells(window);
        expectNoColourToSpeakAlone(window);
    });
}

INSTANTIATE_TEST_SUITE_P(Reader, HeardAndSeen, testing::ValuesIn(tests::screenOpeners()),
                         [](const auto& opener) { return std::string(opener.param.screen); });

// ---- the sheet

/// The ground that a label, a field or a chosen row may have under a text without one of its own.
TEST(Sheet, EveryPairOfTextAndGroundStandsOut) {
    static const QRegularExpression rule(QStringLiteral("([^{}]+)\\{([^}]*)\\}"));
    static const QRegularExpression text(QStringLiteral("(?<![-\\w])color:\\s*(#[0-9A-Fa-f]{6})"));
    static const QRegularExpression ground(QStringLiteral("(?<![-\\w])background:\\s*(#[0-9A-Fa-f]{6})"));
    static const QRegularExpression chosenText(QStringLiteral("selection-color:\\s*(#[0-9A-Fa-f]{6})"));
    static const QRegularExpression chosen(
        QStringLiteral("selection-background-color:\\s*(#[0-9A-Fa-f]{6})"));
    QString sheet = qApp->styleSheet();
    sheet.remove(
        QRegularExpression(QStringLiteral("/\\*.*?\\*/"), QRegularExpression::DotMatchesEverythingOption));
    int pairs = 0;
    auto rules = rule.globalMatch(sheet);
    while (rules.hasNext()) {
        const QRegularExpressionMatch one = rules.next();
        const QString body = one.captured(2);
        const std::pair<QString, QString> found[] = {
            {text.match(body).captured(1), ground.match(body).captured(1)},
            {chosenText.match(body).captured(1), chosen.match(body).captured(1)}};
        for (const auto& [color, under] : found) {
            if (color.isEmpty() || under.isEmpty())
                continue;
            ++pairs;
            EXPECT_GE(tests::contrast(QColor(color), QColor(under)), tests::leastContrast)
                << one.captured(1).simplified().toStdString() << " " << color.toStdString() << " on "
                << under.toStdString();
        }
    }
    EXPECT_GE(pairs, 10);
}

TEST(Sheet, NamedColoursStandOutWhereTheyAreUsed) {
    using namespace controls::look;
    const std::pair<const char*, std::pair<QColor, QList<QColor>>> used[] = {
        {"ink", {ink, {page, card, stripe, header, accentSoft, accentPressed, hover, readOnly, inquiry}}},
        {"muted", {muted, {page, card, stripe, header, accentSoft, hover, readOnly}}},
        {"accent", {accent, {card, page}}},
        {"accentDark", {accentDark, {page, card, header, accentSoft, accentPressed}}},
        {"warn", {warn, {page, card, stripe, header, accentSoft, accentPressed}}},
        {"danger", {danger, {page, card, stripe, header, accentSoft, accentPressed}}},
        {"ok", {ok, {page, card, stripe, header, accentSoft}}},
        {"card", {card, {accent, accentDark, ink, marked}}},
    };
    for (const auto& [name, pairs] : used) {
        for (const QColor& ground : pairs.second)
            EXPECT_GE(tests::contrast(pairs.first, ground), tests::leastContrast)
                << name << " on " << ground.name().toStdString();
    }
}

// ---- the checks themselves

TEST(Contrast, IsThatOfTheLuminances) {
    EXPECT_NEAR(tests::contrast(Qt::black, Qt::white), 21.0, 0.01);
    EXPECT_NEAR(tests::contrast(Qt::white, Qt::white), 1.0, 0.01);
    EXPECT_NEAR(tests::contrast(QColor("#777777"), Qt::white), 4.48, 0.01);
}

TEST(Contrast, AFaintTextIsFound) {
    QWidget window;
    window.resize(300, 100);
    QLabel label("Patient", &window);
    label.setObjectName("lblPatient");
    label.setGeometry(10, 10, 100, 30);
    window.show();
    QCoreApplication::processEvents();
    EXPECT_EQ(tests::faintTexts(window), QStringList());
    label.setStyleSheet("color: #B0B0B0");
    QCoreApplication::processEvents();
    EXPECT_EQ(tests::faintTexts(window).size(), 1);
    label.setStyleSheet("color: #1F2A33; background: #404040");
    QCoreApplication::processEvents();
    EXPECT_EQ(tests::faintTexts(window).size(), 1) << "on what is painted under it";
}

TEST(Names, AFieldWithoutOneIsFound) {
    QWidget window;
    window.resize(300, 100);
    QLineEdit field(&window);
    field.setObjectName("txtPName");
    window.show();
    QCoreApplication::processEvents();
    EXPECT_EQ(tests::withoutAName(window), QStringList{"QLineEdit txtPName"});
    QLabel label("&Patient", &window);
    label.setBuddy(&field);
    label.show();
    EXPECT_EQ(tests::withoutAName(window), QStringList());
}

} // namespace
