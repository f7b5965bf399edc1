#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace cli {

/// Wrong usage of the command line: exit code 2 and the usage line.
struct UsageError {
  std::string text;
};

/// One option as it stood on the command line.
struct Option {
  std::string name;   ///< with its dashes
  std::string value;  ///< empty for a switch
};

/// A command line, taken apart. Global options may stand anywhere; the others keep their order, since
/// some belong to the option before them.
struct Arguments {
  std::vector<std::string> words;  ///< the command and its plain arguments
  std::vector<Option> options;     ///< without the global ones
  bool yes = false;                ///< --yes
  std::vector<int> answers;        ///< --answers 6,7
  std::vector<std::string> with;   ///< --with DICT: further files of the session
  bool help = false;

  bool has(const std::string& option) const;
  std::optional<std::string> value(const std::string& option) const;  ///< of the last one given
  /// A whole number of an option. Throws UsageError when it is none or below `least`.
  std::optional<long long> number(const std::string& option, long long least) const;
};

/// Takes a command line apart. `switches` and `valued` are the options that the command knows; a valued
/// one takes the next word, or what stands behind "=". "--" ends the options. Throws UsageError.
Arguments parse(const std::vector<std::string>& line, const std::vector<std::string>& switches,
                const std::vector<std::string>& valued);

/// A whole number of a plain argument. Throws UsageError naming it.
long long wholeNumber(const std::string& text, const std::string& what);

}  // namespace cli
