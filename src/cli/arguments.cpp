#include "cli/arguments.h"

#include <algorithm>
#include <charconv>

#include "base/text.h"

namespace cli {

namespace {

bool contains(const std::vector<std::string>& list, const std::string& text) {
  return std::find(list.begin(), list.end(), text) != list.end();
}

std::vector<int> answerList(const std::string& text) {
  std::vector<int> answers;
  for (std::size_t from = 0; from <= text.size();) {
    const std::size_t comma = std::min(text.find(',', from), text.size());
    answers.push_back(static_cast<int>(wholeNumber(text.substr(from, comma - from), "--answers")));
    from = comma + 1;
  }
  return answers;
}

}  // namespace

long long wholeNumber(const std::string& text, const std::string& what) {
  long long number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc() || end != text.data() + text.size() || text.empty())
    throw UsageError{what + " takes a whole number, not \"" + text + "\"."};
  return number;
}

bool Arguments::has(const std::string& option) const {
  return std::any_of(options.begin(), options.end(), [&](const Option& o) { return o.name == option; });
}

std::optional<std::string> Arguments::value(const std::string& option) const {
  const auto found =
      std::find_if(options.rbegin(), options.rend(), [&](const Option& o) { return o.name == option; });
  if (found == options.rend()) return {};
  return found->value;
}

std::optional<long long> Arguments::number(const std::string& option, long long least) const {
  const auto text = value(option);
  if (!text) return {};
  const long long n = wholeNumber(*text, option);
  if (n < least) throw UsageError{option + " must be at least " + std::to_string(least) + "."};
  return n;
}

Arguments parse(const std::vector<std::string>& line, const std::vector<std::string>& switches,
                const std::vector<std::string>& valued) {
  Arguments result;
  bool optionsEnded = false;
  for (std::size_t n = 0; n < line.size(); ++n) {
    const std::string& word = line[n];
    if (!base::isUtf8(word))
      throw UsageError{"Word " + std::to_string(n + 1) + " of the command is no text in UTF-8."};
    if (optionsEnded || word.size() < 3 || word.rfind("--", 0) != 0) {
      if (word == "--")
        optionsEnded = true;
      else
        result.words.push_back(word);
      continue;
    }
    const std::size_t equals = word.find('=');
    const std::string name = word.substr(0, equals);
    const bool takesValue = name == "--answers" || name == "--with" || contains(valued, name);
    if (!takesValue &&
        (equals != std::string::npos || (name != "--yes" && name != "--help" && !contains(switches, name))))
      throw UsageError{"Unknown option " + word + "."};
    std::string value;
    if (takesValue && equals != std::string::npos)
      value = word.substr(equals + 1);
    else if (takesValue && ++n < line.size())
      value = line[n];
    else if (takesValue)
      throw UsageError{name + " needs a value."};
    if (name == "--yes")
      result.yes = true;
    else if (name == "--help")
      result.help = true;
    else if (name == "--answers")
      result.answers = answerList(value);
    else if (name == "--with")
      result.with.push_back(value);
    else
      result.options.push_back({name, value});
  }
  return result;
}

}  // namespace cli
