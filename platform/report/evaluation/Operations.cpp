#include "platform/report/evaluation/Operations.h"

#include "platform/base/Conversion.h"
#include "platform/base/Error.h"
#include "platform/report/definition/ReportError.h"
#include "platform/report/evaluation/GroupSums.h"

namespace report {
namespace {

using base::Value;

Value compared(Operator sign, const Value& left, const Value& right) {
    if (left.isNull() || right.isNull())
        return false;
    const int order = compareValues(left, right);
    switch (sign) {
    case Operator::Equal:
        return order == 0;
    case Operator::NotEqual:
        return order != 0;
    case Operator::Less:
        return order < 0;
    case Operator::LessEqual:
        return order <= 0;
    case Operator::Greater:
        return order > 0;
    default:
        return order >= 0;
    }
}

Value calculated(Operator sign, const Value& left, const Value& right) {
    if (left.isNull() || right.isNull())
        return {};
    const double a = base::CDbl(left);
    const double b = base::CDbl(right);
    switch (sign) {
    case Operator::Add:
        return a + b;
    case Operator::Subtract:
        return a - b;
    case Operator::Multiply:
        return a * b;
    default:
        if (b == 0.0)
            throw base::RunTimeError(errorDivision, QStringLiteral("Division by zero"));
        return a / b;
    }
}

} // namespace

Value operated(Operator sign, const Value& left, const Value& right) {
    switch (sign) {
    case Operator::Add:
    case Operator::Subtract:
    case Operator::Multiply:
    case Operator::Divide:
        return calculated(sign, left, right);
    default:
        return compared(sign, left, right);
    }
}

} // namespace report
