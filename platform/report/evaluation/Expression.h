#pragma once

#include "platform/base/Value.h"

#include <QString>
#include <QStringList>

#include <vector>

namespace report {

/// What the words of a report's expressions stand for, besides columns and parameters.
enum class Special {
    PageNumber,
    PageCount,
    RecordNumber,
    PrintDate,
    PrintTime,
    PrintedBy,
    HeadingName,
    HeadingAddress
};

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

enum class Aggregate { Sum, Count, Average, Minimum, Maximum, Running };

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
    QStringList subReports;
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
/// name, functions, Sum/Count/Average/Minimum/Maximum/Running(expression[, group]), not - * / + & = <> < <= >
/// >= and or, parentheses. Raises ExpressionError.
Expression parseExpression(const QString& text, const Names& names);

} // namespace report
