#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <set>

#include "base/text.h"
#include "filled_dictionary.h"
#include "support/corpus.h"
#include "support/test_session.h"

namespace {

using test::CorpusRow;
using test::Entry;
using test::Filling;

/// Runs the statements of one subsystem, in their order, on files of their own.
class CorpusRun : public ::testing::Test {
 protected:
  CorpusRun() {
    const auto filled = [&](const char* name, unsigned seed, Filling& made) {
      engine::Database db = test::createEmpty(workspace(), folder_ / name);
      made = test::makeFilling(seed, folder_ / name);
      test::fill(db, made);
      return db;
    };
    Filling copied;
    dictionary = filled("first.cvb", 7, data);
    source = filled("second one.cvb", 8, sourceData);
    copy = filled("copy.cvb", 7, copied);
    empty = test::createEmpty(workspace(), folder_ / "empty.cvb");
    exported = workspace().CreateDatabase(folder_ / "export.cvb", ";LANGID=0x0409;CP=1252;COUNTRY=0", 2);
    system = workspace().OpenDatabase(test_.session.folders.AppConfigPath + "/corvasys.cvb");
    workspace().Idle();
  }

  engine::Workspace& workspace() { return *test_.session.files.Workspace; }

  engine::Database& fileOf(const CorpusRow& row) {
    if (row.on == "dictionary") return dictionary;
    if (row.on == "source") return source;
    if (row.on == "copy") return copy;
    if (row.on == "empty") return empty;
    if (row.on == "export") return exported;
    EXPECT_EQ(row.on, "system");
    return system;
  }

  std::string filledIn(const CorpusRow& row, const std::string& statement) {
    // Only the dictionary's own name is needed where a statement for the export target reads from it.
    const std::string own = row.on == "export" ? dictionary.Name() : fileOf(row).Name();
    return base::replaceAll(base::replaceAll(statement, "${FILE2}", source.Name()), "${FILE}", own);
  }

  static engine::Parameters parametersOf(const std::string& text) {
    engine::Parameters parameters;
    if (text.empty()) return parameters;
    for (const std::string& pair : test::fieldsOf(text, ';')) {
      const auto parts = test::fieldsOf(pair, '=');
      const bool number = parts[1].find_first_not_of("0123456789") == std::string::npos;
      parameters.emplace_back(parts[0],
                              number ? engine::Value(std::stoi(parts[1])) : engine::Value(parts[1]));
    }
    return parameters;
  }

  /// Reads all of every row; returns their number.
  static std::size_t read(engine::Database& db, const std::string& statement, const CorpusRow& row) {
    engine::Recordset rows =
        db.OpenRecordset(statement, engine::RecordsetKind::dynaset, parametersOf(row.with),
                         row.kind == "read2" ? engine::Interface::second : engine::Interface::first);
    std::size_t count = 0;
    for (; !rows.EndOfFile(); rows.MoveNext(), ++count)
      for (std::size_t field = 0; field < rows.Fields().size(); ++field) rows.value(field);
    return count;
  }

  void find(engine::Database& db, const CorpusRow& row) {
    const auto parts = test::fieldsOf(row.with, ':');
    engine::Recordset rows = db.OpenRecordset(parts[0], engine::RecordsetKind::dynaset,
                                              parametersOf(parts.size() > 1 ? parts[1] : ""));
    rows.FindFirst(filledIn(row, row.statement));
  }

  void run(const CorpusRow& row) {
    engine::Database& db = fileOf(row);
    const std::string statement = filledIn(row, row.statement);
    if (row.kind == "read" || row.kind == "read2") {
      const std::size_t count = read(db, statement, row);
      // Most callers send their statements in upper case; file names are put in afterwards.
      EXPECT_EQ(read(db, filledIn(row, base::upper(row.statement)), row), count);
    } else if (row.kind == "find") {
      find(db, row);
    } else if (row.kind == "run") {
      db.Execute(statement);
    } else if (row.kind == "query") {
      db.CreateQueryDef(row.with, statement).OpenRecordset();
    } else if (row.kind == "setquery") {
      db.queryDef(row.with).setSQL(statement);
    } else if (row.kind.rfind("run:", 0) == 0) {
      try {
        db.Execute(statement);
        ADD_FAILURE() << "accepted";
      } catch (const engine::Error& error) {
        EXPECT_EQ(std::to_string(error.number()), row.kind.substr(4)) << error.text();
      }
    } else {
      EXPECT_EQ(row.kind, "parse");
    }
  }

