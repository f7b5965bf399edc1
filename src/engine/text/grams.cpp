#include "engine/text/grams.h"

#include <algorithm>
#include <cstdint>

#include "base/utf8.h"

namespace engine::text {
namespace {

// Letters lie where each takes three bytes and none means anything to SQLite.
constexpr char32_t firstLetter = 0x1000, letters = 0xC000;
constexpr const char* ending = "\u0FFF\u0FFF";

char32_t hashed(std::string_view key) {
  std::uint32_t hash = 2166136261u;  // FNV-1a
  for (const char byte : key) hash = (hash ^ static_cast<std::uint8_t>(byte)) * 16777619u;
  return firstLetter + hash % letters;
}

}  // namespace

GramLetters::GramLetters(std::shared_ptr<const Collator> collator)
    : collator_(std::move(collator)), known_(0x10000, 0) {}

char32_t GramLetters::codeOf(char32_t character) {
  const char32_t folded = collator_->fold(character);
  if (character >= known_.size()) return hashed(collator_->sortKey(folded));
  char16_t& known = known_[character];
  if (known == 0) known = static_cast<char16_t>(hashed(collator_->sortKey(folded)));
  return known;
}

std::string GramLetters::letter(char32_t folded) {
  std::string letter;
  base::appendCodePoint(letter, hashed(collator_->sortKey(folded)));
  return letter;
}

std::string GramLetters::spell(std::string_view text) {
  std::string spelled;
  spelled.reserve(text.size() * letterSize);
  for (std::size_t at = 0; at < text.size();) {
    const char32_t code = base::nextCodePoint(text, at);
    base::appendCodePoint(spelled, codeOf(code == base::invalidCodePoint ? U'\uFFFD' : code));
  }
  if (!spelled.empty()) spelled += ending;
  return spelled;
}

std::vector<std::string_view> gramsOf(std::string_view spelled) {
  constexpr std::size_t size = GramLetters::letterSize;
  std::vector<std::string_view> grams;
  for (std::size_t at = 0; at + 3 * size <= spelled.size(); at += size)
    grams.push_back(spelled.substr(at, 3 * size));
  std::sort(grams.begin(), grams.end());
  grams.erase(std::unique(grams.begin(), grams.end()), grams.end());
  return grams;
}

}  // namespace engine::text
