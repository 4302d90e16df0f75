#pragma once

#include "results/ResultScreen.h"

#include <array>
#include <memory>

namespace Ui {
class frmResultRadioImmuno;
}

namespace results {

/// One analyte: txtNormal_i and txtLeft_i.
struct Analyte {
    const char* caption;
    const char* column;
};

/// The first so many analytes stand on "PART 1", the others on "PART 2".
inline constexpr int analytesOfPart1 = 11;

inline constexpr std::array analytes{
    Analyte{"Calcitonin", "Calcitonin"},
    Analyte{"Anti-TG", "AntiTG"},
    Analyte{"TG (Thyroglobulin)", "TG"},
    Analyte{"Anti-TPO (Thyroid Peroxidas)", "AntiTPO"},
    Analyte{"TSH (Thyroid Stimulating Hormone)", "TSH"},
    Analyte{"Free T4", "FreeT4"},
    Analyte{"Free T3", "FreeT3"},
    Analyte{"T4", "T4"},
    Analyte{"T3", "T3"},
    Analyte{"Progesterone", "Progesterone"},
    Analyte{"Cortisol", "Cortisol"},
    Analyte{"DHEA-S04 (Dehydroepiadrosterone)", "DHEA"},
    Analyte{"hGH (Growth Hormone)", "HGH"},
    Analyte{"hLH (Luteinizing Hormone)", "HLH"},
    Analyte{"hFSH (Follicle Stimulating Hormone)", "HFSH"},
    Analyte{"AFP (Alpha Fetoprotein", "AFP"},
    Analyte{"bHCG (Beta Human Chorionic Gonadotropin)", "BHCG"},
    Analyte{"PSA (Prostate Specific Antigen", "PSA"},
    Analyte{"Osteocalcin", "Osteocalcin"},
    Analyte{"C-Peptide", "CPeptide"},
    Analyte{"SHBG (Sex Hormone Binding Globulin)", "SHBG"},
    Analyte{"Insulin", "Insulin"},
};

/// Assays by radio-immunoassay. The boxes hold free text; nothing is computed or compared.
class frmResultRadioImmuno : public ResultScreen {
    Q_OBJECT

  public:
    explicit frmResultRadioImmuno(QWidget* parent = nullptr);
    ~frmResultRadioImmuno() override;

  private:
    std::unique_ptr<Ui::frmResultRadioImmuno> m_ui;
};

} // namespace results
