#pragma once

#include "platform/ado/Statement.h"
#include "platform/controls/screen/Screen.h"

#include <memory>

namespace Ui {
class ResultPicker;
}

namespace lookup {
class PickerKeys;
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
class ResultPicker : public controls::Screen {
    Q_OBJECT

  public:
    ~ResultPicker() override;

    /// "R" enters, views and edits results, "C" revokes them. Set before the screen is shown.
    QString FormMode;

  protected:
    ResultPicker(const PickerVariant& variant, QWidget* parent);

    void Form_Load() override;

  private:
    void FormatGrid();
    void txtSearch_Return();
    void cmdSelect_Click();
    void openRequests();

    const PickerVariant& m_variant;
    std::unique_ptr<Ui::ResultPicker> m_ui;
    std::unique_ptr<lookup::PickerKeys> m_keys;
    /// A choice is being dealt with: a second Enter or double click does nothing meanwhile.
    bool m_selecting = false;
};

} // namespace results
