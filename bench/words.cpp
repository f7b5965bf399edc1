#include "words.h"

#include <algorithm>
#include <fstream>

namespace bench {

namespace {

constexpr const char* syllables[] = {"ba",  "ler",   "schu", "rin", "täg",  "lich", "ver",  "ste",
                                     "hen", "wur",   "zel",  "mög", "keit", "hand", "werk", "stü",
                                     "ck",  "nacht", "o",    "fen", "glas", "tür",  "a",    "bend"};

}  // namespace

std::string WordMaker::word() {
  std::string text;
  for (std::size_t s = 2 + random_() % 4; s > 0; --s) text += syllables[random_() % std::size(syllables)];
  return text;
}

std::string scatteredWord(std::uint64_t n) {
  std::uint64_t bits = (n + 1) * 0x9e3779b97f4a7c15U;
  bits = (bits ^ (bits >> 31)) * 0xbf58476d1ce4e5b9U;
  bits ^= bits >> 29;
  std::string word;
  for (std::uint64_t syllable = 2 + bits % 4; syllable > 0; --syllable) {
    bits >>= 8;
    word += syllables[bits % std::size(syllables)];
  }
  return word + std::to_string(n);
}

std::vector<Word> makeWords(std::size_t count) {
  WordMaker maker;
  std::vector<Word> words(count);
  for (std::size_t n = 0; n < count; ++n) {
    const std::string text = maker.word();
    words[n] = {text + std::to_string(n), "sense of " + text};
  }
  return words;
}

std::vector<std::string> headwordsToFind(std::size_t count) {
  constexpr std::size_t wanted = 20;
  WordMaker maker;
  std::vector<std::string> headwords;
  for (std::size_t n = 0; n < count && headwords.size() < wanted; ++n) {
    const std::string text = maker.word();
    if ((n + 1) % (count / (wanted + 1)) == 0) headwords.push_back(text + std::to_string(n));
  }
  return headwords;
}

void writeWordList(const std::string& path, const std::vector<Word>& words) {
  std::ofstream file(path, std::ios::binary);
  file << "headword;meaning\n";
  for (const Word& word : words) file << word.headword << ';' << word.meaning << '\n';
}

}  // namespace bench
