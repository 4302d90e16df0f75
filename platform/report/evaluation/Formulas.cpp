#include "platform/report/evaluation/Formulas.h"

#include <algorithm>
#include <functional>

namespace report {

void collectFormulas(const Expression& expression, std::vector<int>& found) {
    if (expression.kind == Expression::Kind::Formula)
        found.push_back(expression.index);
    for (const Expression& argument : expression.arguments)
        collectFormulas(argument, found);
}

namespace {

/// Whether a part of the expression, or of a formula in it, is one that `wanted` tells.
template <typename Wanted>
bool contains(const Expression& expression, const std::vector<Expression>& formulas, Wanted wanted) {
    if (wanted(expression))
        return true;
    if (expression.kind == Expression::Kind::Formula)
        return contains(formulas[std::size_t(expression.index)], formulas, wanted);
    return std::any_of(expression.arguments.begin(), expression.arguments.end(),
                       [&](const Expression& argument) { return contains(argument, formulas, wanted); });
}

} // namespace

bool dependsOnPage(const Expression& expression, const std::vector<Expression>& formulas) {
    return contains(expression, formulas, [](const Expression& part) {
        return part.kind == Expression::Kind::Special &&
               (part.special == Special::PageNumber || part.special == Special::PageCount);
    });
}

bool dependsOnSums(const Expression& expression, const std::vector<Expression>& formulas) {
    return contains(expression, formulas,
                    [](const Expression& part) { return part.kind == Expression::Kind::Aggregate; });
}

int expandedSize(const Expression& expression, const std::vector<Expression>& formulas, int limit) {
    int size = 1;
    if (expression.kind == Expression::Kind::Formula)
        size += expandedSize(formulas[std::size_t(expression.index)], formulas, limit);
    for (const Expression& argument : expression.arguments) {
        if (size > limit)
            break;
        size += expandedSize(argument, formulas, limit - size);
    }
    return size;
}

int cyclicFormula(const std::vector<Expression>& formulas) {
    enum class Mark { New, Open, Done };
    std::vector<Mark> marks(formulas.size(), Mark::New);
    int cyclic = -1;
    const std::function<void(int)> visit = [&](int index) {
        Mark& mark = marks[std::size_t(index)];
        if (mark == Mark::Open)
            cyclic = index;
        if (mark != Mark::New)
            return;
        mark = Mark::Open;
        std::vector<int> used;
        collectFormulas(formulas[std::size_t(index)], used);
        for (const int next : used)
            visit(next);
        marks[std::size_t(index)] = Mark::Done;
    };
    for (std::size_t i = 0; i < formulas.size(); ++i)
        visit(int(i));
    return cyclic;
}

} // namespace report
