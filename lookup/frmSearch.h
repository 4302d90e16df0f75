#pragma once

#include "platform/ado/Statement.h"
#include "platform/controls/list/ListScreen.h"

#include <memory>

namespace Ui {
class frmSearch;
}

namespace lookup {

/// The list of codes that resemble a text. The caller sets SearchCaption, Criteria and Query, shows the
/// screen and reads Valid and ResultCode.
class frmSearch : public controls::ListScreen {
    Q_OBJECT

  public:
    explicit frmSearch(QWidget* parent = nullptr);
    ~frmSearch() override;

    QString SearchCaption;
    QString Criteria;
    /// Holds "##" where the search text goes.
    ado::QueryTemplate Query;
    /// True: nothing is searched until the user asks for it.
    bool DisableSearch = false;

    /// The chosen code, column 2 of its row; "" when none was chosen.
    QString ResultCode;
    bool Valid = false;

  protected:
    void Form_Load() override;
    void search() override;
    void searchEntered() override;
    void rowTaken() override;
    void leave() override;

  private:
    void txtSearchStr_Change();
    void grdDispWindow_RowColChange();

    std::unique_ptr<Ui::frmSearch> m_ui;
    /// True while rows are bound or the text comes from the grid: neither is the user's own change.
    bool m_settling = false;
    /// The text was changed since the list was read for it.
    bool m_textChanged = false;
};

} // namespace lookup
