#pragma once

#include "platform/ado/Statement.h"
#include "platform/controls/list/ListScreen.h"

#include <memory>

namespace Ui {
class ResultPicker;
}

namespace results {

/// Where the two doors to the results differ.
struct PickerVariant {
    const char* name;
    const char* caption;
    const char* subtitle;
    const char* subtitleToRevoke;
    ado::Statement (*search)(const QString& text);
    ado::Statement (*requests)(const QString& hospitalCode);
    /// What frmResult is given for the mode of the door.
    QString (*passedMode)(const QString& formMode);
};

/// Finds the patient whose requests frmResult then lists. It stays open behind that, with its list as it was.
class ResultPicker : public controls::ListScreen {
    Q_OBJECT

  public:
    ~ResultPicker() override;

    /// "R" enters, views and edits results, "C" revokes them. Set before the screen is shown.
    QString FormMode;

  protected:
    ResultPicker(const PickerVariant& variant, QWidget* parent);

    void Form_Load() override;
    void search() override;
    void rowTaken() override;

  private:
    void openRequests();

    const PickerVariant& m_variant;
    std::unique_ptr<Ui::ResultPicker> m_ui;
};

} // namespace results
