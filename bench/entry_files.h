#pragma once

#include <cstdint>
#include <string>

#include "engine/workspace.h"

/// Entries with all their columns and indexes, through the engine alone and through the yardstick.
namespace bench {

/// The headword of the n-th entry, the same in every run: rising with n, or in no order.
std::string headword(std::int64_t n, bool ordered);

engine::Workspace workspace();
/// Both leave a file that is there as it is.
void makeEngineFile(const std::string& path, std::int64_t count, bool ordered);
void makePlainFile(const std::string& path, std::int64_t count, bool ordered);

}  // namespace bench
