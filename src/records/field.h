// A column and the member that goes with it.
#pragma once
#include <cstdint>
#include <string>
#include <string_view>
#include <variant>

#include "base/currency.h"

namespace kalvane {

// A text, a 16-bit number or an amount of one of the records; or none of them.
template <class... Records>
using MemberOf =
    std::variant<std::monostate, std::string Records::*..., std::int16_t Records::*..., 通貨 Records::*...>;

template <class... Records>
struct Field {
    std::string_view column;
    MemberOf<Records...> member = {};

    // Whether this is the member, "holds" whether it is any of its record and kind.
    template <class Pointer>
    constexpr bool is(Pointer pointer) const {
        return holds<Pointer>() && std::get<Pointer>(member) == pointer;
    }
    template <class Pointer>
    constexpr bool holds() const {
        return std::holds_alternative<Pointer>(member) && std::get<Pointer>(member) != nullptr;
    }
};

}  // namespace kalvane
