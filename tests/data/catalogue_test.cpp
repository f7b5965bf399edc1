// The wording of the catalogue: what the program compares or joins has to hold in both languages.
#include "catalogue.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <functional>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "catalogue/dialog.h"
#include "catalogue/label.h"
#include "catalogue/menu.h"

namespace {

const std::string folder = std::string(VOCARIUM_SOURCE_DIR) + "/data/catalogue";

enum class Language { german, english };
constexpr Language languages[] = {Language::german, Language::english};

struct Catalogue {
  std::vector<catalogue::Text> label = catalogue::read(folder, "label");
  std::vector<catalogue::Text> dialog = catalogue::read(folder, "dialog");
  std::vector<catalogue::Text> menu = catalogue::read(folder, "menu");
};

const Catalogue& texts() {
  static const Catalogue all;
  return all;
}

std::string in(Language language, const catalogue::Text& text) {
  return language == Language::german ? text.german : text.english;
}
std::string label(Language l, int key) {
  return in(l, texts().label[static_cast<std::size_t>(key)]);
}
std::string dialog(Language l, int key) {
  return in(l, texts().dialog[static_cast<std::size_t>(key)]);
}

void expectDistinct(const std::vector<int>& keys) {
  for (const Language language : languages) {
    std::set<std::string> seen;
    for (const int key : keys) EXPECT_TRUE(seen.insert(label(language, key)).second) << label(language, key);
  }
}

// The numbers are fixed for the whole life of the program: a row put in between would move all behind it.
TEST(Catalogue, TextsStandAtTheirNumbers) {
  EXPECT_EQ(dialog::browser_limit, 62);
  EXPECT_EQ(dialog::filter_released, 182);
  EXPECT_EQ(dialog::catalogue_file_form, 216);
  EXPECT_EQ(label::status_busy, 7);
  EXPECT_EQ(label::entry_count, 288);
  EXPECT_EQ(label::dictionary_filter, 687);
  EXPECT_EQ(label::links_both_ways, 788);
}

TEST(Catalogue, TextsThatTheProgramComparesDiffer) {
  expectDistinct({label::sort_general,
                  label::sort_arabic,
                  label::sort_czech,
                  label::sort_russian,
                  label::sort_dutch,
                  label::sort_greek,
                  label::sort_hebrew,
                  label::sort_hungarian,
                  label::sort_icelandic,
                  label::sort_danish,
                  label::sort_swedish,
                  label::sort_polish,
                  label::sort_spanish,
                  label::sort_turkish,
                  label::sort_korean,
                  label::sort_thai,
                  label::sort_japanese,
                  label::sort_finnish,
                  label::sort_chinese_simplified,
                  label::sort_chinese_traditional});
  expectDistinct({label::last_7_days, label::last_14_days, label::last_30_days, label::last_90_days,
                  label::last_183_days, label::last_365_days, label::history_all});
  expectDistinct({label::rule_at_start, label::rule_in_middle, label::rule_at_end});
  expectDistinct({label::match_exact, label::match_contains, label::match_begins});
  expectDistinct({label::starter_property, label::starter_property_2});
}

/// A piece of a sentence: a text of the catalogue, or what the program puts between.
struct Piece {
  Piece(const char* own) : in([own](Language) { return std::string(own); }) {}
  Piece(std::string (*list)(Language, int), int key) : in([=](Language l) { return list(l, key); }) {}
  std::function<std::string(Language)> in;
};
Piece d(int key) {
  return {dialog, key};
}
Piece l(int key) {
  return {label, key};
}

// A sentence made of pieces, as the program joins them.
TEST(Catalogue, JoinedTextsReadAsSentences) {
  struct Sentence {
    std::vector<Piece> pieces;
    const char *german, *english;
  };
  const Sentence sentences[] = {
      {{d(dialog::the_dictionary), " A.CVB ", d(dialog::has_been_compacted), "!"},
       "Das Wörterbuch A.CVB wurde komprimiert!",
       "The dictionary A.CVB has been compacted!"},
      {{d(dialog::the_dictionary), " A.CVB ", d(dialog::is_being_repaired)},
       "Das Wörterbuch A.CVB wird repariert ...",
       "The dictionary A.CVB is being repaired ..."},
      {{d(dialog::delete_entry_before), "Haus", d(dialog::delete_entry_after)},
       "Möchten Sie den Eintrag „Haus“ wirklich löschen?",
       "Do you want to delete the entry “Haus”?"},
      {{d(dialog::last_entry_before), "A.CVB", " ", d(dialog::last_entry_after)},
       "Der einzige Eintrag des Wörterbuchs A.CVB kann nicht gelöscht werden.",
       "The only entry of the dictionary A.CVB can not be deleted."},
      {{d(dialog::not_found_before), " 'Haus' ", d(dialog::not_found_after)},
       "Der Eintrag 'Haus' ist nicht vorhanden. Möchten Sie ihn anlegen?",
       "The entry 'Haus' does not exist. Do you want to add it?"},
      {{d(dialog::property_before), "Genus", d(dialog::already_present)},
       "Die Eigenschaft „Genus“ ist bereits vorhanden.",
       "The property “Genus” is already there."},
      {{d(dialog::entries_deleted), "7 ", d(dialog::of_the_chosen_period)},
       "Gelöschte Einträge: 7 im gewählten Zeitraum",
       "Entries deleted: 7 of the chosen period"},
      {{d(dialog::replace_before), " 7 ", d(dialog::replace_question)},
       "Der gesuchte Text kommt in 7 Datensätzen vor. Möchten Sie ihn dort überall ersetzen?",
       "The text was found in 7 records. Do you want to replace it in all of them?"},
      {{"Haus", d(dialog::wrongly_linked), d(dialog::becomes_main_entry)},
       "Haus: Dieser Eintrag war falsch verknüpft. Er wird wieder zum Haupteintrag.",
       "Haus: This entry was linked wrongly. It becomes a main entry again."},
      {{l(label::link_question_term), "Ei", l(label::link_question_hit), "Huhn",
        l(label::link_question_target), "Ei", l(label::link_question_place), "Huhn",
        l(label::link_question_end)},
       "Der Begriff „Ei“ kommt im Eintrag „Huhn“ vor.\n\nSoll ein Querverweis auf „Ei“ beim Eintrag „Huhn“ "
       "angelegt werden?",
       "The term “Ei” occurs in the entry “Huhn”.\n\nDo you want to add a cross-reference to “Ei” to the "
       "entry “Huhn”?"},
      {{l(label::close_editor), " (", l(label::without_saving), ")"},
       "Schließen (ohne Speichern)",
       "Close (without saving)"},
      {{l(label::compacting_before), " A.CVB ", l(label::compacting_after)},
       "Das Wörterbuch A.CVB wird komprimiert ...",
       "The dictionary A.CVB is being compacted ..."},
  };
  for (const Sentence& sentence : sentences) {
    std::string german, english;
    for (const Piece& piece : sentence.pieces) {
      german += piece.in(Language::german);
      english += piece.in(Language::english);
    }
    EXPECT_EQ(german, sentence.german);
    EXPECT_EQ(english, sentence.english);
  }
}

// Questions go to a box with yes and no; statements to a box that is only read.
TEST(Catalogue, QuestionsAsk) {
  for (const int key : {dialog::close_open_dictionary,
                        dialog::repair_question,
                        dialog::compact_question,
                        dialog::cancel_new_dictionary,
                        dialog::replace_properties,
                        dialog::replace_subjects,
                        dialog::add_all_properties,
                        dialog::add_all_subjects,
                        dialog::import_merging,
                        dialog::import_question,
                        dialog::delete_all_links,
                        dialog::file_was_moved,
                        dialog::rebuild_search_text,
                        dialog::rebuild_sort_terms,
                        dialog::close_for_conversion,
                        dialog::takes_a_while,
                        dialog::delete_properties,
                        dialog::trial_link_search,
                        dialog::edit_copied_rule,
                        dialog::delete_rule,
                        dialog::save_filtered,
                        dialog::delete_meaning,
                        dialog::delete_subjects,
                        dialog::convert_now,
                        dialog::delete_entries_of_period,
                        dialog::import_with_structure,
                        dialog::keep_editing_stub,
                        dialog::import_catalogue_file,
                        dialog::backup_overdue,
                        dialog::trainer_reset})
    for (const Language language : languages)
      EXPECT_TRUE(dialog(language, key).ends_with("?")) << dialog(language, key);
}

// A letter may open only one menu of the bar.
TEST(Catalogue, TopMenusHaveLettersOfTheirOwn) {
  constexpr int bar[] = {menu::mnuFile,   menu::mnuEntry,  menu::mnuBearbeiten, menu::mnuSearch,
                         menu::mnuRules,  menu::mnuViews,  menu::mnuExtras,     menu::mnuHistory,
                         menu::mnuReport, menu::mnuImport, menu::mnuExport,     menu::mnuWindow,
                         menu::mnuHelp};
  for (const Language language : languages) {
    std::map<char, std::string> seen;
    for (const int key : bar) {
      const std::string caption = in(language, texts().menu[static_cast<std::size_t>(key)]);
      const std::size_t at = caption.find('&');
      ASSERT_LT(at + 1, caption.size()) << caption;
      const char letter = static_cast<char>(caption[at + 1] | 0x20);
      EXPECT_TRUE(seen.emplace(letter, caption).second) << caption << " and " << seen[letter];
    }
  }
}

class Faults : public testing::Test {
 protected:
  /// The message for a catalogue of this text; empty when it is taken.
  std::string messageFor(const std::string& text) {
    const std::string own = testing::TempDir() + "catalogue_faults";
    std::ofstream(own + ".tsv", std::ios::binary) << text;
    const std::size_t slash = own.rfind('/');
    try {
      catalogue::read(own.substr(0, slash), own.substr(slash + 1));
      return "";
    } catch (const std::runtime_error& error) {
      return error.what();
    }
  }
  const std::string head = "position\tkey\tGerman\tEnglish\n";
};

TEST_F(Faults, EachFaultIsToldWithItsLine) {
  EXPECT_EQ(messageFor(head + "0\tok\tgut\tgood\n1\t\t\t\n2\tline\ta\\nb\tc\\\\d\n"), "");
  const std::pair<std::string, std::string> faults[] = {
      {"0\ta\tb\tc\n2\td\te\tf\n", ":3: position 1 expected"},
      {"0\ta\tb\tc\n1\ta\te\tf\n", ":3: repeated key a"},
      {"0\tdelete\tb\tc\n", ":2: malformed key delete"},
      {"0\tTwo words\tb\tc\n", ":2: malformed key Two words"},
      {"0\ta\tb\t\n", ":2: a key and both texts, or none of them"},
      {"0\t\tb\tc\n", ":2: a key and both texts, or none of them"},
      {"0\ta\tb\n", ":2: 3 columns instead of 4"},
      {"0\ta\tb\tc\td\n", ":2: 5 columns instead of 4"},
      {"0\ta\t\xC3\tc\n", ":2: not UTF-8"},
      {"0\ta\t\xED\xA0\x80\tc\n", ":2: not UTF-8"},
      {"0\ta\tb\x07\tc\n", ":2: control character"},
      {"0\ta\tb\tc\r\n", ":2: control character"},
      {"0\ta\tb\\q\tc\n", ":2: unknown escape"},
      {"0\ta\tb\tc\\\n", ":2: unknown escape"},
      {"0\ta\t" + std::string(256, 'x') + "\tc\n", ":2: overlong text"},
      {"", ":1: no texts"}};
  for (const auto& [rows, message] : faults)
    EXPECT_TRUE(messageFor(head + rows).ends_with(message)) << messageFor(head + rows);
  // 255 characters of two bytes each fit.
  std::string umlauts;
  for (int n = 0; n < 255; ++n) umlauts += "ä";
  EXPECT_EQ(messageFor(head + "0\ta\t" + umlauts + "\tc\n"), "");
  EXPECT_TRUE(messageFor("key\tposition\tGerman\tEnglish\n0\ta\tb\tc\n").find("the columns are") !=
              std::string::npos);
}

}  // namespace
