#include "lookup/RateSelection.h"

#include "platform/base/Conversion.h"

namespace lookup {

double rateForClass(const session::NuclearExamRecord& exam, const QString& roomClass) {
    struct ClassRate {
        QLatin1StringView roomClass;
        base::Value session::NuclearExamRecord::*rate;
    };
    static const ClassRate rates[] = {{QLatin1StringView("A"), &session::NuclearExamRecord::RateA},
                                      {QLatin1StringView("B"), &session::NuclearExamRecord::RateB},
                                      {QLatin1StringView("C"), &session::NuclearExamRecord::RateC},
                                      {QLatin1StringView("D"), &session::NuclearExamRecord::RateD},
                                      {QLatin1StringView("E"), &session::NuclearExamRecord::RateE}};
    for (const ClassRate& entry : rates) {
        if (roomClass != entry.roomClass)
            continue;
        return rateOrZero(exam.*entry.rate);
    }
    return 0;
}

double rateOrZero(const base::Value& rate) {
    return rate.isNull() ? 0 : base::CDbl(rate);
}

} // namespace lookup
