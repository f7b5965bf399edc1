#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace platform::media {

struct ChildLimits {
  std::size_t addressSpace;  ///< bytes
  int seconds;               ///< of processor time, and of time by the clock
  std::size_t output;        ///< bytes
};

struct ChildResult {
  int exitCode = -1;     ///< -1: ended by a signal, or stopped
  bool stopped = false;  ///< a limit of time or of output was reached
  std::string output, errors;
};

/// Runs a program to its end with `inputFile` as its standard input, in an environment of its own with a
/// temporary folder that is removed afterwards. `arguments` begins with the program's absolute path; no
/// shell reads them. The program can open its input again as `childInput`. Whatever it started ends with
/// it. Throws Error 53 when the program or the file is missing, 70 when one can not be opened.
ChildResult runChild(const std::vector<std::string>& arguments, const std::string& inputFile,
                     const ChildLimits& limits);

inline constexpr const char* childInput = "/proc/self/fd/0";

}  // namespace platform::media
