#pragma once

#include <string>
#include <string_view>

/// "schema.ini", the description of delimited text files that stands beside them.
namespace exchange {

/// How one delimited file is laid out.
struct TextLayout {
  bool header = true;           ///< the first line holds the column names
  std::string separator = ";";  ///< one character; empty: tab
  std::string decimalSymbol = ".";
  std::string characterSet = "UTF-8";  ///< "ANSI", "OEM", "UTF-8", "Unicode", or any name that ICU knows
};

/// Writes "schema.ini" into the file's folder, replacing an older one. Throws 61, 70, 3044.
void MakeSchema(const std::string& textFile, const TextLayout& layout);

/// Reads the section of a file from the "schema.ini" in its folder. Throws 53 when there is none, 5 for
/// an entry that is not understood.
TextLayout readSchema(const std::string& textFile);

}  // namespace exchange
