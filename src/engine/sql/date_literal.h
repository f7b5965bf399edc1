#pragma once

#include <optional>
#include <string_view>

#include "base/datetime.h"

namespace engine::sql {

/// What stands between the marks of a #date#: month first ("mm-dd-yy", "/" and "." also separate, years
/// 00-49 are 20xx and 50-99 are 19xx) or ISO, each with an optional "hh:mm[:ss][ AM|PM]", or a time alone,
/// which is of day 0. Nothing when it is no date.
std::optional<base::DateTime> readDateLiteral(std::string_view content);

}  // namespace engine::sql
