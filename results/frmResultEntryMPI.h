#pragma once

#include "results/ResultScreen.h"

#include <array>
#include <memory>

namespace Ui {
class frmResultEntryMPI;
}

namespace results {

class CellEntry;

/// A row of grdTable, from row 1 on.
struct FunctionalParameter {
    const char* caption;
    const char* column; ///< holds resting and stress value, parted by "|"
};

inline constexpr std::array functionalParameters{
    FunctionalParameter{"  Ejection Fraction", "fraction"},
    FunctionalParameter{"  EDV", "edv"},
    FunctionalParameter{"  ESV", "esv"},
    FunctionalParameter{"  SV", "sv"},
    FunctionalParameter{"  Wall Motion", "wallmotion"},
};

/// The result of a myocardial perfusion study.
class frmResultEntryMPI : public ResultScreen {
    Q_OBJECT

  public:
    explicit frmResultEntryMPI(QWidget* parent = nullptr);
    ~frmResultEntryMPI() override;

    /// Shows a stored pair in row 1 to 5 of grdTable: what stands before the first "|" is the resting value,
    /// what stands before the next one the stress value.
    void setParameter(int row, const QString& stored);

  protected:
    void Form_Load() override;
    QString argument(const char* from) const override;

  private:
    std::unique_ptr<Ui::frmResultEntryMPI> m_ui;
    CellEntry* m_entry = nullptr;
};

} // namespace results
