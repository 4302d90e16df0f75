#pragma once

#include <string>
#include <string_view>

namespace engine {

/// A name that stands in a text: "BILLING..tbBill", "dbo.tbBill", "[tbBill]".
struct ObjectText {
    std::string database;
    std::string name;
};

/// `database` is the one that a name without a prefix belongs to.
ObjectText readObjectText(std::string_view text, std::string_view database);

} // namespace engine
