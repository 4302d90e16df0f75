#pragma once

#include "platform/controls/screen/Screen.h"

#include <memory>

namespace Ui {
class frmNuclearChargesBuildFile_items;
}

namespace charges {

/// The fields of a package's items. Nothing opens it, and nothing in it acts.
class frmNuclearChargesBuildFile_items : public controls::Screen {
    Q_OBJECT

  public:
    explicit frmNuclearChargesBuildFile_items(QWidget* parent = nullptr);
    ~frmNuclearChargesBuildFile_items() override;

  private:
    std::unique_ptr<Ui::frmNuclearChargesBuildFile_items> m_ui;
};

} // namespace charges
