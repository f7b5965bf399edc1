#include "engine/text/like.h"

#include <unicode/uchar.h>

#include <algorithm>

#include "base/utf8.h"
#include "engine/text/collation.h"
#include "engine/text/grams.h"
#include "engine/types/types.h"

namespace engine::text {
namespace {

// From here on scripts have characters that differ in width or kind alone, which "=" takes as equal.
constexpr char32_t firstWideScript = 0x2E80;

std::string encoded(char32_t code) {
  std::string text;
  base::appendCodePoint(text, code);
  return text;
}

char32_t nextOf(std::string_view text, std::size_t& at) {
  const char32_t code = base::nextCodePoint(text, at);
  return code == base::invalidCodePoint ? U'\uFFFD' : code;
}

}  // namespace

LikePattern::LikePattern(std::string_view pattern, int interfaceNumber,
                         std::shared_ptr<const Collator> collator)
    : collator_(std::move(collator)) {
  for (std::size_t at = 0; at < pattern.size();) {
    const char32_t c = nextOf(pattern, at);
    const bool first = interfaceNumber == 1;
    if (c == (first ? U'*' : U'%')) {
      if (tokens_.empty() || tokens_.back().kind != Kind::run) tokens_.push_back({Kind::run, 0, false, {}});
    } else if (c == (first ? U'?' : U'_')) {
      tokens_.push_back({Kind::any, 0, false, {}});
    } else if (first && c == U'#') {
      tokens_.push_back({Kind::digit, 0, false, {}});
    } else if (first && c == U'[') {
      readList(pattern, at);
    } else {
      tokens_.push_back({Kind::letter, collator_->fold(c), false, {}});
    }
  }
}

// Reads a list from behind its "[" to behind its "]".
void LikePattern::readList(std::string_view pattern, std::size_t& at) {
  const std::size_t close = pattern.find(']', at);
  if (close == std::string_view::npos) {
    throw Error(errors::invalidArgument,
                "The pattern \"" + std::string(pattern) + "\" has a [ without its ].");
  }
  std::string_view body = pattern.substr(at, close - at);
  at = close + 1;
  if (body.empty()) return;
  Token token{Kind::list, 0, false, {}};
  if (body.size() > 1 && body.front() == '!') {
    token.negated = true;
    body.remove_prefix(1);
  }
  for (std::size_t i = 0; i < body.size();) {
    const char32_t low = nextOf(body, i);
    Range range{encoded(low), encoded(low), collator_->fold(low), true};
    if (i + 1 < body.size() && body[i] == '-') {
      ++i;
      range.high = encoded(nextOf(body, i));
      range.single = false;
      if (collator_->compare(range.low, range.high) > 0) {
        throw Error(errors::invalidArgument,
                    "The pattern \"" + std::string(pattern) + "\" has a range that runs backwards.");
      }
    }
    token.ranges.push_back(std::move(range));
  }
  // A list of one letter is that letter, so that "[*]" bounds an index as any letter does.
  if (token.ranges.size() == 1 && token.ranges.front().single && !token.negated) {
    token = Token{Kind::letter, token.ranges.front().folded, false, {}};
  }
  tokens_.push_back(std::move(token));
}

bool LikePattern::same(char32_t a, char32_t b) const {
  if (a == b) return true;
  if (a < firstWideScript && b < firstWideScript) return false;
  return collator_->compare(encoded(a), encoded(b)) == 0;
}

bool LikePattern::inList(const Token& token, std::string_view character, char32_t folded) const {
  for (const Range& range : token.ranges) {
    const bool hit = range.single ? same(range.folded, folded)
                                  : collator_->compare(range.low, character) <= 0 &&
                                        collator_->compare(character, range.high) <= 0;
    if (hit) return true;
  }
  return false;
}

bool LikePattern::one(const Token& token, std::string_view character, char32_t code) const {
  switch (token.kind) {
    case Kind::letter:
      return same(token.folded, collator_->fold(code));
    case Kind::any:
      return true;
    case Kind::digit:
      return code >= '0' && code <= '9';
    case Kind::list:
      return inList(token, character, collator_->fold(code)) != token.negated;
    case Kind::run:
      break;
  }
  return false;
}

bool LikePattern::matches(std::string_view text) const {
  // Going back to the last run only is enough: an earlier one could not do better.
  constexpr std::size_t none = static_cast<std::size_t>(-1);
  std::size_t token = 0, at = 0, lastRun = none, runEnd = 0;
  while (at < text.size()) {
    if (token < tokens_.size() && tokens_[token].kind == Kind::run) {
      lastRun = token++;
      runEnd = at;
      if (token == tokens_.size()) return true;
      continue;
    }
    std::size_t behind = at;
    const char32_t code = nextOf(text, behind);
    if (token < tokens_.size() && one(tokens_[token], text.substr(at, behind - at), code)) {
      ++token;
      at = behind;
      continue;
    }
    if (lastRun == none) return false;
    nextOf(text, runEnd);
    at = runEnd;
    token = lastRun + 1;
  }
  while (token < tokens_.size() && tokens_[token].kind == Kind::run) ++token;
  return token == tokens_.size();
}

bool LikePattern::matchesAll() const {
  return !tokens_.empty() &&
         std::ranges::all_of(tokens_, [](const Token& token) { return token.kind == Kind::run; });
}

std::optional<std::pair<std::string, std::string>> LikePattern::bounds() const {
  std::u32string prefix;
  for (const Token& token : tokens_) {
    if (token.kind != Kind::letter || token.folded >= firstWideScript) break;
    prefix += token.folded;
  }
  // What may melt with its follower sorts anywhere, and in another place for another case ("zs", "zS").
  for (std::size_t i = 0; i < prefix.size(); ++i) {
    const char32_t next = i + 1 < prefix.size() ? prefix[i + 1] : base::invalidCodePoint;
    if (collator_->mayContract(prefix[i], next)) prefix.resize(i);
  }
  // A combining mark may change places with one behind it.
  while (!prefix.empty() && u_getCombiningClass(static_cast<UChar32>(prefix.back())) != 0) prefix.pop_back();
  if (prefix.empty()) return std::nullopt;
  std::string low;
  for (const char32_t c : prefix) base::appendCodePoint(low, c);
  if (collator_->compare(low, "") == 0) return std::nullopt;
  // U+FFFF sorts behind every other character.
  return std::pair(low, low + "\xEF\xBF\xBF");
}

std::vector<std::string> LikePattern::grams() const {
  GramLetters letters(collator_);
  std::vector<std::string> runs(1);
  for (const Token& token : tokens_) {
    if (token.kind == Kind::letter)
      runs.back() += letters.letter(token.folded);
    else if (!runs.back().empty())
      runs.emplace_back();
  }
  const std::string& longest = *std::ranges::max_element(runs, {}, &std::string::size);
  const std::size_t size = std::min(longest.size(), 3 * GramLetters::letterSize);
  std::vector<std::string> found;
  for (const std::string& run : runs)
    for (std::size_t at = 0; size > 0 && at + size <= run.size(); at += GramLetters::letterSize)
      found.push_back(run.substr(at, size));
  std::sort(found.begin(), found.end());
  found.erase(std::unique(found.begin(), found.end()), found.end());
  return found;
}

bool like(std::string_view text, std::string_view pattern, int interfaceNumber,
          const std::string& collation) {
  return LikePattern(pattern, interfaceNumber, collator(collation)).matches(text);
}

}  // namespace engine::text
