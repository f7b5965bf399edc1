// type-entries DICT LIST: types the entries of a word list into a dictionary, as an author would in the
// browser and the entry editor. The form of the list is told at the head of data/sample/woerter.txt. What a
// line lacks in the dictionary's catalogues (a property, a subject field) stops the run with the line's
// number; the entries before it stay.
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <string>
#include <vector>

#include "base/text.h"
#include "browse/frmWoerter.h"
#include "cli/application.h"
#include "entry/classification.h"
#include "entry/frmEintrag.h"
#include "entry/meanings.h"
#include "word_list.h"

namespace {

constexpr int saveAndClose = 2, saveSubEntryAndClose = 0, actionSubEntry = 0, actionMainEntry = 4;

/// An operation that has reported its failure to the user already.
void required(bool done) {
  if (!done) throw base::Error(platform::cancelled, "");
}

void typeAssignments(entry::frmEintrag& form, const wordlist::Assignments& assigned, entry::Owner owner) {
  for (const wordlist::Property& property : assigned.properties) {
    if (!entry::addProperty(form, property.name, owner))
      throw base::Error(5, "The dictionary has no property \"" + property.name + "\".");
    if (!property.value.empty())
      required(entry::setPropertyValue(form, property.name, property.value, owner));
  }
  for (const std::string& subject : assigned.subjects)
    if (!entry::addSubject(form, subject, owner))
      throw base::Error(5, "The dictionary has no subject field \"" + subject + "\".");
}

/// The meaning added last is the one with the highest number.
std::size_t newestMeaning(entry::frmEintrag& form) {
  const auto rows = entry::meaningRows(form);
  return static_cast<std::size_t>(
      std::max_element(rows.begin(), rows.end(), [](const auto& a, const auto& b) { return a.id < b.id; }) -
      rows.begin());
}

void typeMeaning(entry::frmEintrag& form, const wordlist::Meaning& meaning) {
  required(entry::selectTab(form, entry::Tab::meanings));
  entry::meaningBoxChanged(form, meaning.text);
  required(entry::addMeaning(form));
  const std::size_t row = newestMeaning(form);
  required(entry::selectMeaning(form, row));
  for (const wordlist::Example& example : meaning.examples) {
    form.exampleBox = example.sentence;
    form.translationBox = example.translation;
    required(entry::addExample(form));
  }
  if (meaning.assigned.properties.empty() && meaning.assigned.subjects.empty()) return;
  required(entry::selectTab(form, entry::Tab::meaningProperties));
  required(entry::selectMeaningForProperties(form, row));
  typeAssignments(form, meaning.assigned, entry::Owner::meaning);
}

void typeEntry(entry::frmEintrag& form, const wordlist::Entry& word) {
  required(entry::Form_Activate(form));
  entry::headwordChanged(form, word.headword);
  form.pronunciationBox = word.pronunciation;
  form.notesBox = word.note;
  for (const wordlist::Meaning& meaning : word.meanings) typeMeaning(form, meaning);
  required(entry::selectTab(form, entry::Tab::properties));
  typeAssignments(form, word.assigned, entry::Owner::entry);
  required(entry::selectTab(form, entry::Tab::entry));
  required(entry::Command1(form, word.subEntry ? saveSubEntryAndClose : saveAndClose));
}

/// Adds one entry through the browser; a sub-entry goes below `mainId`. Returns its number.
std::int64_t add(cli::Application& app, const wordlist::Entry& word, std::int64_t mainId) {
  auto& browser = *app.frame.browsers.front().form;
  if (word.subEntry) {
    app.session.entry.CurrentEntryId = mainId;
    browse::SkipToEntry(browser);
    const auto& ids = browser.list.List1;
    const auto at = std::find(ids.begin(), ids.end(), mainId);
    if (at == ids.end()) throw base::Error(5, "Its main entry is not in the list.");
    browse::selectRow(browser, static_cast<int>(at - ids.begin()));
  }
  app.console.onForm(
      "frmEintrag", [&](platform::Form& shown) { typeEntry(dynamic_cast<entry::frmEintrag&>(shown), word); });
  app.session.entry.CurrentBegriff.clear();
  app.session.entry.EntryAction = word.subEntry ? actionSubEntry : actionMainEntry;
  required(browse::AddEditDeleteAction(browser));
  return app.session.entry.CurrentEntryId;
}

bool typeAll(cli::Application& app, const std::vector<wordlist::Entry>& words, const std::string& list) {
  const bool terminal = isatty(STDERR_FILENO) != 0;
  std::int64_t mainId = 0;
  for (std::size_t n = 0; n < words.size(); ++n) {
    try {
      const std::int64_t id = add(app, words[n], mainId);
      if (!words[n].subEntry) mainId = id;
    } catch (const base::Error& error) {
      if (error.number() == platform::cancelled) {
        std::cerr << list << ":" << words[n].line << ": " << words[n].headword << " was not added\n";
        return false;
      }
      throw base::Error(error.number(), list + ":" + std::to_string(words[n].line) + ": " + error.text());
    }
    if (terminal && n % 10 == 0) std::cerr << "\r" << n * 100 / words.size() << " % " << std::flush;
  }
  if (terminal) std::cerr << "\r       \r";
  std::cout << words.size() << "\n";
  return true;
}

}  // namespace

int main(int argc, char** argv) try {
  if (argc != 3) {
    std::cerr << "usage: type-entries DICT LIST\n";
    return 2;
  }
  const std::vector<wordlist::Entry> words = wordlist::read(argv[2]);
  const cli::Arguments arguments = cli::parse({"--yes"}, {}, {});
  cli::Application app(arguments, std::filesystem::read_symlink("/proc/self/exe").parent_path().string());
  return cli::withDictionary(app, argv[1], [&] { return typeAll(app, words, argv[2]); });
} catch (const base::Error& error) {
  std::cerr << error.text() << "\n";
  return 1;
} catch (const std::exception& error) {
  std::cerr << error.what() << "\n";
  return 1;
}
