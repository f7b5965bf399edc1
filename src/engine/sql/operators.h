#pragma once

#include <array>
#include <string_view>

/// The dialect's operators and how tightly they bind, for parser and printer.
namespace engine::sql {

struct Operator {
  std::string_view name;
  int strength;
};

namespace strength {
inline constexpr int imp = 1, eqv = 2, exclusiveOr = 3, either = 4, both = 5, negation = 6, comparison = 7,
                     join = 8, sum = 9, modulo = 10, wholeDivision = 11, product = 12, sign = 13, power = 14,
                     operand = 15;
}

/// All two-sided operators; each associates to the left.
inline constexpr std::array<Operator, 19> operators = {{
    {"IMP", strength::imp},         {"EQV", strength::eqv},
    {"XOR", strength::exclusiveOr}, {"OR", strength::either},
    {"AND", strength::both},        {"=", strength::comparison},
    {"<>", strength::comparison},   {"<", strength::comparison},
    {"<=", strength::comparison},   {">", strength::comparison},
    {">=", strength::comparison},   {"&", strength::join},
    {"+", strength::sum},           {"-", strength::sum},
    {"MOD", strength::modulo},      {"\\", strength::wholeDivision},
    {"*", strength::product},       {"/", strength::product},
    {"^", strength::power},
}};

}  // namespace engine::sql
