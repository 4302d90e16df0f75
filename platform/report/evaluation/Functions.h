#pragma once

#include "platform/base/Value.h"

#include <QString>

#include <vector>

namespace report {

/// A function of the expressions. Arguments may be Null; raises 13 for a value of the wrong kind.
struct Function {
    const char* name;
    int fewest;
    int most;
    base::Value (*run)(const std::vector<base::Value>& arguments);
};

/// Index into the functions, found in either case; -1 when there is none of that name.
int functionIndex(const QString& name);
const Function& functionAt(int index);

/// A condition's outcome: True, or a number other than 0. Null and texts are False.
bool isTrue(const base::Value& value);

} // namespace report
