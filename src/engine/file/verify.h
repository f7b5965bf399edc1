#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "engine/file/vfs.h"

/// Authenticates a file and its log page by page, without SQLite and without changing anything.
namespace engine::file {

struct PageCheck {
  std::uint32_t pages = 0;         ///< whole pages in the file
  std::uint32_t expected = 0;      ///< as page 1 has it; 0 when that does not open
  bool partialEnd = false;         ///< bytes behind the last whole page
  std::vector<std::uint32_t> bad;  ///< pages that do not open, ascending, from 1
};
/// Reads the whole file. Pages that another process is just writing are tried again. A file with a log or a
/// journal that a crash left has to be opened by SQLite first, or pages that these would heal count as bad.
/// `progress` gets a share from 0 to 1 and may throw. Throws as examine() does for a file without any good
/// page.
PageCheck verifyPages(const std::string& path, const Credential& credential,
                      const std::function<void(double)>& progress = {});

struct LogCheck {
  std::uint32_t valid = 0;   ///< frames that recovery takes, from the first on
  std::uint32_t behind = 0;  ///< authentic frames of this log behind the first that is not valid
};
/// Looks at the log of a file that no program has open, before SQLite recovers it. Frames "behind" mean that
/// the log was damaged in its middle: the commits in them are lost at recovery, without an error. A missing
/// log gives zeros.
LogCheck verifyLog(const std::string& path, const Credential& credential);

}  // namespace engine::file