  void runAll(const std::string& subsystem) {
    for (const CorpusRow& row : test::corpus(subsystem)) {
      SCOPED_TRACE(row.name());
      try {
        run(row);
        afterRow(row);
      } catch (const engine::Error& error) {
        ADD_FAILURE() << error.number() << " " << error.text() << "\n" << row.statement;
      }
    }
    workspace().Idle();
  }

  virtual void afterRow(const CorpusRow&) {}

  static std::vector<std::string> rows(engine::Database& db, const std::string& statement,
                                       const std::vector<std::string>& fields) {
    std::vector<std::string> found = test::rowsOf(db.OpenRecordset(statement), fields);
    std::sort(found.begin(), found.end());
    return found;
  }

  TestSession test_;
  test::TempDir folder_;
  Filling data, sourceData;
  engine::Database dictionary, source, copy, empty, exported, system;
};

TEST_F(CorpusRun, Shell) {
  runAll("shell");
}
TEST_F(CorpusRun, Entry) {
  runAll("entry");
}
TEST_F(CorpusRun, Automation) {
  runAll("automation");
}
TEST_F(CorpusRun, Publish) {
  runAll("publish");
}
TEST_F(CorpusRun, Learn) {
  runAll("learn");
}

/// The inverse build turns each meaning into an entry and its headword into that entry's meaning.
TEST_F(CorpusRun, Store) {
  runAll("store");
  std::vector<std::string> entries, properties, examples;
  for (const test::Meaning& m : sourceData.meanings) {
    const Entry& e = sourceData.entry(m.entry);
    entries.push_back(test::row({m.text, m.text, e.headword, e.note}));
  }
  std::sort(entries.begin(), entries.end());
  EXPECT_EQ(rows(empty,
                 "select Begriff, SortBegriff, Wortbedeutung, Bemerkung from Woerterbuch inner join "
                 "Wortbedeutung on "
                 "Woerterbuch.ID_Woerterbuch = Wortbedeutung.ID_Woerterbuch where ID_Woerterbuch1 = "
                 "Woerterbuch.ID_Woerterbuch and Ebene = 1",
                 {"Begriff", "SortBegriff", "Wortbedeutung", "Bemerkung"}),
            entries);
  // Joined by text: what bears the old headword as its meaning gets the old entry's properties.
  std::size_t expected = 0;
  for (const test::Assignment& a : sourceData.entryProperties)
    for (const test::Meaning& m : sourceData.meanings)
      expected += sourceData.entry(a.owner).headword == sourceData.entry(m.entry).headword ? 1u : 0u;
  EXPECT_EQ(rows(empty, "select * from relWortbedWKat", {"ID_Wortbedeutung"}).size(), expected);
  EXPECT_EQ(rows(empty, "select * from WKategorie", {"Kategorie"}).size(), sourceData.properties.size());
  EXPECT_EQ(rows(empty, "select * from Sprache", {"UebersetzungVon", "UebersetzungNach"}),
            std::vector<std::string>{"English|Deutsch"});
  for (const std::string& table : empty.tableNames())
    EXPECT_EQ(base::inStr(base::lower(table), "temp"), 0u) << table;
}

class FilterRun : public CorpusRun {
 protected:
  template <class Holds>
  std::set<std::string> entriesWhere(const Holds& holds) {
    std::set<std::string> ids;
    for (const Entry& e : data.entries)
      if (holds(e)) ids.insert(std::to_string(e.id));
    return ids;
  }
  bool has(const std::vector<test::Link>& links, const Entry& e) const {
    return std::any_of(links.begin(), links.end(), [&](const test::Link& l) { return l.entry == e.id; });
  }
  bool refers(const Entry& e) const {
    const auto& all = data.references;
    return std::any_of(all.begin(), all.end(), [&](const test::Reference& r) { return r.entry == e.id; });
  }
  bool isNoun(const Entry& e) const {
    for (const test::Assignment& a : Filling::of(data.entryProperties, e.id))
      if (data.property(a.item) == "noun" || data.property(a.item) == "adjective") return true;
    return false;
  }
  bool meansNoun(const Entry& e) const {
    for (const test::Meaning& m : data.meaningsOf(e.id))
      for (const test::Assignment& a : Filling::of(data.meaningProperties, m.id))
        if (data.property(a.item) == "noun" || data.property(a.item) == "adjective") return true;
    return false;
  }

