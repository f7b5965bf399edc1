#include "entry/frmFastEntry.h"

#include <vector>

#include "base/datetime.h"
#include "base/text.h"
#include "catalogue/label.h"
#include "entry/attempt.h"
#include "entry/sort_term.h"
#include "shell/session/errors.h"
#include "shell/session/texts.h"

namespace entry {
namespace {

std::array<std::string*, 3> meaningBoxes(frmFastEntry& form, std::size_t row) {
  return {&form.TextBox2[row], &form.TextBox3[row], &form.TextBox4[row]};
}

bool exists(session::Session& s, const std::string& headword) {
  auto rows = s.files.CurrentDB.OpenRecordset("Select * from Woerterbuch  where begriff ='" + headword + "'",
                                              engine::RecordsetKind::snapshot);
  return !rows.EndOfFile();
}

// Adds the bare row and makes it a main entry; returns its number.
std::int64_t insertEntry(session::Session& s, const std::string& headword) {
  engine::Database& db = s.files.CurrentDB;
  db.Execute("insert into woerterbuch(begriff)  VALUES (\"" + headword + "\");");
  auto rows = db.OpenRecordset("AllWords");
  rows.MoveLast();
  const std::int64_t id = rows["ID_Woerterbuch"].asInteger();
  const std::string now = base::DateTime::now().stamp();
  db.Execute("UPDATE  woerterbuch SET id_woerterbuch1 = ID_Woerterbuch,databasename = '" +
             base::replaceAll(s.files.CurrentDBPath, "'", "''") +
             "',ebene = 1, unterbegriff=0,prioritaet = 1,Datetimestamp = '" + now +
             "',DatetimestampLastChange = '" + now + "' where id_woerterbuch = " + std::to_string(id) + "; ");
  return id;
}

void insertMeaning(session::Session& s, std::int64_t id, const std::string& text) {
  s.files.CurrentDB.Execute(
      "insert into Wortbedeutung(id_woerterbuch,wortbedeutung,databasename)  VALUES (\"" +
      std::to_string(id) + "\",\"" + text + "\",\"" + s.files.CurrentDBPath + "\");");
}

void writeSearchText(session::Session& s, std::int64_t id, const std::string& text) {
  s.files.CurrentDB.Execute("UPDATE  woerterbuch SET metasuche = '" + text +
                            "' where id_woerterbuch = " + std::to_string(id) + "; ");
}

void writeSortKey(session::Session& s, std::int64_t id, const std::string& headword) {
  const SplitHeadword split = splitHeadword(headword, s.project.IgnoreAtSort);
  s.files.CurrentDB.Execute("UPDATE  woerterbuch SET praefixbegriff = '" + split.prefix +
                            "', sortbegriff = '" + split.rest +
                            "' Where id_woerterbuch = " + std::to_string(id));
}

// Stores a row; false when a step of it failed.
bool storeRow(frmFastEntry& form, std::size_t row) {
  session::Session& s = form.session;
  const std::string headword = base::trim(form.TextBox1[row]);
  bool skipped = false;
  std::int64_t id = 0;
  const bool inserted = attempt(form, [&] {
    skipped = form.Check1 && exists(s, headword);
    if (!skipped) id = insertEntry(s, headword);
  });
  if (!inserted || skipped) return inserted;

  bool all = true;
  std::vector<std::string*> stored{&form.TextBox1[row]};
  std::string searchText;
  if (form.meaningsShown) {
    for (std::string* box : meaningBoxes(form, row)) {
      if (base::trim(*box).empty()) continue;
      searchText += "//" + *box;
      const bool added = attempt(form, [&] { insertMeaning(s, id, *box); });
      if (added) stored.push_back(box);
      all &= added;
    }
    all &= attempt(form, [&] { writeSearchText(s, id, searchText + "////" + headword); });
  }
  all &= attempt(form, [&] { writeSortKey(s, id, headword); });
  all &= attempt(form, [&] { StripArticleFromSortBegriff(s, id); });
  session::commitGathered(s);
  for (std::string* box : stored) box->clear();
  form.newId = id;
  ++form.stored;
  s.shell.pendingRefresh = true;
  return all;
}

}  // namespace

bool Form_Load(frmFastEntry& form) {
  session::Session& s = form.session;
  return session::guard(s, form.formName, [&] {
    form.meaningsShown = s.project.ProjectType == 1;
    for (std::size_t i = 0; i < form.columnHeads.size(); ++i)
      form.columnHeads[i] = std::to_string(i + 1) + ". " + session::labelText(s, label::meaning);
    form.focusRow = form.focusColumn = 0;
    form.statusLabel.clear();
  });
}

void TextBox_KeyDown(frmFastEntry& form, FastKey key) {
  const std::size_t lastRow = fastRows - 1, lastColumn = form.meaningsShown ? 3 : 0;
  if (key == FastKey::up && form.focusRow > 0) --form.focusRow;
  if (key == FastKey::down && form.focusRow < lastRow) ++form.focusRow;
  if (key != FastKey::enter) return;
  if (form.focusColumn < lastColumn) {
    ++form.focusColumn;
  } else if (form.focusRow < lastRow) {
    form.focusColumn = 0;
    ++form.focusRow;
  }
}

bool Command3(frmFastEntry& form) {
  session::Session& s = form.session;
  form.stored = 0;
  form.newId = 0;
  return session::guard(s, form.formName, [&] {
    bool all = true;
    for (std::size_t row = 0; row < fastRows; ++row) {
      if (!base::trim(form.TextBox1[row]).empty()) all &= storeRow(form, row);
    }
    form.statusLabel = session::labelText(s, label::entries_added) + " " + std::to_string(form.stored);
    form.focusRow = form.focusColumn = 0;
    return all;
  });
}

}  // namespace entry
