#pragma once

#include "server/engine/errors/ServerError.h"
#include "server/engine/values/SqlType.h"

#include <memory>
#include <string>
#include <vector>

/// What the parser makes of a text. Plain data; the translator and the interpreter read it.
namespace engine {

struct Expr;
struct Select;
struct Stmt;
using ExprPtr = std::unique_ptr<Expr>;
using StmtPtr = std::unique_ptr<Stmt>;

/// "DATABASE..name"; the database is empty when it was left out.
struct ObjectName {
    std::string database;
    std::string name;
    SourcePosition position;

    std::string text() const { return database.empty() ? name : database + ".." + name; }
};

enum class ExprKind {
    Null,
    TextLiteral,    ///< text
    IntegerLiteral, ///< text
    DecimalLiteral, ///< text
    FloatLiteral,   ///< text
    Variable,       ///< slot, text
    Global,         ///< text "@@ROWCOUNT"
    Column,         ///< qualifier, text
    Star,           ///< the * of COUNT(*)
    Negate,
    Arithmetic, ///< text is the sign
    Subquery,   ///< query
    Case,       ///< children: operand or null, WHEN, THEN, ..., ELSE or null
    Function,   ///< text; qualifier is the database and flag set for dbo.name(...)
    Cast,       ///< type; a second child is the style; flag for TRY_CAST
    Comparison, ///< text is the sign
    And,
    Or,
    Not,
    IsNull,  ///< flag: NOT
    In,      ///< children: the value and the list, or query; flag: NOT
    Between, ///< flag: NOT
    Like,    ///< flag: NOT
    Exists   ///< query
};

struct Expr {
    ExprKind kind = ExprKind::Null;
    SourcePosition position;
    std::string text;
    std::string qualifier;
    std::vector<ExprPtr> children;
    std::unique_ptr<Select> query;
    SqlType type;
    int slot = -1;
    bool flag = false;
    bool distinct = false;
    /// Levels below this one; bounded, so that no text makes the translator run out of stack.
    int depth = 1;

    Expr(ExprKind ofKind, SourcePosition at) : kind(ofKind), position(at) {}
};

/// True for what gives true or false instead of a value.
constexpr bool isCondition(ExprKind kind) {
    return kind >= ExprKind::Comparison;
}

enum class JoinKind { Inner, Left, Right, Full, Cross };

struct TableRef {
    SourcePosition position;
    std::string alias;
    // one of: a name, a derived table, a join
    ObjectName name;
    std::unique_ptr<Select> derived;
    std::vector<std::string> derivedColumns;
    std::unique_ptr<TableRef> left;
    std::unique_ptr<TableRef> right;
    JoinKind join = JoinKind::Inner;
    ExprPtr on;
};

struct SelectItem {
    SourcePosition position;
    ExprPtr expr;
    std::string alias;
    /// The variable that takes the value; -1 when the item is a column of the result.
    int slot = -1;
    bool star = false;
    std::string starTable;
};

struct SelectCore {
    SourcePosition position;
    bool distinct = false;
    ExprPtr top;
    std::vector<SelectItem> items;
    std::vector<std::unique_ptr<TableRef>> from;
    ExprPtr where;
    std::vector<ExprPtr> groupBy;
    ExprPtr having;
};

struct OrderItem {
    ExprPtr expr;
    bool descending = false;
};

struct Select {
    std::vector<SelectCore> cores;
    /// Before cores[i + 1]: "UNION", "UNION ALL", "EXCEPT" or "INTERSECT".
    std::vector<std::string> operators;
    std::vector<OrderItem> orderBy;
};

struct Assignment {
    std::string column;
    SourcePosition position;
    /// Null stands for DEFAULT.
    ExprPtr value;
};

/// INSERT, UPDATE and DELETE.
struct Write {
    /// A table, or an alias of `from`.
    ObjectName target;
    std::vector<std::string> columns;
    std::vector<SourcePosition> columnPositions;
    /// Null stands for DEFAULT.
    std::vector<std::vector<ExprPtr>> rows;
    bool defaultValues = false;
    std::unique_ptr<Select> source;
    std::vector<Assignment> assignments;
    std::vector<std::unique_ptr<TableRef>> from;
    ExprPtr where;
};

struct CallArgument {
    /// With "@"; empty for an argument by position.
    std::string name;
    /// A literal or a variable; null stands for DEFAULT.
    ExprPtr value;
};

struct Call {
    ObjectName name;
    std::vector<CallArgument> arguments;
};

struct Variable {
    /// With "@"; empty for a value that was taken out of the text.
    std::string name;
    SqlType type;
};

struct Parameter {
    int slot = 0;
    bool hasDefault = false;
    /// A literal; null stands for NULL.
    ExprPtr defaultValue;
};

/// Statements with the variables they use: a batch, or the body of a procedure or function.
struct Script {
    std::vector<Variable> variables;
    std::vector<StmtPtr> statements;
    /// Statements have the ids 0 to statementCount - 1.
    int statementCount = 0;
};

enum class ModuleKind { Procedure, Function, View };

struct ModuleDefinition {
    ModuleKind kind = ModuleKind::Procedure;
    ObjectName name;
    bool create = true;
    bool alter = false;
    std::vector<Parameter> parameters;
    SqlType returns;
    Script body;
    std::unique_ptr<Select> view;
    std::vector<std::string> viewColumns;
};

struct ColumnDefinition {
    std::string name;
    SourcePosition position;
    SqlType type;
    bool notNull = false;
    bool identity = false;
    bool primaryKey = false;
    bool unique = false;
    ExprPtr defaultValue;
    std::string defaultSource;
};

struct KeyDefinition {
    std::string name;
    bool primary = true;
    std::vector<std::string> columns;
};

struct TableDefinition {
    ObjectName name;
    std::vector<ColumnDefinition> columns;
    std::vector<KeyDefinition> keys;
};

struct IndexDefinition {
    std::string name;
    bool unique = false;
    ObjectName table;
    std::vector<std::string> columns;
    std::vector<bool> descending;
};

enum class StmtKind {
    Block,
    If,
    While,
    Break,
    Continue,
    Return,
    Set,
    Select,
    Insert,
    Update,
    Delete,
    Execute,
    Option,         ///< text: the option; flag: ON
    IdentityInsert, ///< name; flag: ON
    Throw,          ///< children: number, message, state
    Print,
    Use,         ///< name
    CreateTable, ///< table
    AddColumns,  ///< table
    CreateIndex,
    CreateModule,
    Drop ///< text: TABLE, PROCEDURE, FUNCTION, VIEW, INDEX; name; flag: IF EXISTS
};

struct Stmt {
    StmtKind kind;
    SourcePosition position;
    int id = 0;
    std::vector<StmtPtr> body;
    std::vector<StmtPtr> otherwise;
    ExprPtr expr;
    std::vector<ExprPtr> children;
    int slot = -1;
    bool flag = false;
    std::string text;
    ObjectName name;
    std::unique_ptr<Select> query;
    std::unique_ptr<Write> write;
    std::unique_ptr<Call> call;
    std::unique_ptr<TableDefinition> table;
    std::unique_ptr<IndexDefinition> index;
    std::unique_ptr<ModuleDefinition> module;

    Stmt(StmtKind ofKind, SourcePosition at) : kind(ofKind), position(at) {}
};

} // namespace engine
