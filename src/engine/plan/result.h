#pragma once

#include <vector>

#include "engine/plan/bound.h"

namespace engine::plan {

/// The result columns of a plan as names see them.
struct Scope {
  std::vector<Column> columns;
  const schema::Catalog* file = nullptr;
};

}  // namespace engine::plan
