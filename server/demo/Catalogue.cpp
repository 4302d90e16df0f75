#include "server/demo/Catalogue.h"

#include <cmath>

namespace demo {

namespace {

constexpr Exam examList[] = {
    {"1001", "BONE SCAN, WHOLE BODY", "", "IMG", "A", 5200, true},
    {"1002", "BONE SCAN, THREE-PHASE", "", "IMG", "A", 6400, true},
    {"1003", "BONE SCAN, LIMITED", "", "IMG", "A", 3800, true},
    {"1004", "THYROID SCAN, TC-99M", "", "IMG", "A", 2400, true},
    {"1005", "THYROID SCAN WITH UPTAKE", "", "IMG", "A", 3100, true},
    {"1006", "RADIOIODINE UPTAKE, 24 HOURS", "", "IMG", "A", 1900, true},
    {"1007", "WHOLE BODY SCAN, I-131", "", "IMG", "A", 8800, true},
    {"1008", "PARATHYROID SCAN, SESTAMIBI", "", "IMG", "A", 9600, true},
    {"1009", "LIVER-SPLEEN SCAN", "", "IMG", "A", 4200, true},
    {"1010", "HEPATOBILIARY SCAN", "", "IMG", "A", 7200, true},
    {"1011", "LUNG PERFUSION SCAN", "", "IMG", "A", 5600, true},
    {"1012", "LUNG VENTILATION SCAN", "", "IMG", "A", 6900, true},
    {"1013", "GASTRIC EMPTYING STUDY", "", "IMG", "B", 5100, true},
    {"1014", "GASTROESOPHAGEAL REFLUX STUDY", "", "IMG", "B", 4700, true},
    {"1015", "G.I. BLEEDING SCAN, TAGGED RBC", "", "IMG", "B", 7900, true},
    {"1016", "MECKEL'S SCAN", "", "IMG", "B", 4600, true},
    {"1017", "LYMPHOSCINTIGRAPHY", "", "IMG", "B", 6800, true},
    {"1018", "SENTINEL NODE MAPPING", "", "IMG", "B", 7400, false},
    {"1019", "BRAIN PERFUSION SPECT", nullptr, "IMG", "A", 12500, true},
    {"1020", "DACRYOSCINTIGRAPHY", nullptr, "IMG", "B", 3300, true},
    {"1021", "SALIVARY GLAND SCAN", "", "IMG", "B", 3500, true},
    {"1022", "TESTICULAR SCAN", "", "IMG", "B", 3900, true},
    {"1023", "MUGA SCAN", "", "IMG", "A", 6200, true},
    {"1024", "MYOCARDIAL PERFUSION, REST AND STRESS", "", "IMG", "A", 14800, true},
    {"1025", "MYOCARDIAL PERFUSION, DIPYRIDAMOLE", "", "IMG", "A", 15600, true},
    {"1101", "RENAL SCAN, DTPA WITH GFR", "G", "IMG", "A", 6600, true},
    {"1102", "RENAL SCAN, DTPA WITH FUROSEMIDE", "G", "IMG", "A", 7300, true},
    {"1103", "RENAL SCAN, CAPTOPRIL", "G", "IMG", "A", 8100, true},
    {"1104", "GFR, PLASMA CLEARANCE", "G", "IMG", "A", 4900, true},
    {"1201", "TSH", "R", "RIA", "A", 750, true},
    {"1202", "FREE T4", "R", "RIA", "A", 820, true},
    {"1203", "FREE T3", "R", "RIA", "A", 820, true},
    {"1204", "T3", "R", "RIA", "A", 640, true},
    {"1205", "T4", "R", "RIA", "A", 640, true},
    {"1206", "THYROGLOBULIN", "R", "RIA", "A", 1450, true},
    {"1207", "ANTI-TG", "R", "RIA", "A", 1300, true},
    {"1208", "ANTI-TPO", "R", "RIA", "A", 1300, true},
    {"1209", "PSA", "R", "RIA", "A", 1250, true},
    {"1210", "CORTISOL", "R", "RIA", "B", 1100, true},
    {"1211", "BETA HCG", "R", "RIA", "B", 1150, true},
    {"1212", "THYROID PANEL (FT3, FT4, TSH)", "R", "RIA", "A", 2200, true},
    {"1301", "RADIOIODINE THERAPY, HYPERTHYROIDISM", "T", "THR", "A", 9800, false},
    {"1302", "RADIOIODINE THERAPY, CANCER, 100 MCI", "T", "THR", "A", 38500, false},
    {"1303", "BONE PAIN PALLIATION, SM-153", "T", "THR", "A", 46000, false},
    {"1304", "RADIOSYNOVECTOMY", "T", "THR", "B", 21500, false},
};

constexpr Item itemList[] = {
    {"30001", "FUROSEMIDE 20 MG/2 ML AMP", "FUROSEMIDE", "PH", "AMP", 48.5},
    {"30002", "CAPTOPRIL 25 MG TAB", "CAPTOPRIL", "PH", "TAB", 6.75},
    {"30003", "DIPYRIDAMOLE 10 MG/2 ML AMP", "DIPYRIDAMOLE", "PH", "AMP", 215},
    {"30004", "AMINOPHYLLINE 250 MG AMP", "AMINOPHYLLINE", "PH", "AMP", 62},
    {"30005", "ADENOSINE 6 MG VIAL", "ADENOSINE", "PH", "VIAL", 1180},
    {"30006", "POTASSIUM PERCHLORATE 200 MG CAP", "POTASSIUM PERCHLORATE", "PH", "CAP", 14.25},
    {"30007", "LUGOL'S SOLUTION 30 ML", "IODINE", "PH", "BOT", 135},
    {"30008", "METOCLOPRAMIDE 10 MG AMP", "METOCLOPRAMIDE", "PH", "AMP", 39},
    {"30009", "RANITIDINE 50 MG AMP", "RANITIDINE", "PH", "AMP", 71.5},
    {"30010", "PARACETAMOL 500 MG TAB", "PARACETAMOL", "PH", "TAB", 3.25},
    {"30011", "DIPHENHYDRAMINE 50 MG AMP", "DIPHENHYDRAMINE", "PH", "AMP", 58},
    {"30012", "HYDROCORTISONE 100 MG VIAL", "HYDROCORTISONE", "PH", "VIAL", 124},
    {"30013", "NORMAL SALINE 1 L", "SODIUM CHLORIDE", "PH", "BOT", 96},
    {"30014", "D5W 500 ML", "DEXTROSE", "PH", "BOT", 88},
    {"30015", "HEPARIN 5000 IU VIAL", "HEPARIN", "PH", "VIAL", 342},
    {"30016", "PHENOBARBITAL 30 MG TAB", "PHENOBARBITAL", "PH", "TAB", 8.5},
    {"40001", "SYRINGE 1 ML", "", "CS", "PC", 12},
    {"40002", "SYRINGE 3 ML", "", "CS", "PC", 10.5},
    {"40003", "SYRINGE 5 ML", "", "CS", "PC", 11.5},
    {"40004", "SYRINGE 10 ML", "", "CS", "PC", 14},
    {"40005", "BUTTERFLY SET G23", "", "CS", "PC", 46},
    {"40006", "I.V. CANNULA G22", "", "CS", "PC", 78},
    {"40007", "I.V. TUBING, ADULT", "", "CS", "PC", 65},
    {"40008", "THREE-WAY STOPCOCK", "", "CS", "PC", 82.5},
    {"40009", "COTTON BALLS, STERILE", "", "CS", "PACK", 18},
    {"40010", "MICROPORE 1 INCH", "", "CS", "ROLL", 55},
    {"40011", "GLOVES, STERILE 7.0", "", "CS", "PAIR", 38},
    {"40012", "UNDERPAD", "", "CS", "PC", 24},
    {"40013", "ECG ELECTRODE", "", "CS", "PC", 16},
    {"40014", "FILM 14 X 17", "", "CS", "SHEET", 190},
    {"40015", "TC-99M MDP DOSE", "", "CS", "DOSE", 950},
    {"40016", "TC-99M DTPA DOSE", "", "CS", "DOSE", 980},
    {"40017", "TC-99M SESTAMIBI DOSE", "", "CS", "DOSE", 3400},
    {"40018", "I-131 CAPSULE, 100 UCI", "", "CS", "CAP", 1250},
};

constexpr Room roomList[] = {
    {"ER1", "A", "ER"}, {"ER2", "A", "ER"}, {"ER3", "A", "ER"},   {"201", "B", "2A"},   {"202", "B", "2A"},
    {"203", "B", "2A"}, {"204", "B", "2A"}, {"205", "B", "2A"},   {"206", "B", "2A"},   {"211", "B", "2B"},
    {"212", "B", "2B"}, {"213", "B", "2B"}, {"214", "B", "2B"},   {"301", "C", "3A"},   {"302", "C", "3A"},
    {"303", "C", "3A"}, {"304", "C", "3A"}, {"305", "C", "3A"},   {"306", "C", "3A"},   {"307", "C", "3A"},
    {"311", "C", "3B"}, {"312", "C", "3B"}, {"313", "C", "3B"},   {"314", "C", "3B"},   {"401", "D", "4A"},
    {"402", "D", "4A"}, {"403", "D", "4A"}, {"404", "D", "4A"},   {"405", "D", "4A"},   {"501", "E", "5A"},
    {"502", "E", "5A"}, {"503", "E", "5A"}, {"ICU1", "C", "ICU"}, {"ICU2", "C", "ICU"}, {"ICU3", "C", "ICU"},
};

constexpr const char* accountList[] = {"HMO01", "HMO02", "HMO03", "CO101", "CO102", "CO103",
                                       "CO104", "CO105", "CO106", "CO107", "CO108", "CO109"};

constexpr Doctor doctorList[doctorCount] = {{"SANTOS", "ALBERTO", "CRUZ", "NUCLEAR MEDICINE"},
                                            {"DE LEON", "BEATRIZ", "RAMOS", "NUCLEAR MEDICINE"},
                                            {"PEÑA", "JOSÉ", "IBAÑEZ", "NUCLEAR MEDICINE"},
                                            {"ALONZO", "CECILIA", "TAN", "CARDIOLOGY"},
                                            {"BERNARDO", "DIEGO", "LIM", "CARDIOLOGY"},
                                            {"CALDERON", "ELENA", "SISON", "ENDOCRINOLOGY"},
                                            {"DIZON", "FELIPE", "UY", "ENDOCRINOLOGY"},
                                            {"ESPIRITU", "GLORIA", "MATIAS", "NEPHROLOGY"},
                                            {"FAJARDO", "HECTOR", "YUSON", "NEPHROLOGY"},
                                            {"GALLARDO", "IMELDA", "VALDEZ", "ONCOLOGY"},
                                            {"HIDALGO", "JAIME", "ROBLES", "ONCOLOGY"},
                                            {"IGNACIO", "LETICIA", "QUIZON", "INTERNAL MEDICINE"},
                                            {"JAVIER", "MARIO", "PALMA", "INTERNAL MEDICINE"},
                                            {"KALAW", "NORMA", "ORTIZ", "INTERNAL MEDICINE"},
                                            {"LAUREL", "OSCAR", "NAVARRO", "SURGERY"},
                                            {"MANALO", "PATRICIA", "MEDINA", "SURGERY"},
                                            {"NICOLAS", "RAFAEL", "LUNA", "SURGERY"},
                                            {"O'BRIEN", "SOFÍA", "KALAW", "PEDIATRICS"},
                                            {"PASCUAL", "TOMAS", "JIMENEZ", "PEDIATRICS"},
                                            {"QUINTOS", "URSULA", "ILAGAN", "OB-GYNECOLOGY"},
                                            {"ROXAS", "VICTOR", "HERRERA", "OB-GYNECOLOGY"},
                                            {"SARMIENTO", "WILMA", "GOMEZ", "NEUROLOGY"},
                                            {"TORRES", "XAVIER", "FLORES", "NEUROLOGY"},
                                            {"UMALI", "YOLANDA", "ESTRELLA", "GASTROENTEROLOGY"},
                                            {"VERGARA", "ZOSIMO", "DOMINGO", "GASTROENTEROLOGY"},
                                            {"YLAGAN", "ANA", "CASTRO", "PULMONOLOGY"},
                                            {"ZAMORA", "BENIGNO", "BELTRAN", "PULMONOLOGY"},
                                            {"ABELLA", "CLARA", "AQUINO", "ORTHOPEDICS"},
                                            {"MUÑOZ", "ENRICO", "SALAZAR", "ORTHOPEDICS"},
                                            {"VILLEGAS", "FE", "TUAZON", "FAMILY MEDICINE"}};

} // namespace

std::span<const Exam> exams() {
    return examList;
}

double roundedRate(double amount) {
    return std::round(amount / 10) * 10;
}

double examRate(const Exam& exam, const QString& roomClass) {
    constexpr double factors[] = {1.0, 1.08, 1.2, 1.35, 1.5};
    if (roomClass.size() != 1 || roomClass[0] < u'A' || roomClass[0] > u'E')
        return 0;
    return roundedRate(exam.rateA * factors[roomClass[0].unicode() - u'A']);
}

std::span<const Item> items() {
    return itemList;
}
std::span<const Room> rooms() {
    return roomList;
}
std::span<const char* const> companyAccounts() {
    return accountList;
}
std::span<const Doctor> doctors() {
    return doctorList;
}
QString doctorCode(int index) {
    return QString::number(201 + index);
}
double feePercentage(const QString& revenue) {
    return revenue == QLatin1String("FN") ? 20 : 100;
}
QString doctorName(int index) {
    const Doctor& doctor = doctorList[index];
    return QString::fromUtf8(doctor.last) + QStringLiteral(", ") + QString::fromUtf8(doctor.first);
}

} // namespace demo
