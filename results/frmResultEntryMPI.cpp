#include "results/frmResultEntryMPI.h"

#include "results/CellEntry.h"
#include "ui_frmResultEntryMPI.h"

namespace results {

namespace {

constexpr std::array<Argument, 27> arguments{{
    {"txtHospNum", true},
    {"txtIdNum", true},
    {source::requestNum, true},
    {"txtCaseNum", true},
    {source::patientType, true},
    {"txtCardiologistCode", true},
    {"txtRequestingDrCode", true},
    {source::itemCode},
    {"txtRadiopharmaceutical"},
    {"txtProtocol"},
    {"txtClinicalHistory"},
    {"txtTechnique"},
    {"txtStressDetails"},
    {"txtStressImages"},
    {"txtRestingImages"},
    {"txtQuantitativeData"},
    {functionalParameters[0].column},
    {functionalParameters[1].column},
    {functionalParameters[2].column},
    {functionalParameters[3].column},
    {functionalParameters[4].column},
    {"txtConclusion"},
    {"txtWeight"},
    {"txtHeight"},
    {source::encoder, true},
    {source::resultMoment},
    {"txtRemarks"},
}};

constexpr const char* symbols[] = {"txtClinicalHistory",  "txtConclusion",          "txtProtocol",
                                   "txtQuantitativeData", "txtRadiopharmaceutical", "txtRestingImages",
                                   "txtStressDetails",    "txtStressImages",        "txtTechnique"};
/// The radiopharmaceutical lets a ' through, unlike the others that take symbols.
constexpr const char* backQuotes[] = {"txtClinicalHistory",  "txtConclusion",      "txtProtocol",
                                      "txtQuantitativeData", "txtRestingImages",   "txtStressDetails",
                                      "txtStressImages",     "txtTechnique",       "txtCaseNum",
                                      "txtCardiologistCode", "txtRequestingDrCode"};
constexpr EnterMove enterMoves[] = {{"txtRadiopharmaceutical", "txtProtocol"},
                                    {"txtProtocol", "txtClinicalHistory"}};
/// Enter in the cardiologist's code opens the requesting doctor's lookup; the cardiologist's own answers only
/// to its click.
constexpr EnterLookup enterLookups[] = {{"txtRequestingDrCode", 2}, {"txtCardiologistCode", 2}};
constexpr const char* cleared[] = {"txtConclusion", "txtRadiopharmaceutical"};
/// Without the cardiologist's code: it stays disabled.
constexpr const char* edited[] = {"txtCaseNum",
                                  "txtRequestingDrCode",
                                  "txtConclusion",
                                  "txtProtocol",
                                  "txtRadiopharmaceutical",
                                  "txtTechnique",
                                  "txtStressDetails",
                                  "txtStressImages",
                                  "txtRestingImages",
                                  "txtQuantitativeData",
                                  "txtClinicalHistory",
                                  "txtRemarks",
                                  "grdTable"};

constexpr ResultVariant variant{
    .save =
        {ado::StatementPattern<27>(
             "sp_Nuclear_SaveResultMPI '{}','{}','{}','{}','{}','{}','{}','{}','{}','{}','{}','{}','{}','{}',"
             "'{}','{}','{}','{}','{}','{}','{}','{}','{}','{}','{}','{}','{}'"),
         arguments},
    .caseNumberCheck = "SELECT * FROM STATION..tbNucLogBook WHERE CaseNumber = '##' AND Status <> 'R'",
    .trimsCheckedNumber = false,
    .report = "NucResultMPI.rpt",
    .browse1 = {"txtCardiologistCode", "txtCardiologist"},
    .browse2 = {"txtRequestingDrCode", "txtRequestingDr"},
    .symbols = symbols,
    .backQuotes = backQuotes,
    .enterMoves = enterMoves,
    .enterLookups = enterLookups,
    .cleared = cleared,
    .edited = edited,
    .revocationIsTrapped = true,
};

} // namespace

frmResultEntryMPI::frmResultEntryMPI(QWidget* parent)
    : ResultScreen(variant, parent), m_ui(std::make_unique<Ui::frmResultEntryMPI>()) {
    m_ui->setupUi(this);
    m_ui->patient->nameFirstDoctor(QStringLiteral("Cardiologist"), QStringLiteral("txtCardiologistCode"),
                                   QStringLiteral("txtCardiologist"));
    auto* txtEntry = new QLineEdit(m_ui->tabFunctional);
    txtEntry->setObjectName(QStringLiteral("txtEntry"));
    setTabOrder(m_ui->grdTable, txtEntry);
    m_entry = new CellEntry(*m_ui->grdTable, *txtEntry, this);
    prepare();
}

frmResultEntryMPI::~frmResultEntryMPI() = default;

void frmResultEntryMPI::Form_Load() {
    ResultScreen::Form_Load();
    controls::FlexGrid& grid = *m_ui->grdTable;
    grid.setFormatString(QStringLiteral(" | RESTING | STRESS "));
    grid.setRows(1 + int(functionalParameters.size()));
    grid.setColWidths({2400, 2000, 2000});
    for (std::size_t i = 0; i < functionalParameters.size(); ++i)
        grid.setTextMatrix(int(i) + 1, 0, QString::fromLatin1(functionalParameters[i].caption));
}

void frmResultEntryMPI::setParameter(int row, const QString& stored) {
    const QStringList parts = stored.split(u'|');
    m_ui->grdTable->setTextMatrix(row, 1, parts.value(0));
    m_ui->grdTable->setTextMatrix(row, 2, parts.value(1));
}

QString frmResultEntryMPI::argument(const char* from) const {
    for (std::size_t i = 0; i < functionalParameters.size(); ++i) {
        const int row = int(i) + 1;
        if (QLatin1String(from) == QLatin1String(functionalParameters[i].column))
            return m_ui->grdTable->TextMatrix(row, 1) + u'|' + m_ui->grdTable->TextMatrix(row, 2);
    }
    return ResultScreen::argument(from);
}

} // namespace results
