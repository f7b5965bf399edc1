#pragma once

#include <string>
#include <vector>

namespace browse {

/// What a grid shows: a caption a column, and rows of text of the same width.
struct Grid {
  std::vector<std::string> captions;
  std::vector<std::vector<std::string>> rows;
};

}  // namespace browse
