#pragma once

#include "platform/ado/Recordset.h"
#include "platform/controls/fields/KeyFilter.h"
#include "platform/controls/screen/Screen.h"

#include <QStringList>

#include <memory>
#include <span>

class QAbstractButton;
class QComboBox;
class QLabel;
class QPushButton;

namespace controls {

class FlexGrid;
class ListKeys;
class ListView;

/// Where list screens differ in what all of them do. Texts and widths must live as long as the program.
struct ListVariant {
    /// What a search that finds nothing does with the rows of the one before.
    enum class NothingFound { ClearsRows, KeepsRows };
    /// When the command that takes a row can be pressed.
    enum class Selectable {
        WithRows,  ///< while the list holds rows
        OnceFound, ///< from the first search on that found some; never disabled again
        AsItStands ///< the list leaves it alone
    };
    /// What takes the current row although the list holds none.
    enum class EmptyRow {
        Nothing,
        NotEnter, ///< the command and a double click do
        Anything
    };

    const char* format = nullptr;     ///< FormatString of the grid; null: the result's own names
    std::span<const int> widths = {}; ///< of its columns from 0 on, in twips; beyond the format they add some
    const char* one = "row";          ///< what a row is, for the line that counts them
    const char* many = "rows";
    const char* emptyText = nullptr; ///< the sentence of a list that a search left empty
    int most = 0;                    ///< rows that the server gives at most; 0: all there are
    /// Said of a list of that many; "%1" is the number.
    const char* moreText = "Only the first %1 are shown: type more of the name.";
    NothingFound nothingFound = NothingFound::ClearsRows;
    Selectable selectable = Selectable::WithRows;
    EmptyRow emptyRow = EmptyRow::Nothing;
    KeyRules searchRules = KeyRule::UpperCase | KeyRule::BackQuote;
};

/// A screen with a list of rows, most often found by a text, to do something with one of them. Enter in the
/// search box reads the list, Enter or a double click on a row takes it, Escape leaves; the keys are those of
/// ListKeys; the search box has a letter of its own. Before the first search the empty list says what Enter
/// does. A leaf makes its controls, calls setUpList(), and says how the list is read and what a row that was
/// taken does. When it reads is the leaf's own: at the end of Form_Load, on Enter, after each command.
class ListScreen : public Screen {
    Q_OBJECT

  public:
    ~ListScreen() override;

  protected:
    /// The controls of a list; those that a screen has none of are null. They belong to the screen. The rows
    /// stand in the grid or in the list view; a list view is laid out and filled by the leaf, which tells
    /// setHits() and asks the view for the item that was taken.
    struct Parts {
        FlexGrid* grid = nullptr;
        ListView* view = nullptr;
        QLineEdit* search = nullptr;
        QComboBox* searchBy = nullptr;   ///< a choice here goes back to the search box
        QAbstractButton* find = nullptr; ///< does what Enter in the search box does
        QPushButton* select = nullptr;   ///< takes the current row; the screen's primary command
        QAbstractButton* close = nullptr;
        QLabel* hits = nullptr; ///< counts the rows
    };

    explicit ListScreen(QWidget* parent);
    /// Once, in the leaf's constructor. The variant must outlive the screen.
    void setUpList(const Parts& parts, const ListVariant& variant);

    /// Lays the list out, empty, and gives the search box the focus.
    void Form_Load() override;

    /// Reads the list anew: bindRows() or setHits().
    virtual void search() {}
    /// Enter in the search box: reads, and goes back to the box.
    virtual void searchEntered();
    /// The current row was taken. Not called again before it returns, however often the user asks.
    virtual void rowTaken() {}
    /// The command that leaves.
    virtual void leave();

    /// Binds the rows, as the variant wants it, counts them and closes the result. Gives their number.
    int bindRows(ado::Recordset& rows);
    /// The list holds that many rows now; for one that the leaf fills itself.
    void setHits(int found);
    /// Rows that the list holds.
    int hits() const;
    /// Empties the grid and gives it the variant's headers and widths.
    void layOutGrid();
    /// The variant's widths alone, again: a bound result and the user's mouse change them.
    void setWidths();
    /// Takes the current row, as the command does.
    void takeRow();
    /// The focus to the search box, all of its text selected; to the list when there is none.
    void backToSearch();

    /// Text of the current row.
    QString cell(int column) const;
    /// All texts of the current row, the leading one included.
    QStringList currentCells() const;

  private:
    void connectList();
    void countRows(int found);
    void sayInEmptyList(const QString& sentence);
    void takeRowIf(bool mayBeEmpty);

    Parts m_parts;
    const ListVariant* m_variant = nullptr;
    std::unique_ptr<ListKeys> m_keys;
    bool m_taking = false;
};

} // namespace controls
