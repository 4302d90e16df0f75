#include "platform/report/Formulas.h"

#include <functional>

namespace report {

void collectFormulas(const Expression& expression, std::vector<int>& found) {
    if (expression.kind == Expression::Kind::Formula)
        found.push_back(expression.index);
    for (const Expression& argument : expression.arguments)
        collectFormulas(argument, found);
}

bool dependsOnPage(const Expression& expression, const std::vector<Expression>& formulas) {
    if (expression.kind == Expression::Kind::Special)
        return expression.special == Special::PageNumber || expression.special == Special::PageCount;
    if (expression.kind == Expression::Kind::Formula)
        return dependsOnPage(formulas[std::size_t(expression.index)], formulas);
    for (const Expression& argument : expression.arguments) {
        if (dependsOnPage(argument, formulas))
            return true;
    }
    return false;
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
