#include "server/engine/values/SqlType.h"

#include "server/engine/values/Ascii.h"

#include <algorithm>

namespace engine {
namespace {

struct TypeName {
    const char* word;
    TypeKind kind;
    int length;
};

constexpr TypeName typeNames[] = {
    {"BIT", TypeKind::Bit, -1},
    {"TINYINT", TypeKind::TinyInt, -1},
    {"SMALLINT", TypeKind::SmallInt, -1},
    {"INT", TypeKind::Int, -1},
    {"INTEGER", TypeKind::Int, -1},
    {"BIGINT", TypeKind::BigInt, -1},
    {"MONEY", TypeKind::Money, -1},
    {"SMALLMONEY", TypeKind::Money, -1},
    {"DECIMAL", TypeKind::Decimal, -1},
    {"NUMERIC", TypeKind::Decimal, -1},
    {"FLOAT", TypeKind::Float, -1},
    {"REAL", TypeKind::Float, -1},
    {"DATE", TypeKind::Date, -1},
    {"DATETIME", TypeKind::DateTime, -1},
    {"SMALLDATETIME", TypeKind::DateTime, -1},
    {"DATETIME2", TypeKind::DateTime, -1},
    {"CHAR", TypeKind::Char, 1},
    {"NCHAR", TypeKind::Char, 1},
    {"VARCHAR", TypeKind::Varchar, 1},
    {"NVARCHAR", TypeKind::NVarchar, 1},
    {"SYSNAME", TypeKind::NVarchar, 128},
    {"TEXT", TypeKind::Text, -1},
    {"NTEXT", TypeKind::Text, -1},
};

} // namespace

SqlType commonType(const SqlType& left, const SqlType& right) {
    if (left.kind == right.kind) {
        SqlType type = left;
        type.length = left.length < 0 || right.length < 0 ? -1 : std::max(left.length, right.length);
        type.scale = std::max(left.scale, right.scale);
        return type;
    }
    SqlType type = left.kind > right.kind ? left : right;
    if (isText(left) && isText(right))
        type.length = left.length < 0 || right.length < 0 ? -1 : std::max(left.length, right.length);
    return type;
}

const char* typeWord(TypeKind kind) {
    switch (kind) {
    case TypeKind::Null:
        return "NULL";
    case TypeKind::Char:
        return "char";
    case TypeKind::Varchar:
        return "varchar";
    case TypeKind::NVarchar:
        return "nvarchar";
    case TypeKind::Text:
        return "text";
    case TypeKind::Bit:
        return "bit";
    case TypeKind::TinyInt:
        return "tinyint";
    case TypeKind::SmallInt:
        return "smallint";
    case TypeKind::Int:
        return "int";
    case TypeKind::BigInt:
        return "bigint";
    case TypeKind::Money:
        return "money";
    case TypeKind::Decimal:
        return "numeric";
    case TypeKind::Float:
        return "float";
    case TypeKind::Date:
        return "date";
    case TypeKind::DateTime:
        return "datetime";
    }
    return "";
}

bool typeFromWord(std::string_view word, SqlType& type) {
    const auto found = std::find_if(std::begin(typeNames), std::end(typeNames),
                                    [&](const TypeName& name) { return sameWord(word, name.word); });
    if (found == std::end(typeNames))
        return false;
    type = {found->kind, found->length, 0};
    return true;
}

const char* storageType(TypeKind kind) {
    switch (classOf(kind)) {
    case TypeClass::Integer:
        return "INT"; // INTEGER as a key would number itself
    case TypeClass::Real:
        return "REAL";
    case TypeClass::Moment:
        return "TEXT";
    default:
        return "TEXT COLLATE SCINTRA";
    }
}

ado::DataType dataType(TypeKind kind) {
    switch (classOf(kind)) {
    case TypeClass::Integer:
        return kind == TypeKind::Bit ? ado::DataType::Bit : ado::DataType::Integer;
    case TypeClass::Real:
        return kind == TypeKind::Money ? ado::DataType::Money : ado::DataType::Double;
    case TypeClass::Moment:
        return ado::DataType::DateTime;
    default:
        return ado::DataType::Text;
    }
}

} // namespace engine
