#include "results/frmResultRadioImmuno.h"

#include "platform/controls/look/Look.h"
#include "results/BoxLine.h"
#include "results/TechnicalKeys.h"
#include "ui_frmResultRadioImmuno.h"

namespace results {

namespace {

constexpr std::array<Argument, 61> arguments{{
    {"txtHospNum", true},
    {"txtIdNum", true},
    {source::requestNum, true},
    {"txtCaseNum", true},
    {source::patientType, true},
    {"txtAttendingDrCode", true},
    {"txtRequestingDrCode", true},
    {source::itemCode},
    {"txtDose"},
    {"txtRadiopharmaceutical"},
    {"txtRoute"},
    {"txtProjections"},
    {"txtWeight"},
    {"txtHeight"},
    {source::encoder, true},
    {source::resultMoment},
    {"txtLeft_0"},
    {"txtLeft_1"},
    {"txtLeft_2"},
    {"txtLeft_3"},
    {"txtLeft_4"},
    {"txtLeft_5"},
    {"txtLeft_6"},
    {"txtLeft_7"},
    {"txtLeft_8"},
    {"txtLeft_9"},
    {"txtLeft_10"},
    {"txtLeft_11"},
    {"txtLeft_12"},
    {"txtLeft_13"},
    {"txtLeft_14"},
    {"txtLeft_15"},
    {"txtLeft_16"},
    {"txtLeft_17"},
    {"txtLeft_18"},
    {"txtLeft_19"},
    {"txtLeft_20"},
    {"txtLeft_20"}, // the box of SHBG once more; what stands in txtLeft_21 is never sent
    {"txtNormal_0"},
    {"txtNormal_1"},
    {"txtNormal_2"},
    {"txtNormal_3"},
    {"txtNormal_4"},
    {"txtNormal_5"},
    {"txtNormal_6"},
    {"txtNormal_7"},
    {"txtNormal_8"},
    {"txtNormal_9"},
    {"txtNormal_10"},
    {"txtNormal_11"},
    {"txtNormal_12"},
    {"txtNormal_13"},
    {"txtNormal_14"},
    {"txtNormal_15"},
    {"txtNormal_16"},
    {"txtNormal_17"},
    {"txtNormal_18"},
    {"txtNormal_19"},
    {"txtNormal_20"},
    {"txtNormal_21"},
    {"txtTechnologist"},
}};

constexpr ResultVariant variant{
    .save = {ado::StatementPattern<61>(
                 "sp_Nuclear_SaveResultRadio "
                 "'{}','{}','{}','{}','{}','{}','{}','{}','{}','{}','{}','{}','{}','{}',"
                 "'{}','{}',"
                 "'{}', '{}', '{}', '{}', '{}', '{}', '{}', '{}', '{}', '{}', '{}', "
                 "'{}', '{}', '{}', '{}', '{}', '{}', '{}', '{}', '{}', '{}', '{}', "
                 "'{}', '{}', '{}', '{}', '{}', '{}', '{}', '{}', '{}', '{}', '{}', "
                 "'{}', '{}', '{}', '{}', '{}', '{}', '{}', '{}', '{}', '{}', '{}', "
                 "'{}'"),
             arguments},
    .caseNumberCheck = "SELECT * FROM tbNucLogBook WHERE CaseNumber = '##' AND Status <> 'R'",
    .trimsCheckedNumber = true,
    .report = "NucResultRadio.rpt",
    .browse1 = {"txtAttendingDrCode", "txtAttendingDr"},
    .browse2 = {"txtRequestingDrCode", "txtRequestingDr"},
    .symbols = technical::fields,
    .backQuotes = technical::backQuotes,
    .enterMoves = technical::enterMoves,
    .enterLookups = technical::enterLookups,
    .cleared = technical::fields,
    .edited = technical::edited,
    .revocationIsTrapped = false,
};

} // namespace

frmResultRadioImmuno::frmResultRadioImmuno(QWidget* parent)
    : ResultScreen(variant, parent), m_ui(std::make_unique<Ui::frmResultRadioImmuno>()) {
    m_ui->setupUi(this);
    QWidget* last = m_ui->txtTechnologist;
    for (int i = 0; i < int(analytes.size()); ++i) {
        const bool isPart1 = i < analytesOfPart1;
        last =
            addBoxLine(isPart1 ? *m_ui->analytes1 : *m_ui->analytes2, 1 + (isPart1 ? i : i - analytesOfPart1),
                       QString::fromLatin1(analytes[size_t(i)].caption),
                       QStringLiteral("txtNormal_%1").arg(i), QStringLiteral("txtLeft_%1").arg(i), last);
    }
    for (QLabel* heading : {m_ui->lblNormal1, m_ui->lblLeft1, m_ui->lblNormal2, m_ui->lblLeft2})
        controls::look::setKind(heading,
                                QStringLiteral("heading")); // what a form says of a tab page's label is lost
    alignCaptions(*m_ui->analytes1, *m_ui->analytes2);
    prepare();
}

frmResultRadioImmuno::~frmResultRadioImmuno() = default;

} // namespace results
