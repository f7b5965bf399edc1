// The sample word list, its reader, and the delimited file made from it.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <fstream>
#include <iterator>
#include <set>
#include <string>

#include "tsv.h"
#include "word_list.h"

namespace {

const std::string root = VOCARIUM_SOURCE_DIR;

std::set<std::string> names(const std::string& file) {
  std::set<std::string> all;
  for (const tsv::Row& row : tsv::read(root + "/data/reference/" + file + ".tsv").rows)
    all.insert(row.fields[0]);
  return all;
}

void expectKnown(const wordlist::Assignments& assigned, std::size_t line) {
  static const auto properties = names("properties"), subjects = names("subjects");
  for (const auto& property : assigned.properties) {
    EXPECT_TRUE(properties.contains(property.name)) << line << ": " << property.name;
    EXPECT_LE(tsv::length(property.value), 50u) << line;
  }
  for (const auto& subject : assigned.subjects)
    EXPECT_TRUE(subjects.contains(subject)) << line << ": " << subject;
}

std::string bytesOf(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), {}};
}

TEST(Sample, EveryEntryFitsTheDictionary) {
  const auto words = wordlist::read(root + "/data/sample/woerter.txt");
  EXPECT_GE(words.size(), 300u);
  std::set<std::string> headwords;
  for (const auto& word : words) {
    EXPECT_TRUE(headwords.insert(word.headword).second)
        << word.line << ": " << word.headword << " stands twice";
    EXPECT_LE(tsv::length(word.headword), 250u) << word.line;
    EXPECT_FALSE(word.pronunciation.empty()) << word.line;
    EXPECT_FALSE(word.meanings.empty()) << word.line;
    expectKnown(word.assigned, word.line);
    for (const auto& meaning : word.meanings) {
      EXPECT_LE(tsv::length(meaning.text), 250u) << word.line;
      expectKnown(meaning.assigned, word.line);
      for (const auto& example : meaning.examples) {
        EXPECT_FALSE(example.translation.empty()) << word.line;
        // The editor puts both texts between double quotes as they stand.
        EXPECT_EQ((example.sentence + example.translation).find('"'), std::string::npos) << word.line;
      }
    }
  }
}

TEST(Sample, TheDelimitedFileIsMadeFromTheList) {
  const std::string command = root + "/tools/sample-to-csv < " + root + "/data/sample/woerter.txt";
  FILE* pipe = popen(command.c_str(), "r");
  ASSERT_NE(pipe, nullptr);
  std::string made;
  char buffer[4096];
  for (std::size_t read = 0; (read = fread(buffer, 1, sizeof buffer, pipe)) > 0;) made.append(buffer, read);
  EXPECT_EQ(pclose(pipe), 0);
  EXPECT_EQ(made, bytesOf(root + "/data/sample/deutsch-englisch.csv"));
}

TEST(WordList, IsReadWithAllThatHangsOnAnEntry) {
  const std::string path = testing::TempDir() + "words.txt";
  std::ofstream(path, std::ios::binary)
      << "# a comment\n\n# another\nBahn [baːn] [x]\r\n@ feminin; Plural = Bahnen ;\n# Sport\n"
         "- lane\n# Reisen\n> Auf Bahn drei. | In lane three.\n> Ohne.\n! eins\n! zwei\n+ Bahnhof\n- "
         "station\n\n\nohne Klammern\n";
  const auto words = wordlist::read(path);
  ASSERT_EQ(words.size(), 3u);
  EXPECT_EQ(words[0].headword, "Bahn [baːn]");
  EXPECT_EQ(words[0].pronunciation, "x");
  EXPECT_EQ(words[0].note, "eins\r\nzwei");
  ASSERT_EQ(words[0].assigned.properties.size(), 2u);
  EXPECT_EQ(words[0].assigned.properties[1].name, "Plural");
  EXPECT_EQ(words[0].assigned.properties[1].value, "Bahnen");
  EXPECT_EQ(words[0].assigned.subjects, std::vector<std::string>{"Sport"});
  EXPECT_EQ(words[0].meanings.at(0).assigned.subjects, std::vector<std::string>{"Reisen"});
  ASSERT_EQ(words[0].meanings.at(0).examples.size(), 2u);
  EXPECT_EQ(words[0].meanings[0].examples[0].translation, "In lane three.");
  EXPECT_EQ(words[0].meanings[0].examples[1].translation, "");
  EXPECT_TRUE(words[1].subEntry);
  EXPECT_EQ(words[1].headword, "Bahnhof");
  EXPECT_FALSE(words[2].subEntry);
  EXPECT_EQ(words[2].headword, "ohne Klammern");
}

TEST(WordList, RefusesLinesThatBelongToNothing) {
  const std::string path = testing::TempDir() + "faulty_words.txt";
  for (const char* text : {"- a meaning\n", "Haus\n> ein Satz | a sentence\n",
                           "Haus\n- house\n> | no sentence\n", "Haus\nno mark\n", "+ Tor\n", "Haus\n+  \n"}) {
    std::ofstream(path, std::ios::binary) << text;
    EXPECT_THROW(wordlist::read(path), std::runtime_error) << text;
  }
  EXPECT_THROW(wordlist::read(path + ".missing"), std::runtime_error);
}

}  // namespace
