#pragma once

#include "engine/plan/plan.h"
#include "engine/storage/statement.h"

namespace engine {

/// Binds the values of a plan's parameters, each in its declared type. Names compare without case and without
/// brackets. Throws 3061 naming those that are not given.
void bindParameters(storage::Statement& statement, const plan::Plan& plan, const Parameters& parameters);

}  // namespace engine