  /// What a run of the filter has put into the selection, which is emptied again.
  void afterRow(const CorpusRow& row) override {
    if (row.kind != "run" || base::inStr(row.statement, "INSERT INTO [Filterselektion1]") == 0) return;
    const auto found =
        rows(dictionary, "select distinct ID_Woerterbuch from FilterSelektion1", {"ID_Woerterbuch"});
    dictionary.Execute("delete * from Filterselektion1;");
    const auto expected = expectedFor(row.key);
    if (expected.empty()) return;
    ++compared_;
    EXPECT_EQ(std::set<std::string>(found.begin(), found.end()), expected);
  }

  std::set<std::string> expectedFor(const std::string& key) {
    const bool noted = true;
    const std::pair<const char*, std::function<bool(const Entry&)>> cases[] = {
        {"filter-properties-entry", [&](const Entry& e) { return isNoun(e); }},
        {"filter-properties-entry-and", [&](const Entry& e) { return e.level == 1 && isNoun(e); }},
        {"filter-properties-meaning", [&](const Entry& e) { return meansNoun(e); }},
        {"filter-has-note", [&](const Entry& e) { return e.note.has_value() == noted; }},
        {"filter-has-no-note", [&](const Entry& e) { return !e.note; }},
        {"filter-has-note-and", [&](const Entry& e) { return isNoun(e) && e.note; }},
        {"filter-has-no-note-and", [&](const Entry& e) { return isNoun(e) && !e.note; }},
        {"filter-has-attachment", [&](const Entry& e) { return has(data.attachments, e); }},
        {"filter-has-no-attachment", [&](const Entry& e) { return !has(data.attachments, e); }},
        {"filter-has-link", [&](const Entry& e) { return has(data.links, e); }},
        {"filter-has-no-link-and", [&](const Entry& e) { return isNoun(e) && !has(data.links, e); }},
        {"filter-has-cross-reference", [&](const Entry& e) { return refers(e); }},
        {"filter-has-no-cross-reference", [&](const Entry& e) { return !refers(e); }},
        {"filter-has-no-sound", [](const Entry&) { return true; }},
        {"filter-dates",
         [](const Entry& e) { return e.created <= base::DateTime::of(2026, 11, 22, 23, 59, 59); }},
    };
    for (const auto& [name, holds] : cases)
      if (key == name) return entriesWhere(holds);
    return {};
  }

  int compared_ = 0;
};

TEST_F(FilterRun, Browse) {
  runAll("browse");
  EXPECT_GE(compared_, 15);
}

/// With an offset the source's keys arrive moved by it; merged, its headwords join those that are there.
TEST_F(CorpusRun, Exchange) {
  runAll("exchange");
  std::vector<std::string> expected;
  for (const Entry& e : sourceData.entries)
    expected.push_back(test::row({std::to_string(e.id + 1000),
                                  std::to_string(e.level == 1 ? e.id + 1000 : e.mainId + 1000), e.headword}));
  std::sort(expected.begin(), expected.end());
  EXPECT_EQ(
      rows(dictionary, "select * from Woerterbuch where ID_Woerterbuch > 1000 and ID_Woerterbuch <= 1040",
           {"ID_Woerterbuch", "ID_Woerterbuch1", "Begriff"}),
      expected);
  EXPECT_EQ(rows(empty, "select * from Woerterbuch", {"Begriff"}).size(), sourceData.entries.size());
  EXPECT_EQ(rows(empty, "select * from WortBedBsp", {"Beispiel"}).size(), sourceData.examples.size());
  EXPECT_EQ(rows(dictionary, "select * from WKategorie", {"Kategorie"}).size(), data.properties.size());
  EXPECT_FALSE(rows(exported, "select * from VocariumExportFile", {"OBJECT", "URL_NAME"}).empty());
}

}  // namespace
