#include "charges/frmNuclearChargesBuildFile_items.h"

#include "ui_frmNuclearChargesBuildFile_items.h"

namespace charges {

frmNuclearChargesBuildFile_items::frmNuclearChargesBuildFile_items(QWidget* parent)
    : Screen(parent), m_ui(std::make_unique<Ui::frmNuclearChargesBuildFile_items>()) {
    m_ui->setupUi(this);
}

frmNuclearChargesBuildFile_items::~frmNuclearChargesBuildFile_items() = default;

} // namespace charges
