#pragma once

#include "platform/controls/list/ListScreen.h"

#include <memory>

namespace Ui {
class frmCancelRequest;
}

namespace revocation {

class frmCancellation;

/// Finds the charged requests that can be cancelled and gives one to frmCancellation. A cancellation ends
/// this screen as well: opened by openCancelRequest() it comes up anew, with the text that was searched for.
class frmCancelRequest : public controls::ListScreen {
    Q_OBJECT

  public:
    explicit frmCancelRequest(QWidget* parent = nullptr);
    ~frmCancelRequest() override;

    /// Slip of the request that was chosen last; it stays where none was found.
    QString RefNum;

    QString searchText() const;
    void setSearchText(const QString& text);
    /// Reads the request and its lines, and fills the screen with them.
    void handOver(frmCancellation& cancellation, const QString& requestNumber);
    /// A cancellation came to its end on top of this screen, whether or not anything was reversed.
    bool wantsReopening() const { return m_wantsReopening; }

  protected:
    void Form_Load() override;
    void search() override;
    void rowTaken() override;

  private:
    void FormatGrid() { layOutGrid(); }
    void fillHeader(frmCancellation& cancellation, const QString& requestNumber);
    void fillLines(frmCancellation& cancellation, const QString& requestNumber);

    std::unique_ptr<Ui::frmCancelRequest> m_ui;
    bool m_wantsReopening = false;
};

/// Shows the search modally, anew after each cancellation. The text that was searched for last stays in the
/// instance that the next opening shows.
void openCancelRequest();

} // namespace revocation
