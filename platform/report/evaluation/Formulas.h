#pragma once

#include "platform/report/evaluation/Expression.h"

#include <vector>

namespace report {

/// Formulas that the expression uses itself, by index.
void collectFormulas(const Expression& expression, std::vector<int>& found);
/// True when the expression, or a formula in it, tells the page's number or the number of pages.
bool dependsOnPage(const Expression& expression, const std::vector<Expression>& formulas);
/// True when the expression, or a formula in it, adds rows up.
bool dependsOnSums(const Expression& expression, const std::vector<Expression>& formulas);
/// Parts that the expression has once its formulas are written out. The formulas must not be cyclic; stops
/// counting soon after `limit`.
int expandedSize(const Expression& expression, const std::vector<Expression>& formulas, int limit);
/// Index of a formula that leads back to itself; -1 when there is none.
int cyclicFormula(const std::vector<Expression>& formulas);

} // namespace report
