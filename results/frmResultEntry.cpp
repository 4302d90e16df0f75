#include "results/frmResultEntry.h"

#include "ui_frmResultEntry.h"

namespace results {

namespace {

constexpr std::array<Argument, 20> arguments{{
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
    {"txtConsultation"},
    {"txtConclusion"},
    {"txtClinicalHistory"},
    {"txtWeight"},
    {"txtHeight"},
    {source::encoder, true},
    {source::resultMoment},
    {"txtRemarks"},
}};

constexpr const char* symbols[] = {"txtClinicalHistory", "txtConclusion", "txtConsultation",       "txtDose",
                                   "txtProjections",     "txtRoute",      "txtRadiopharmaceutical"};
constexpr const char* backQuotes[] = {
    "txtClinicalHistory", "txtConclusion",      "txtConsultation",        "txtDose",
    "txtProjections",     "txtRoute",           "txtRadiopharmaceutical", "txtCaseNum",
    "txtAttendingDrCode", "txtRequestingDrCode"};
constexpr EnterMove enterMoves[] = {{"txtRadiopharmaceutical", "txtDose"},
                                    {"txtDose", "txtRoute"},
                                    {"txtRoute", "txtProjections"},
                                    {"txtProjections", "txtConsultation"}};
constexpr EnterLookup enterLookups[] = {{"txtAttendingDrCode", 1}, {"txtRequestingDrCode", 2}};
constexpr const char* cleared[] = {"txtConclusion",  "txtConsultation",        "txtDose",
                                   "txtProjections", "txtRadiopharmaceutical", "txtRoute"};
constexpr const char* edited[] = {"txtCaseNum",
                                  "txtAttendingDrCode",
                                  "txtRequestingDrCode",
                                  "txtConclusion",
                                  "txtConsultation",
                                  "txtClinicalHistory",
                                  "txtDose",
                                  "txtProjections",
                                  "txtRadiopharmaceutical",
                                  "txtRemarks",
                                  "txtRoute"};

constexpr ResultVariant variant{
    .save = {ado::StatementPattern<20>(
                 "sp_Nuclear_SaveResult '{}','{}','{}','{}','{}','{}','{}','{}','{}','{}',"
                 "'{}','{}','{}','{}','{}','{}','{}','{}','{}','{}'"),
             arguments},
    .caseNumberCheck = "SELECT * FROM tbNucLogBook WHERE CaseNumber = '##' AND Status <> 'R'",
    .trimsCheckedNumber = true,
    .report = "NucResult.rpt",
    .browse1 = {"txtAttendingDrCode", "txtAttendingDr"},
    .browse2 = {"txtRequestingDrCode", "txtRequestingDr"},
    .symbols = symbols,
    .backQuotes = backQuotes,
    .enterMoves = enterMoves,
    .enterLookups = enterLookups,
    .cleared = cleared,
    .edited = edited,
    .revocationIsTrapped = false,
};

} // namespace

frmResultEntry::frmResultEntry(QWidget* parent)
    : ResultScreen(variant, parent), m_ui(std::make_unique<Ui::frmResultEntry>()) {
    m_ui->setupUi(this);
    prepare();
}

frmResultEntry::~frmResultEntry() = default;

} // namespace results
