#pragma once

#include "platform/base/Value.h"

#include <QString>
#include <QStringList>

#include <vector>

namespace report {

/// What the words of a report's expressions stand for, besides columns and parameters.
enum class Special { PageNumber, PageCount, RecordNumber, PrintDate, PrintTime, HeadingName, HeadingAddress };

enum class Operator {
    Join,
    Add,
    Subtract,
    Multiply,
    Divide,
    Equal,
    NotEqual,
    Less,
    LessEqual,
    Greater,
    GreaterEqual,
    And,
    Or,
    Not,
    Negate
};

enum class Aggregate { Sum, Count, Average, Minimum, Maximum };

/// One parsed expression. Columns are resolved when rows are there; everything else is by index.
struct Expression {
    enum class Kind { Constant, Parameter, Column, Formula, Special, Operation, Call, Aggregate };

    Kind kind = Kind::Constant;
    base::Value constant;
    /// Parameter, Formula: its index. Column: its table. Call: the function. Aggregate: the group's level, -1
    /// for the level of the band that it stands in.
    int index = -1;
    QString column;
    Special special = Special::PageNumber;
    Operator operation = Operator::Join;
    Aggregate aggregate = Aggregate::Sum;
    std::vector<Expression> arguments;
};

/// The names that an expression may use, in the definition's order; found in either case.
struct Names {
    QStringList parameters;
    QStringList tables;
    QStringList formulas;
    QStringList groups;
};

/// Index of the name in either case; -1 when it is not there.
int indexOfName(const QStringList& names, const QString& name);

/// Why an expression cannot be read.
struct ExpressionError {
    qsizetype at; ///< counted from 0 in the expression's text
    QString reason;
};

/// Reads `"(" & {?Nurse} & ") " & Upper({Lines.Name})`: texts in double quotes (a doubled one stands for
/// itself), numbers, {?parameter}, {column} of the first table, {table.column}, {@formula}, the specials by
/// name, functions, Sum/Count/Average/Minimum/Maximum(expression[, group]), not - * / + & = <> < <= > >= and
/// or, parentheses. Raises ExpressionError.
Expression parseExpression(const QString& text, const Names& names);

/// Formulas that the expression uses itself, by index.
void collectFormulas(const Expression& expression, std::vector<int>& found);
/// True when the expression, or a formula in it, tells the page's number or the number of pages.
bool dependsOnPage(const Expression& expression, const std::vector<Expression>& formulas);
/// Parts that the expression has once its formulas are written out. The formulas must not be cyclic; stops
/// counting soon after `limit`.
int expandedSize(const Expression& expression, const std::vector<Expression>& formulas, int limit);
/// Index of a formula that leads back to itself; -1 when there is none.
int cyclicFormula(const std::vector<Expression>& formulas);

} // namespace report
