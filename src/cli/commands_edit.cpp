// Commands that change an existing entry, its meanings and its examples, or move it between the levels.

#include <algorithm>
#include <iostream>

#include "base/text.h"
#include "cli/application.h"
#include "cli/editing.h"
#include "entry/frmFastEntry.h"
#include "entry/frmRelink.h"
#include "entry/meanings.h"

namespace cli {

namespace {

/// The number in `column` of the row of a table that bears the number `id`.
std::int64_t ownerOf(Application& app, const char* table, const char* key, const char* column,
                     std::int64_t id) {
  auto row = app.session.files.CurrentDB.OpenRecordset(
      std::string("select ") + column + " from " + table + " where " + key + " = " + std::to_string(id),
      engine::RecordsetKind::snapshot);
  if (row.EndOfFile())
    throw base::Error(3167, std::string(table) + " has no row " + std::to_string(id) + ".");
  return row.value(0).asInteger();
}

std::int64_t entryOfMeaning(Application& app, std::int64_t meaning) {
  return ownerOf(app, "Wortbedeutung", "ID_Wortbedeutung", "ID_Woerterbuch", meaning);
}

bool edit(Application& app, std::int64_t id, const std::function<void(entry::frmEintrag&)>& deeds) {
  select(app, id);
  return inEditor(app, editEntry, [&](entry::frmEintrag& form) {
    deeds(form);
    save(form);
  });
}

}  // namespace

int runEntryEdit(Application& app, const std::vector<std::string>& words) {
  const std::int64_t id = entryNumber(words[1]);
  const auto headword = app.arguments.value("--headword");
  const auto pronunciation = app.arguments.value("--pronunciation");
  const auto note = app.arguments.value("--note");
  if (!headword && !pronunciation && !note) throw UsageError{"Nothing to change is given."};
  return withDictionary(app, words[0], [&] {
    return edit(app, id, [&](entry::frmEintrag& form) {
      if (headword) {
        if (base::trim(*headword).empty()) failed("The headword must not be empty.");
        entry::headwordChanged(form, *headword);
      }
      if (pronunciation && !form.pronunciationShown) failed("This dictionary has no pronunciations.");
      if (pronunciation) form.pronunciationBox = *pronunciation;
      if (note) form.notesBox = *note;
    });
  });
}

int runEntryRelink(Application& app, const std::vector<std::string>& words) {
  const std::int64_t id = entryNumber(words[1]);
  const auto target = app.arguments.number("--to", 1);
  if (target.has_value() == app.arguments.has("--main")) throw UsageError{"Either --to or --main is needed."};
  return withDictionary(app, words[0], [&] {
    select(app, id);
    entry::frmRelink form(app.session);
    required(entry::Form_Load(form));
    if (target && !entry::selectTarget(form, *target))
      failed("There is no main entry " + std::to_string(*target) + ".");
    return target ? entry::Command1(form) : entry::Command3(form);
  });
}

int runMeaningAdd(Application& app, const std::vector<std::string>& words) {
  const std::int64_t id = entryNumber(words[1]);
  if (base::trim(words[2]).empty()) throw UsageError{"The meaning must not be empty."};
  return withDictionary(app, words[0], [&] {
    std::int64_t added = 0;
    const bool done = edit(app, id, [&](entry::frmEintrag& form) {
      entry::meaningBoxChanged(form, words[2]);
      required(entry::addMeaning(form));
      added = entry::meaningRows(form)[newestMeaning(form)].id;
    });
    if (done) std::cout << added << '\n';
    return done;
  });
}

int runMeaningDelete(Application& app, const std::vector<std::string>& words) {
  const std::int64_t meaning = entryNumber(words[1]);
  return withDictionary(app, words[0], [&] {
    return edit(app, entryOfMeaning(app, meaning), [&](entry::frmEintrag& form) {
      required(entry::editMeaning(form, meaningRow(form, meaning), ""));
      const auto left = entry::meaningRows(form);
      // The question was answered with no.
      required(std::none_of(left.begin(), left.end(), [&](const auto& row) { return row.id == meaning; }));
    });
  });
}

int runExampleAdd(Application& app, const std::vector<std::string>& words) {
  const std::int64_t meaning = entryNumber(words[1]);
  if (base::trim(words[2]).empty()) throw UsageError{"The example must not be empty."};
  return withDictionary(app, words[0], [&] {
    std::int64_t added = 0;
    const bool done = edit(app, entryOfMeaning(app, meaning), [&](entry::frmEintrag& form) {
      required(entry::selectMeaning(form, meaningRow(form, meaning)));
      form.exampleBox = words[2];
      form.translationBox = app.arguments.value("--translation").value_or("");
      required(entry::addExample(form));
      for (const auto& row : entry::exampleRows(form)) added = std::max(added, row.id);
    });
    if (done) std::cout << added << '\n';
    return done;
  });
}

int runExampleDelete(Application& app, const std::vector<std::string>& words) {
  const std::int64_t example = entryNumber(words[1]);
  return withDictionary(app, words[0], [&] {
    const std::int64_t meaning = ownerOf(app, "WortbedBsp", "ID_WortbedBsp", "ID_Wortbedeutung", example);
    return edit(app, entryOfMeaning(app, meaning), [&](entry::frmEintrag& form) {
      required(entry::selectMeaning(form, meaningRow(form, meaning)));
      const auto rows = entry::exampleRows(form);
      const auto found =
          std::find_if(rows.begin(), rows.end(), [&](const auto& row) { return row.id == example; });
      entry::selectExample(form, static_cast<std::size_t>(found - rows.begin()));
      required(entry::deleteExample(form));
    });
  });
}

int runFast(Application& app, const std::vector<std::string>& words) {
  if (base::trim(words[1]).empty()) throw UsageError{"The headword must not be empty."};
  return withDictionary(app, words[0], [&] {
    entry::frmFastEntry form(app.session);
    required(entry::Form_Load(form));
    if (words.size() > 2 && !form.meaningsShown) failed("This dictionary has no meanings.");
    form.Check1 = app.arguments.has("--check");
    form.TextBox1[0] = words[1];
    entry::frmFastEntry::Boxes* const meanings[] = {&form.TextBox2, &form.TextBox3, &form.TextBox4};
    for (std::size_t n = 2; n < words.size(); ++n) meanings[n - 2]->front() = words[n];
    const bool all = entry::Command3(form);
    if (all && form.stored == 0) failed("The headword \"" + words[1] + "\" exists already.");
    if (form.stored > 0) std::cout << form.newId << '\n';
    return all;
  });
}

}  // namespace cli
