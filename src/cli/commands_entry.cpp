// Commands on one entry, through the browser's selection and the editor.

#include <algorithm>
#include <iostream>

#include "base/text.h"
#include "browse/frmWoerter.h"
#include "cli/application.h"
#include "cli/editing.h"
#include "entry/classification.h"
#include "entry/frmEintrag.h"
#include "entry/meanings.h"

namespace cli {

namespace {

/// What stands in the options between one --meaning and the next.
struct Example {
  std::string sentence, translation;
};
struct Meaning {
  std::string text;
  std::vector<Example> examples;
};

std::vector<Meaning> meaningsOf(const Arguments& arguments) {
  std::vector<Meaning> meanings;
  for (const Option& option : arguments.options) {
    if (option.name == "--meaning") {
      meanings.push_back({option.value, {}});
    } else if (option.name == "--example") {
      if (meanings.empty()) throw UsageError{"--example belongs behind a --meaning."};
      meanings.back().examples.push_back({option.value, ""});
    } else if (option.name == "--translation") {
      if (meanings.empty() || meanings.back().examples.empty())
        throw UsageError{"--translation belongs behind an --example."};
      meanings.back().examples.back().translation = option.value;
    }
  }
  return meanings;
}

void typeMeanings(entry::frmEintrag& form, const std::vector<Meaning>& meanings) {
  for (const Meaning& meaning : meanings) {
    entry::meaningBoxChanged(form, meaning.text);
    required(entry::addMeaning(form));
    if (meaning.examples.empty()) continue;
    required(entry::selectMeaning(form, newestMeaning(form)));
    for (const Example& example : meaning.examples) {
      form.exampleBox = example.sentence;
      form.translationBox = example.translation;
      required(entry::addExample(form));
    }
  }
}

/// Types a new entry as a user would. A headword that exists is asked about: the answer no goes on with
/// the existing entry, cancel gives up.
void typeEntry(entry::frmEintrag& form, const std::string& headword, const Arguments& arguments,
               const std::vector<Meaning>& meanings) {
  if (base::trim(headword).empty()) failed("The headword must not be empty.");
  entry::headwordChanged(form, headword);
  required(entry::headwordEnter(form));
  if (form.session.entry.EntryEditMode == 1 && form.focus == entry::Focus::headword)
    throw base::Error(platform::cancelled, "The headword exists already.");
  if (const auto pronunciation = arguments.value("--pronunciation")) form.pronunciationBox = *pronunciation;
  if (const auto note = arguments.value("--note")) form.notesBox = *note;
  typeMeanings(form, meanings);
}

entry::Owner ownerOf(Application& app, entry::frmEintrag& form) {
  const auto meaning = app.arguments.number("--meaning", 1);
  if (!meaning) return entry::Owner::entry;
  required(entry::selectMeaningForProperties(form, meaningRow(form, *meaning)));
  return entry::Owner::meaning;
}

using Deed = std::function<bool(entry::frmEintrag&, const std::string& name, entry::Owner)>;

/// Opens an entry in the editor, does one thing to its properties or subject fields, and saves it.
int editAssignments(Application& app, const std::vector<std::string>& words, const Deed& deed) {
  const std::int64_t id = entryNumber(words[1]);
  return withDictionary(app, words[0], [&] {
    select(app, id);
    return inEditor(app, editEntry, [&](entry::frmEintrag& form) {
      const entry::Owner owner = ownerOf(app, form);
      required(entry::selectTab(
          form, owner == entry::Owner::entry ? entry::Tab::properties : entry::Tab::meaningProperties));
      required(deed(form, words[2], owner));
      save(form);
    });
  });
}

void requireName(const std::vector<std::string>& names, const std::string& name, const char* what) {
  const bool known =
      std::any_of(names.begin(), names.end(), [&](const auto& n) { return base::equalsIgnoreCase(n, name); });
  if (!known) failed(std::string("The dictionary has no ") + what + " \"" + name + "\".");
}

}  // namespace

int runEntryAdd(Application& app, const std::vector<std::string>& words) {
  const auto meanings = meaningsOf(app.arguments);
  const auto under = app.arguments.number("--under", 1);
  return withDictionary(app, words[0], [&] {
    if (under) {
      select(app, *under);
      if (app.session.entry.SelectedEntryId != app.session.entry.SelectedMainEntryId)
        failed("Entry " + std::to_string(*under) + " is a sub-entry itself and can not have one.");
    }
    app.session.entry.CurrentBegriff.clear();
    const bool added = inEditor(app, under ? newSubEntry : newMainEntry, [&](entry::frmEintrag& form) {
      typeEntry(form, words[1], app.arguments, meanings);
      save(form);
    });
    if (!added || app.session.entry.CurrentBegriff.empty()) return false;
    std::cout << app.session.entry.CurrentEntryId << '\n';
    return true;
  });
}

int runEntryDelete(Application& app, const std::vector<std::string>& words) {
  const std::int64_t id = entryNumber(words[1]);
  return withDictionary(app, words[0], [&] {
    select(app, id);
    app.session.entry.EntryAction = deleteEntry;
    if (!browse::AddEditDeleteAction(browser(app))) return false;
    auto row = app.session.files.CurrentDB.OpenRecordset("BegriffParam", engine::RecordsetKind::snapshot,
                                                         {{"lWortID", id}});
    return row.EndOfFile();
  });
}

int runPropertyAdd(Application& app, const std::vector<std::string>& words) {
  return editAssignments(app, words,
                         [&](entry::frmEintrag& form, const std::string& name, entry::Owner owner) {
                           requireName(entry::catalogueProperties(form), name, "property");
                           const auto value = app.arguments.value("--value");
                           return entry::addProperty(form, name, owner) &&
                                  (!value || entry::setPropertyValue(form, name, *value, owner));
                         });
}

int runPropertyRemove(Application& app, const std::vector<std::string>& words) {
  return editAssignments(app, words,
                         [](entry::frmEintrag& form, const std::string& name, entry::Owner owner) {
                           std::vector<std::string> assigned;
                           for (const auto& row : entry::propertyRows(form, owner))
                             assigned.push_back(row.name);
                           requireName(assigned, name, "such assigned property");
                           return entry::removeProperty(form, name, owner);
                         });
}

int runSubjectAdd(Application& app, const std::vector<std::string>& words) {
  return editAssignments(app, words,
                         [](entry::frmEintrag& form, const std::string& name, entry::Owner owner) {
                           requireName(entry::catalogueSubjects(form), name, "subject field");
                           return entry::addSubject(form, name, owner);
                         });
}

int runSubjectRemove(Application& app, const std::vector<std::string>& words) {
  return editAssignments(app, words,
                         [](entry::frmEintrag& form, const std::string& name, entry::Owner owner) {
                           requireName(owner == entry::Owner::entry ? form.List6 : form.List5, name,
                                       "such assigned subject field");
                           return entry::removeSubject(form, name, owner);
                         });
}

}  // namespace cli
