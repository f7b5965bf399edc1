#pragma once

#include <cstdint>

#include "base/value.h"

/// Fields as the lists need them: Null counts as 0 and false.
namespace browse {

inline std::int64_t numberOf(const base::Value& value) {
  return value.isNull() ? 0 : value.asInteger();
}
inline bool truth(const base::Value& value) {
  return !value.isNull() && value.asBoolean();
}

}  // namespace browse
