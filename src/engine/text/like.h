#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "engine/text/collator.h"

namespace engine::text {

/// A LIKE pattern, ready to match many texts. Letters match without regard to case, accents count; a range
/// of a list goes by the collation. Matching takes at most pattern times text, whatever the pattern.
///
/// First interface: * any characters, ? one, # a digit, [list] one of the list, [!list] one not in it, with
/// ranges a-z; "[]" is nothing, a "-" at an end of a list stands for itself. Second interface: % and _.
class LikePattern {
 public:
  /// Throws Error 5 for a list that is not closed or a range that runs backwards.
  LikePattern(std::string_view pattern, int interfaceNumber, std::shared_ptr<const Collator> collator);
  bool matches(std::string_view text) const;

  /// Whether it is nothing but wildcards for any characters.
  bool matchesAll() const;

  /// Bounds for an index under the same collation: each text that matches lies in first <= text <= second.
  /// Nothing when the pattern does not begin with a letter that bounds it.
  std::optional<std::pair<std::string, std::string>> bounds() const;

  /// The trigrams, written in GramLetters, that each text which matches has. Of a pattern without three
  /// letters in a row the pairs of letters, else its single letters, with which some trigrams of each text
  /// begin.
  std::vector<std::string> grams() const;

 private:
  enum class Kind { letter, any, digit, run, list };
  struct Range {
    std::string low, high;  ///< one character each
    char32_t folded = 0;    ///< of low, when the range is that one character
    bool single = false;
  };
  struct Token {
    Kind kind = Kind::any;
    char32_t folded = 0;        ///< letter
    bool negated = false;       ///< list
    std::vector<Range> ranges;  ///< list
  };

  void readList(std::string_view pattern, std::size_t& at);
  bool same(char32_t a, char32_t b) const;
  bool inList(const Token& token, std::string_view character, char32_t folded) const;
  bool one(const Token& token, std::string_view character, char32_t code) const;

  std::shared_ptr<const Collator> collator_;
  std::vector<Token> tokens_;
};

}  // namespace engine::text
