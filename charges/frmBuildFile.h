#pragma once

#include "platform/controls/screen/Screen.h"

#include <array>
#include <memory>

class QLineEdit;
class QWidget;

namespace Ui {
class frmBuildFile;
}

namespace charges {

/// The department's exam file: all exams, and the one in hand, which is only looked at until New or Edit. It
/// has no properties.
class frmBuildFile : public controls::Screen {
    Q_OBJECT

  public:
    explicit frmBuildFile(QWidget* parent = nullptr);
    ~frmBuildFile() override;

  protected:
    void Form_Load() override;
    void keyPressEvent(QKeyEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    /// How the rates of an exam are shown.
    enum class Rates { AsNumbers, AsRead };
    /// What a command leaves of the screen.
    struct State;

    void setRules();
    void connectControls();

    void btnPrint_Click();
    void btnRefresh_Click();
    void btnNew_Click();
    void btnEdit_Click();
    void btnSave_Click();
    void btnCancel_Click();
    void grdExams_Click();
    bool grdExams_KeyDown(QKeyEvent& event);
    void txtSearch_Change();
    void txtDecription_Enter();

    void setState(const State& state);
    void setBrowsing(bool browsing);
    void showStatus(const char* status);

    void LoadExamList();
    void RefreshExams();
    void ShowExamDetails(const QString& code, Rates rates = Rates::AsNumbers);
    void clearDetails();
    QString currentCode() const;
    /// Makes the last row of that code the current one.
    void goToExam(const QString& code);

    /// Raises 6 when there is no number left.
    QString NextExamNumber() const;
    void insertExam();
    void updateExam();
    void SaveSectionId();
    QString rate(int index) const;
    QString activeLetter() const;
    QString medicareType() const;

    std::unique_ptr<Ui::frmBuildFile> m_ui;
    std::array<QLineEdit*, 5> m_rates;
    QString EntryMode;     ///< "" browsing, "N" adding, "E" editing
    QString SectionLetter; ///< what SaveSectionId writes
};

} // namespace charges
