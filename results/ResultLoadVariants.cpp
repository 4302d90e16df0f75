// What each of the four entry screens reads, and what it leaves out of use.
#include "results/ResultLoad.h"
#include "results/frmResultEntryGFR.h"
#include "results/frmResultEntryMPI.h"
#include "results/frmResultRadioImmuno.h"

namespace results {

using ado::sql;

namespace {

ado::Statement resultOf(const QString& requestNumber) {
    return sql("SELECT * FROM NUCLEAR..tbNucResult WHERE RequestNum = '{}'", requestNumber);
}

// The radio-immunoassay screen hides this one twice and forgets the other.
constexpr const char* editCommand[] = {"btnEdit"};

constexpr FieldColumn genericTexts[] = {
    {"txtCaseNum", "casenumber"},
    {"txtDose", "dose"},
    {"txtRadiopharmaceutical", "Radiopharmaceutical"},
    {"txtRoute", "route"},
    {"txtProjections", "Projections"},
    {"txtConsultation", "Interpretation"},
    {"txtConclusion", "conclusion"},
    {"txtClinicalHistory", "clinicalhistory"},
    {"txtWeight", "Weight"},
    {"txtHeight", "Height"},
    {"txtRemarks", "Remarks"},
};

constexpr const char* genericDisabled[] = {
    "txtRemarks",         "txtCaseNum",
    "txtAttendingDrCode", "txtRequestingDrCode",
    "txtConclusion",      "txtConsultation",
    "txtClinicalHistory", "txtDose",
    "txtProjections",     "txtRadiopharmaceutical",
    "txtRoute",
};

constexpr FieldColumn perfusionTexts[] = {
    {"txtCaseNum", "casenumber"},
    {"txtRadiopharmaceutical", "Radiopharmaceutical"},
    {"txtProtocol", "PROTOCOL"},
    {"txtClinicalHistory", "clinicalhistory"},
    {"txtTechnique", "technique"},
    {"txtStressDetails", "stressdetails"},
    {"txtStressImages", "stressimages"},
    {"txtRestingImages", "restingimages"},
    {"txtQuantitativeData", "quantitativedata"},
    {"txtConclusion", "conclusion"},
    {"txtWeight", "Weight"},
    {"txtHeight", "Height"},
    {"txtRemarks", "Remarks"},
};

constexpr const char* perfusionDisabledToEdit[] = {
    "txtCaseNum",
    "txtCardiologistCode",
    "txtRequestingDrCode",
    "txtConclusion",
    "txtRadiopharmaceutical",
    "txtProtocol",
    "txtRemarks",
    "txtClinicalHistory",
    "txtTechnique",
    "txtStressDetails",
    "txtStressImages",
    "txtRestingImages",
    "txtQuantitativeData",
    "grdTable",
};

constexpr const char* perfusionDisabledToRevoke[] = {
    "txtClinicalHistory",     "txtCaseNum",          "txtRemarks",
    "txtCardiologistCode",    "txtRequestingDrCode", "txtConclusion",
    "txtRadiopharmaceutical",
};

void fillParameters(ResultScreen& screen, ado::Recordset& result) {
    auto& perfusion = static_cast<frmResultEntryMPI&>(screen);
    for (std::size_t row = 0; row < functionalParameters.size(); ++row)
        perfusion.setParameter(int(row) + 1, result.Fields(functionalParameters[row].column).text());
}

// Isotope is not among them: it comes up empty.
constexpr FieldColumn technicalTexts[] = {
    {"txtCaseNum", "casenumber"},
    {"txtDose", "dose"},
    {"txtRadiopharmaceutical", "Radiopharmaceutical"},
    {"txtRoute", "route"},
    {"txtProjections", "Projections"},
    {"txtWeight", "Weight"},
    {"txtHeight", "Height"},
};

constexpr const char* technicalDisabledToEdit[] = {
    "txtAttendingDrCode", "txtRequestingDrCode",    "txtDose",
    "txtProjections",     "txtRadiopharmaceutical", "txtRoute",
};

constexpr const char* technicalDisabledToRevoke[] = {
    "txtAttendingDrCode", "txtRequestingDrCode", "txtDose", "txtProjections", "txtRadiopharmaceutical",
    "txtRoute",           "txtCaseNum",
};

QByteArray boxName(const char* series, std::size_t index) {
    return QByteArray(series) + '_' + QByteArray::number(qulonglong(index));
}

void fillMeasurements(ResultScreen& screen, ado::Recordset& result) {
    for (std::size_t i = 0; i < measurementLines.size(); ++i) {
        screen.setText(boxName("txtLeft", i).constData(),
                       result.Fields(measurementLines[i].leftColumn).text());
        screen.setText(boxName("txtRight", i).constData(),
                       result.Fields(measurementLines[i].rightColumn).text());
    }
    screen.setText("txtScale", result.Fields("Scale").text());
}

/// Both boxes of a line take the one value that is kept.
void fillAnalytes(ResultScreen& screen, ado::Recordset& result) {
    for (std::size_t i = 0; i < analytes.size(); ++i) {
        const QString value = result.Fields(analytes[i].column).text();
        screen.setText(boxName("txtLeft", i).constData(), value);
        screen.setText(boxName("txtNormal", i).constData(), value);
    }
    screen.setText("txtTechnologist", result.Fields("Technologist").text());
}

constexpr FieldColumn attendingCode{"txtAttendingDrCode", "AttendingDocCode"};
constexpr FieldColumn attendingName{"txtAttendingDr", "AttendingDocName"};

} // namespace

constexpr LoadVariant genericLoad{
    .doctorCode = attendingCode,
    .doctorName = attendingName,
    .resultToEdit = resultOf,
    .resultToRevoke = resultOf,
    .texts = genericTexts,
    .fillTable = nullptr,
    .disabledToEdit = genericDisabled,
    .disabledToRevoke = genericDisabled,
    .hiddenAtFirstToRevoke = viewCommands,
};

constexpr LoadVariant perfusionLoad{
    .doctorCode = {"txtCardiologistCode", "CardiologistCode"},
    .doctorName = {"txtCardiologist", "Cardiologist"},
    .resultToEdit = resultOf,
    .resultToRevoke = resultOf,
    .texts = perfusionTexts,
    .fillTable = fillParameters,
    .disabledToEdit = perfusionDisabledToEdit,
    .disabledToRevoke = perfusionDisabledToRevoke,
    .hiddenAtFirstToRevoke = viewCommands,
};

constexpr LoadVariant gfrLoad{
    .doctorCode = attendingCode,
    .doctorName = attendingName,
    .resultToEdit = resultOf,
    .resultToRevoke = resultOf,
    .texts = technicalTexts,
    .fillTable = fillMeasurements,
    .disabledToEdit = technicalDisabledToEdit,
    .disabledToRevoke = technicalDisabledToRevoke,
    .hiddenAtFirstToRevoke = viewCommands,
};

constexpr LoadVariant radioLoad{
    .doctorCode = attendingCode,
    .doctorName = attendingName,
    .resultToEdit =
        [](const QString& requestNumber) {
            return sql("SELECT * FROM NUCLEAR..tbNucRadioResult WHERE RequestNum = '{}'", requestNumber);
        },
    // Another table than the one to edit from.
    .resultToRevoke =
        [](const QString& requestNumber) {
            return sql("SELECT * FROM NUCLEAR..tbNucResultRadio WHERE RequestNum = '{}'", requestNumber);
        },
    .texts = technicalTexts,
    .fillTable = fillAnalytes,
    .disabledToEdit = technicalDisabledToEdit,
    .disabledToRevoke = technicalDisabledToRevoke,
    .hiddenAtFirstToRevoke = editCommand,
};

} // namespace results
