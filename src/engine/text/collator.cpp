#include "engine/text/collator.h"

#include <unicode/uchar.h>
#include <unicode/uloc.h>
#include <unicode/uset.h>

#include <algorithm>
#include <charconv>
#include <cstring>
#include <map>
#include <mutex>
#include <vector>

#include "base/text.h"
#include "engine/text/collation.h"
#include "engine/types/types.h"

namespace engine::text {
namespace {

// Raised when compare() changes its results for the same rules of ICU.
constexpr const char* ownRevision = "1";

// LANGIDs whose order is not the plain one of their language.
struct Special {
  unsigned langId;
  const char* locale;
};
constexpr Special specials[] = {{0x040A, "es@collation=traditional"}, {0x0C0A, "es"},
                                {0x0404, "zh@collation=stroke"},      {0x0C04, "zh@collation=stroke"},
                                {0x0804, "zh@collation=pinyin"},      {0x1004, "zh@collation=pinyin"}};

std::string icuLocale(unsigned langId) {
  for (const Special& special : specials) {
    if (special.langId == langId) return special.locale;
  }
  char name[ULOC_FULLNAME_CAPACITY];
  UErrorCode status = U_ZERO_ERROR;
  const std::int32_t length = uloc_getLocaleForLCID(langId, name, sizeof name, &status);
  if (U_FAILURE(status) || length <= 0 || length >= ULOC_FULLNAME_CAPACITY) return {};
  return {name, static_cast<std::size_t>(length)};
}

// The number in "vc_0407"; 0 when the name is none of ours.
unsigned langIdOf(std::string_view collation) {
  unsigned langId = 0;
  if (collation.size() != 7 || !collation.starts_with("vc_")) return 0;
  const char* const end = collation.data() + collation.size();
  const auto [stop, code] = std::from_chars(collation.data() + 3, end, langId, 16);
  return code == std::errc{} && stop == end ? langId : 0;
}

bool isAscii(char c) {
  return static_cast<unsigned char>(c) < 0x80;
}
std::size_t index(char c) {
  return static_cast<unsigned char>(c);
}
std::size_t pairIndex(char first, char second) {
  return index(first) * 128 + index(second);
}

int sign(UCollationResult result) {
  return static_cast<int>(result);
}

}  // namespace

std::string collationName(std::string_view locale) {
  const std::string upper = base::upper(locale);
  const std::size_t at = upper.find("LANGID=");
  unsigned langId = 0;
  if (at != std::string::npos) {
    std::string_view digits = std::string_view(upper).substr(at + 7);
    const bool hexadecimal = digits.starts_with("0X");
    if (hexadecimal) digits.remove_prefix(2);
    const auto result =
        std::from_chars(digits.data(), digits.data() + digits.size(), langId, hexadecimal ? 16 : 10);
    if (result.ec != std::errc{}) langId = 0;
  }
  if (langId == 0 || langId > 0xFFFF || icuLocale(langId).empty()) {
    throw Error(errors::invalidArgument, "The locale \"" + std::string(locale) + "\" is not known.");
  }
  char hex[5] = {};
  const auto end = std::to_chars(hex, hex + 4, langId, 16).ptr;
  const std::string number(hex, end);
  return "vc_" + std::string(4 - number.size(), '0') + number;
}

void Collator::Close::operator()(USet* set) const {
  uset_close(set);
}

Collator::Collator(const std::string& collation) {
  const unsigned langId = langIdOf(collation);
  const std::string locale = langId == 0 ? std::string() : icuLocale(langId);
  UErrorCode status = U_ZERO_ERROR;
  if (!locale.empty()) collator_.reset(ucol_open(locale.c_str(), &status));
  if (!collator_ || U_FAILURE(status)) {
    throw Error(errors::invalidArgument, "The text order \"" + collation + "\" is not known.");
  }
  // Some locales skip blanks and signs or weigh accents from the end; two texts that differ in a sign are
  // two texts here, and the bounds of a LIKE prefix need the common direction.
  ucol_setAttribute(collator_.get(), UCOL_ALTERNATE_HANDLING, UCOL_NON_IGNORABLE, &status);
  ucol_setAttribute(collator_.get(), UCOL_FRENCH_COLLATION, UCOL_OFF, &status);
  ucol_setAttribute(collator_.get(), UCOL_CASE_LEVEL, UCOL_OFF, &status);
  ucol_setStrength(collator_.get(), UCOL_SECONDARY);
  dottedI_ = locale.starts_with("tr") || locale.starts_with("az");
  readContractions();
  buildAsciiTable();
  if (U_FAILURE(status)) throw Error(errors::invalidArgument, "The text order can not be set up.");
}

// Whether a contraction sorts where its first character, the `first` units of it, sorts with anything behind
// it.
bool Collator::sortsBehind(const UChar* text, std::int32_t first, std::int32_t length) const {
  std::u16string high(text, text + first);
  high += u'\uFFFF';
  return ucol_strcoll(collator_.get(), text, first, text, length) != UCOL_GREATER &&
         ucol_strcoll(collator_.get(), text, length, high.data(), static_cast<std::int32_t>(high.size())) !=
             UCOL_GREATER;
}

// Remembers which characters start a contraction that sorts elsewhere, which ASCII pairs are one, and which
// ASCII characters expand.
void Collator::readContractions() {
  UErrorCode status = U_ZERO_ERROR;
  contractionStarts_.reset(uset_openEmpty());
  const std::unique_ptr<USet, Close> contractions(uset_openEmpty()), expansions(uset_openEmpty());
  ucol_getContractionsAndExpansions(collator_.get(), contractions.get(), expansions.get(), true, &status);
  if (U_FAILURE(status)) throw Error(errors::invalidArgument, "The text order can not be read.");
  for (UChar32 c = 0; c < 128; ++c) {
    rank_[static_cast<std::size_t>(c)] = uset_contains(expansions.get(), c) ? 0 : 1;
  }
  std::vector<UChar> text(64);
  for (std::int32_t i = 0; i < uset_getItemCount(contractions.get()); ++i) {
    UChar32 start = 0, end = 0;
    UErrorCode itemStatus = U_ZERO_ERROR;
    const std::int32_t length = uset_getItem(contractions.get(), i, &start, &end, text.data(),
                                             static_cast<std::int32_t>(text.size()), &itemStatus);
    if (length < 2 || U_FAILURE(itemStatus)) continue;  // ranges of single characters
    UChar32 first = 0;
    std::int32_t at = 0;
    U16_NEXT(text.data(), at, length, first);
    if (!sortsBehind(text.data(), at, length)) uset_add(contractionStarts_.get(), first);
    if (text[0] < 128 && text[1] < 128) {
      pairs_.set(pairIndex(static_cast<char>(text[0]), static_cast<char>(text[1])));
    }
  }
}

// Ranks the ASCII characters by asking ICU once for each pair of neighbours. A character stays with ICU
// when it weighs nothing, expands, or differs from another by an accent alone.
void Collator::buildAsciiTable() {
  std::vector<char> order;
  for (int c = 0; c < 128; ++c) {
    const char one = static_cast<char>(c);
    UErrorCode status = U_ZERO_ERROR;
    if (ucol_strcollUTF8(collator_.get(), &one, 1, "", 0, &status) == UCOL_EQUAL) rank_[index(one)] = 0;
    if (rank_[index(one)] != 0) order.push_back(one);
  }
  const auto ask = [&](char a, char b) {
    UErrorCode status = U_ZERO_ERROR;
    return sign(ucol_strcollUTF8(collator_.get(), &a, 1, &b, 1, &status));
  };
  std::stable_sort(order.begin(), order.end(), [&](char a, char b) { return ask(a, b) < 0; });
  std::uint8_t rank = 1;
  for (std::size_t i = 0; i < order.size(); ++i) {
    if (i > 0 && ask(order[i - 1], order[i]) != 0) ++rank;
    rank_[index(order[i])] = rank;
  }
  ucol_setStrength(collator_.get(), UCOL_PRIMARY);
  for (std::size_t i = 1; i < order.size(); ++i) {
    const bool sameLetter = ask(order[i - 1], order[i]) == 0;
    if (sameLetter && rank_[index(order[i - 1])] != rank_[index(order[i])]) {
      for (const char c : {order[i - 1], order[i]}) rank_[index(c)] = 0;
    }
  }
  ucol_setStrength(collator_.get(), UCOL_SECONDARY);
  for (std::size_t pair = 0; pair < pairs_.size(); ++pair) {
    if (pairs_.test(pair) && rank_[pair / 128] != 0) rank_[pair / 128] |= startsPair;
  }
}

char32_t Collator::fold(char32_t c) const {
  if (dottedI_) {
    if (c == U'I') return U'ı';
    if (c == U'İ' || c == U'i') return U'i';
    if (c == U'ı') return c;
  }
  if (c < 0x80) return c >= 'A' && c <= 'Z' ? c + 32 : c;
  // These fold to letters that they do not sort as: the combining iota, the long s, plain and with a dot.
  if (c == 0x345 || c == 0x17F || c == 0x1E9B) return c;
  return static_cast<char32_t>(u_foldCase(static_cast<UChar32>(c), U_FOLD_CASE_DEFAULT));
}

std::string Collator::sortKey(char32_t character) const {
  UChar units[U16_MAX_LENGTH];
  std::int32_t length = 0;
  U16_APPEND_UNSAFE(units, length, character);
  std::string key(static_cast<std::size_t>(ucol_getSortKey(collator_.get(), units, length, nullptr, 0)), 0);
  ucol_getSortKey(collator_.get(), units, length, reinterpret_cast<std::uint8_t*>(key.data()),
                  static_cast<std::int32_t>(key.size()));
  return key;
}

bool Collator::mayContract(char32_t character, char32_t next) const {
  if (character >= 128 || next >= 128) {
    const auto starts = [this](UChar32 c) { return uset_contains(contractionStarts_.get(), c) != 0; };
    const auto c = static_cast<UChar32>(character);
    return starts(c) || starts(u_toupper(c)) || starts(u_tolower(c));
  }
  const auto letter = static_cast<UChar32>(character), follower = static_cast<UChar32>(next);
  for (const UChar32 a : {u_toupper(letter), u_tolower(letter)}) {
    for (const UChar32 b : {u_toupper(follower), u_tolower(follower)}) {
      if (pairs_.test(pairIndex(static_cast<char>(a), static_cast<char>(b)))) return true;
    }
  }
  return false;
}

// Whether the ASCII character at `i` sorts as its rank says: what stands behind it can not change it.
bool Collator::standsAlone(std::string_view text, std::size_t i) const {
  if (i + 1 == text.size()) return true;
  if (!isAscii(text[i + 1])) return false;
  return (rank_[index(text[i])] & startsPair) == 0 || !pairs_.test(pairIndex(text[i], text[i + 1]));
}

int Collator::compare(std::string_view a, std::string_view b) const {
  const std::size_t common = std::min(a.size(), b.size());
  if (a.size() == b.size() && std::memcmp(a.data(), b.data(), common) == 0) return 0;
  // Letter by letter while both are ASCII: the first difference in rank decides. What that leaves open goes
  // to ICU whole.
  std::size_t i = 0;
  for (; i < common; ++i) {
    const int x = rank_[index(a[i])], y = rank_[index(b[i])];
    const int difference = (x & rankBits) - (y & rankBits);
    if ((x & rankBits) == 0 || (y & rankBits) == 0) break;
    if (difference != 0) {
      if (!standsAlone(a, i) || !standsAlone(b, i)) break;
      return difference;
    }
    if (((x | y) & startsPair) != 0 && (!standsAlone(a, i) || !standsAlone(b, i))) break;
  }
  if (i == common) {
    if (a.size() == b.size()) return 0;
    const std::string_view longer = a.size() > b.size() ? a : b;
    if ((rank_[index(longer[i])] & rankBits) != 0 && standsAlone(longer, i))
      return a.size() > b.size() ? 1 : -1;
  }
  UErrorCode status = U_ZERO_ERROR;
  const auto result = ucol_strcollUTF8(collator_.get(), a.data(), static_cast<std::int32_t>(a.size()),
                                       b.data(), static_cast<std::int32_t>(b.size()), &status);
  if (U_FAILURE(status)) throw Error(errors::invalidArgument, "Two texts can not be compared.");
  return sign(result);
}

std::string Collator::version() const {
  UVersionInfo info;
  ucol_getVersion(collator_.get(), info);
  std::string text = ownRevision;
  for (const std::uint8_t part : info) text += "." + std::to_string(part);
  return text;
}

std::shared_ptr<const Collator> collator(const std::string& collation) {
  static std::mutex guard;
  static std::map<std::string, std::shared_ptr<const Collator>> made;
  const std::lock_guard lock(guard);
  auto& entry = made[collation];
  if (!entry) entry = std::make_shared<const Collator>(collation);
  return entry;
}

std::string collationVersion(const std::string& collation) {
  return collator(collation)->version();
}

int compare(const std::string& collation, std::string_view a, std::string_view b) {
  return collator(collation)->compare(a, b);
}

}  // namespace engine::text
