#pragma once

#include "results/ResultScreen.h"

#include <array>
#include <memory>

namespace Ui {
class frmResultEntryGFR;
}

namespace results {

/// One line of the measurement table: txtLeft_i and txtRight_i.
struct MeasurementLine {
    const char* caption;
    const char* leftColumn;
    const char* rightColumn;
};

inline constexpr std::array measurementLines{
    MeasurementLine{"KIDNEY AREA (cm^2)", "Left1", "Right1"},
    MeasurementLine{"KIDNEY DEPTH (cm)", "Left2", "Right2"},
    MeasurementLine{"PERFUSION INDEX", "Left3", "Right3"},
    MeasurementLine{"PERFUSION %  (Int) ", "Left4", "Right4"},
    MeasurementLine{"PERFUSION % (Slo)", "Left5", "Right5"},
    MeasurementLine{"UPTAKE % (Int)", "Left6", "Right6"},
    MeasurementLine{"GFR", "Left7", "Right7"},
};

/// The result of a renal study. Nothing is computed: every figure is kept as it was typed.
class frmResultEntryGFR : public ResultScreen {
    Q_OBJECT

  public:
    explicit frmResultEntryGFR(QWidget* parent = nullptr);
    ~frmResultEntryGFR() override;

  private:
    std::unique_ptr<Ui::frmResultEntryGFR> m_ui;
};

} // namespace results
