#pragma once

#include <unicode/ucol.h>

#include <array>
#include <bitset>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace engine::text {

/// One locale's order of texts, by ICU at secondary strength, with a table for plain ASCII that gives the
/// same results. Immutable once made, so threads may share it.
class Collator {
 public:
  /// Throws Error 5 when `collation` is not "vc_" and four hexadecimal digits of a LANGID ICU knows.
  explicit Collator(const std::string& collation);

  int compare(std::string_view a, std::string_view b) const;
  /// Turkish and Azeri pair i with İ and ı with I.
  bool dottedI() const { return dottedI_; }
  /// The letter that stands for a character where case does not count.
  char32_t fold(char32_t character) const;
  /// Bytes that two characters share exactly when compare() gives 0 for them.
  std::string sortKey(char32_t character) const;
  /// Whether a character, in either case, may melt with the one behind it and then sort elsewhere than on
  /// its own (Czech "c" and "h"). A follower that is not ASCII counts as one that may.
  bool mayContract(char32_t character, char32_t next) const;
  std::string version() const;

 private:
  struct Close {
    void operator()(UCollator* collator) const { ucol_close(collator); }
    void operator()(USet* set) const;
  };

  void buildAsciiTable();
  void readContractions();
  bool sortsBehind(const char16_t* text, std::int32_t first, std::int32_t length) const;
  bool standsAlone(std::string_view text, std::size_t i) const;

  std::unique_ptr<UCollator, Close> collator_;
  std::unique_ptr<USet, Close> contractionStarts_;
  bool dottedI_ = false;
  static constexpr std::uint8_t rankBits = 0x7F, startsPair = 0x80;
  /// For each byte: the rank of an ASCII character among the others, equal where case alone differs, and
  /// whether it starts a pair; rank 0 leaves it to ICU.
  std::array<std::uint8_t, 256> rank_{};
  std::bitset<128 * 128> pairs_;  ///< first two characters of a contraction
};

/// The collator of a collation, kept for the process.
std::shared_ptr<const Collator> collator(const std::string& collation);

}  // namespace engine::text
