#include "results/ResultCommands.h"

#include "ui_ResultCommands.h"

namespace results {

ResultCommands::ResultCommands(QWidget* parent) : QWidget(parent) {
    Ui::ResultCommands ui;
    ui.setupUi(this);
}

} // namespace results
