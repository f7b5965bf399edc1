#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "engine/text/collator.h"

namespace engine::text {

/// The letters that an index of trigrams is written in. Characters that LIKE takes as equal under a collation
/// share a letter; others may, so what such an index finds has to be compared again. Letters stay what they
/// are as long as the collation keeps its version. Keeps what it found out, so it is for one thread.
class GramLetters {
 public:
  static constexpr std::size_t letterSize = 3;  ///< bytes of each letter, in UTF-8

  explicit GramLetters(std::shared_ptr<const Collator> collator);
  /// The letter of a character that was folded.
  std::string letter(char32_t folded);
  /// A text with each character replaced by its letter, and two letters of their own at the end, so that
  /// some trigram begins with each letter and each pair of letters.
  std::string spell(std::string_view text);

 private:
  char32_t codeOf(char32_t character);

  std::shared_ptr<const Collator> collator_;
  std::vector<char16_t> known_;  // by character, 0 where it was not asked for yet
};

/// The trigrams of a text that is spelled in letters, each once, in no order of meaning.
std::vector<std::string_view> gramsOf(std::string_view spelled);

}  // namespace engine::text
