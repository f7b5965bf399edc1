#pragma once

#include <string>
#include <vector>

/// The text catalogue of data/catalogue: four tables of texts that code names by key and the program finds by
/// position.
namespace catalogue {

/// Longest text that the system database takes, in characters.
inline constexpr std::size_t maxLength = 255;

struct Text {
  std::string key;  ///< empty: a position that code can not refer to
  std::string german, english;
};

/// The tables in the order in which the program loads them: file name without its ending, table of the system
/// database.
struct Kind {
  const char* name;
  const char* table;
  bool bilingual =
      true;  ///< printed texts exist in German only; their English column is a help for the reader
};
inline constexpr Kind kinds[] = {
    {"menu", "MenuTxt"}, {"label", "labelTxt"}, {"dialog", "DialogTxt"}, {"print", "PrintTxt", false}};

/// Reads data/catalogue/<name>.tsv; the text at index n stands at position n. Throws std::runtime_error with
/// file and line for a gap, a repeated or malformed key, a key without texts, texts without a key, an
/// overlong text.
std::vector<Text> read(const std::string& folder, const std::string& name);

}  // namespace catalogue
