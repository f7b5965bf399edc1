#pragma once

#include <span>
#include <string_view>

#include "engine/types/types.h"

/// What registration and the families of functions share.
namespace engine::text {

using Arguments = std::span<const Value>;

struct Function {
  std::string_view name;  ///< without "vc_"
  int least, most;        ///< arguments
  Value (*run)(Arguments);
  bool nullIsNull = true;  ///< a Null first argument gives Null without a call
  bool changes = false;    ///< may give another result for the same arguments
};

std::span<const Function> textFunctions();
std::span<const Function> numberFunctions();
std::span<const Function> dateFunctions();
std::span<const Function> operatorFunctions();

[[noreturn]] void refuseArgument(std::string_view function);
/// An argument that counts or places characters: 5 below `least`, cut at 2^31.
std::size_t countArgument(const Value& value, std::int64_t least, std::string_view function);

}  // namespace engine::text
