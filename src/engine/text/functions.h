#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "engine/types/types.h"

/// The functions and operators of the dialect as SQLite functions.
///
/// A function of the dialect is registered as "vc_" and its name in lower case. Dates go in and out as ISO
/// texts "yyyy-mm-dd hh:mm:ss", truths come out as -1 and 0. Null as the first argument gives Null where
/// nothing else is said.
///
///   text      len left right mid trim ltrim rtrim ucase lcase instr instrrev replace string space strcomp
///             strreverse chr chrw asc ascw
///   numbers   abs int fix round sgn sqr val str
///   types     cstr clng cint cdbl cbool cdate (Null ends in 94, but cdate(Null) is Null)
///             isnull isnumeric isdate nz iif choose
///   dates     datevalue timevalue now date time year month day hour minute second weekday dateserial
///             timeserial dateadd datediff datepart format
///   aggregates first last (the value of the first and last row visited, Null included)
///
/// instr, instrrev, replace and strcomp take no regard of case; a compare argument of 0 asks for the
/// byte-exact form.
///
/// Operators, for the emitter:
///   vc_like(text, pattern [, collation])   first interface; 1, 0 or Null as SQLite's own operators give
///   vc_like2(text, pattern [, collation])  second interface; without a collation: English order
///   vc_concat(a, b, ...)                   &: Null as ""
///   vc_plus(a, b)                          +: two texts join, a date and a number is a date, else a sum
///   vc_minus(a, b)                         -: a date less a number is a date, two dates give days, else a
///   difference vc_div(a, b) vc_idiv(a, b) vc_mod(a, b) vc_pow(a, b)   / \ MOD ^ ; a zero divisor ends in 11
///   vc_plus to vc_pow give Null when either side is Null.
///
/// What goes wrong ends in an SQL error whose message is "VC<number>:<text>".
namespace engine::text {

/// The Error behind an SQLite error message that a function here gave; nothing for SQLite's own messages.
std::optional<Error> errorOf(std::string_view message);

}  // namespace engine::text
