#include "server/demo/Assays.h"

#include <QStringList>

namespace demo {

namespace {

struct Assay {
    const char* analyte;
    const char* exams;
    double low, high;
    int decimals;
    const char* unit;
};

constexpr Assay assays[] = {
    {"TSH", "1201 1212", 0.3, 6, 1, "uIU/mL"},    {"FreeT4", "1202 1212", 8, 22, 0, "pmol/L"},
    {"FreeT3", "1203 1212", 3, 6.5, 1, "pmol/L"}, {"T3", "1204", 1.2, 2.7, 1, "nmol/L"},
    {"T4", "1205", 66, 181, 0, "nmol/L"},         {"TG", "1206", 1.4, 78, 1, "ng/mL"},
    {"AntiTG", "1207", 5, 115, 0, "IU/mL"},       {"AntiTPO", "1208", 2, 34, 0, "IU/mL"},
    {"PSA", "1209", 0.2, 4, 1, "ng/mL"},          {"Cortisol", "1210", 138, 690, 0, "nmol/L"},
    {"BHCG", "1211", 2, 2500, 0, "mIU/mL"},
};

} // namespace

QString assayed(const QString& examID, const char* analyte, double share) {
    for (const Assay& one : assays) {
        if (qstrcmp(one.analyte, analyte) == 0 &&
            QString::fromLatin1(one.exams).split(QLatin1Char(' ')).contains(examID))
            return QString::number(one.low + (one.high - one.low) * share, 'f', one.decimals) +
                   QLatin1Char(' ') + QLatin1String(one.unit);
    }
    return {};
}

} // namespace demo
