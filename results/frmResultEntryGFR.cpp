#include "results/frmResultEntryGFR.h"

#include "results/BoxLine.h"
#include "results/TechnicalKeys.h"
#include "ui_frmResultEntryGFR.h"

namespace results {

namespace {

constexpr std::array<Argument, 32> arguments{{
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
    {"txtIsotope"},
    {"txtLeft_0"},
    {"txtLeft_1"},
    {"txtLeft_2"},
    {"txtLeft_3"},
    {"txtLeft_4"},
    {"txtLeft_5"},
    {"txtLeft_6"},
    {"txtRight_0"},
    {"txtRight_1"},
    {"txtRight_2"},
    {"txtRight_3"},
    {"txtRight_4"},
    {"txtRight_5"},
    {"txtRight_6"},
    {"txtScale"},
}};

constexpr ResultVariant variant{
    .save =
        {ado::StatementPattern<32>(
             "sp_Nuclear_SaveResultGFR '{}','{}','{}','{}','{}','{}','{}','{}','{}','{}','{}','{}','{}','{}',"
             "'{}','{}','{}', '{}', '{}', '{}', '{}', '{}', '{}', '{}', '{}','{}','{}','{}','{}', "
             "'{}','{}', '{}'"),
         arguments},
    .caseNumberCheck = "SELECT * FROM tbNucLogBook WHERE CaseNumber = '##' AND Status <> 'R'",
    .trimsCheckedNumber = true,
    .report = "NucResultGFR.rpt",
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

frmResultEntryGFR::frmResultEntryGFR(QWidget* parent)
    : ResultScreen(variant, parent), m_ui(std::make_unique<Ui::frmResultEntryGFR>()) {
    m_ui->setupUi(this);
    QWidget* last = m_ui->txtIsotope;
    for (int i = 0; i < int(measurementLines.size()); ++i)
        last =
            addBoxLine(*m_ui->measurements, i + 1, QString::fromLatin1(measurementLines[size_t(i)].caption),
                       QStringLiteral("txtLeft_%1").arg(i), QStringLiteral("txtRight_%1").arg(i), last);
    setTabOrder(last, m_ui->txtScale);
    prepare();
}

frmResultEntryGFR::~frmResultEntryGFR() = default;

} // namespace results
