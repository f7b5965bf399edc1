#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "engine/file/verify.h"
#include "engine/storage/attached_file.h"
#include "engine/storage/connection.h"

/// What checking, compacting and repairing have in common: faults of a file as lines for people.
namespace engine::checks {

/// "5, 7 to 9 and 12", shortened when there are many.
std::string listOf(const std::vector<std::uint32_t>& numbers);
std::vector<std::string> faultsOf(const file::PageCheck& pages);
std::vector<std::string> faultsOf(const file::LogCheck& log);

/// Trees and indexes of an attached file; `thorough` compares each index with its table.
std::vector<std::string> structureFaults(storage::AttachedFile& file, bool thorough);
/// Tables, columns and indexes that the catalogue names and the file lacks, and the reverse.
std::vector<std::string> catalogueFaults(storage::AttachedFile& file);
/// Rows whose partner in a relation is missing.
std::vector<std::string> relationFaults(storage::AttachedFile& file);

/// Opens a file that was just written and closed, reads it whole, and throws 3343 when that shows a fault.
void mustBeSound(const file::Credential& credential, const std::string& path);

}  // namespace engine::checks
