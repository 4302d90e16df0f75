#pragma once

#include "platform/controls/list/ListScreen.h"
#include "session/Screens.h"

#include <memory>

namespace Ui {
class frmAssessmentStatus;
}

namespace controls {
class ListItem;
}

namespace revocation {

/// What became of the cash assessments: paid, waiting, revoked. Revokes one that is not paid and prints the
/// slip of one again.
class frmAssessmentStatus : public controls::ListScreen {
    Q_OBJECT

  public:
    explicit frmAssessmentStatus(QWidget* parent = nullptr);
    ~frmAssessmentStatus() override;

    /// Looked for behind loading, as if its user had: the patient, and the first line of the assessment.
    /// Without a number nothing is.
    session::SlipAgain wanted;

  protected:
    void Form_Load() override;
    void search() override;
    /// An assessment was taken: prints.
    void rowTaken() override;

  private:
    void LoadAssessments(const QString& searchText);
    void addItem(ado::Recordset& row, int number);
    void findWanted();
    void btnCancel_Click();
    void dumpItem(const controls::ListItem& item) const;
    controls::ListItem* chosen();

    std::unique_ptr<Ui::frmAssessmentStatus> m_ui;
};

} // namespace revocation
