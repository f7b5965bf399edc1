#pragma once

#include <cstdint>
#include <random>
#include <string>
#include <vector>

/// Made-up words, the same in every run.
namespace bench {

/// Words made of syllables.
class WordMaker {
 public:
  std::string word();
  std::size_t number(std::size_t below) { return random_() % below; }

 private:
  std::mt19937 random_{7};
};

/// The n-th of other words of syllables: by their numbers they lie in no order.
std::string scatteredWord(std::uint64_t n);

struct Word {
  std::string headword, meaning;
};

/// Headwords in no order, each different from all others, with a meaning.
std::vector<Word> makeWords(std::size_t count);
/// Twenty of these headwords, spread over the list.
std::vector<std::string> headwordsToFind(std::size_t count);
/// Writes a delimited list of two columns, with their names in the first line.
void writeWordList(const std::string& path, const std::vector<Word>& words);

}  // namespace bench
