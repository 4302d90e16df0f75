#pragma once

#include "platform/ado/Statement.h"
#include "platform/controls/Screen.h"

#include <memory>

class QKeyEvent;

namespace ado {
class Recordset;
}

namespace Ui {
class frmSearch;
}

namespace lookup {

/// The list of codes that resemble a text. The caller sets SearchCaption, Criteria and Query, shows the screen and
/// reads Valid and ResultCode.
class frmSearch : public controls::Screen {
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

    /// The chosen code, column 2 of the row; "" when none was chosen.
    QString ResultCode;
    bool Valid = false;

  protected:
    void Form_Load() override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void txtSearchStr_Change();
    void txtSearchStr_Return();
    void grdDispWindow_RowColChange();
    void cmdSelect_Click();
    void cmdCancel_Click();
    void runQuery();

    std::unique_ptr<Ui::frmSearch> m_ui;
    /// True while rows are bound or the text is copied out of the grid: such a change is not the user's.
    bool m_settling = false;
};

} // namespace lookup
