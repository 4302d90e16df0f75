#pragma once

#include "results/ResultScreen.h"

#include <memory>

namespace Ui {
class frmResultEntry;
}

namespace results {

/// The imaging report of an examination: technical data and the physician's free text.
class frmResultEntry : public ResultScreen {
    Q_OBJECT

  public:
    explicit frmResultEntry(QWidget* parent = nullptr);
    ~frmResultEntry() override;

  private:
    std::unique_ptr<Ui::frmResultEntry> m_ui;
};

} // namespace results
