#pragma once

#include "platform/ado/Recordset.h"
#include "platform/controls/screen/Screen.h"
#include "session/services/PickListing.h"

#include <functional>
#include <memory>
#include <vector>

class QTimer;

namespace session {

namespace Ui {
class frmPickList;
}

/// The list that a service shows: type to filter, arrows move, Enter takes, Escape leaves.
class frmPickList : public controls::Screen {
    Q_OBJECT

  public:
    using Search = std::function<ado::Recordset(const QString& text)>;

    /// `listing` must outlive the screen.
    frmPickList(const PickListing& listing, Search search, QWidget* parent = nullptr);
    ~frmPickList() override;

    /// Before it is shown.
    void setSearchText(const QString& text);
    /// Before it is shown. Without one there is no column for it.
    void setPrice(PickPrice price) { m_price = std::move(price); }
    /// A row was chosen.
    bool Valid = false;
    /// The rows with the chosen one as current row. Once.
    ado::Recordset takeChosenRow() { return std::move(m_rows); }

  protected:
    void Form_Load() override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void layOutGrid();
    void find();
    void fillGrid();
    void fillCell(int row, int at, const PickColumn& column);
    QString cellText(const PickColumn& column);
    QString priceText();
    void sayHits();
    bool findWhatIsTyped();
    void cmdSelect_Click();
    bool moveInGrid(int key);
    int chosenRow() const;

    std::unique_ptr<Ui::frmPickList> m_ui;
    const PickListing& m_listing;
    Search m_search;
    PickPrice m_price;
    QTimer* m_pause;
    ado::Recordset m_rows;
    int m_count = 0;
    std::vector<PickColumn> m_columns; ///< those that are shown
};

} // namespace session
