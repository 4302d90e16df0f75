#pragma once

#include "platform/ado/Provider.h"

#include <string>
#include <string_view>

namespace engine {

/// In rising precedence: when two types meet, the later one wins. Null is the type of the literal NULL.
enum class TypeKind {
    Null,
    Char,
    Varchar,
    NVarchar,
    Text,
    Bit,
    TinyInt,
    SmallInt,
    Int,
    BigInt,
    Money,
    Decimal,
    Float,
    Date,
    DateTime
};

enum class TypeClass { Null, Text, Integer, Real, Moment };

struct SqlType {
    TypeKind kind = TypeKind::Null;
    /// Characters of a text; -1 when there is no limit or it is not known.
    int length = -1;
    /// Decimal places of a decimal.
    int scale = 0;
};

constexpr TypeClass classOf(TypeKind kind) {
    switch (kind) {
    case TypeKind::Null:
        return TypeClass::Null;
    case TypeKind::Char:
    case TypeKind::Varchar:
    case TypeKind::NVarchar:
    case TypeKind::Text:
        return TypeClass::Text;
    case TypeKind::Bit:
    case TypeKind::TinyInt:
    case TypeKind::SmallInt:
    case TypeKind::Int:
    case TypeKind::BigInt:
        return TypeClass::Integer;
    case TypeKind::Money:
    case TypeKind::Decimal:
    case TypeKind::Float:
        return TypeClass::Real;
    case TypeKind::Date:
    case TypeKind::DateTime:
        return TypeClass::Moment;
    }
    return TypeClass::Null;
}
constexpr TypeClass classOf(const SqlType& type) {
    return classOf(type.kind);
}
constexpr bool isText(const SqlType& type) {
    return classOf(type) == TypeClass::Text;
}
constexpr bool isNumber(const SqlType& type) {
    return classOf(type) == TypeClass::Integer || classOf(type) == TypeClass::Real;
}

/// The type that a value of either has.
SqlType commonType(const SqlType& left, const SqlType& right);

/// The word that the server's messages use: "int", "numeric" for a decimal.
const char* typeWord(TypeKind kind);
/// False when there is no type of that name.
bool typeFromWord(std::string_view word, SqlType& type);
/// What the hospital file declares for a column of the type.
const char* storageType(TypeKind kind);
ado::DataType dataType(TypeKind kind);

} // namespace engine
