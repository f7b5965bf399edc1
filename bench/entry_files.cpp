#include "entry_files.h"

#include <filesystem>

#include "plain.h"
#include "words.h"

namespace bench {

namespace fs = std::filesystem;

namespace {

void makeTables(engine::Database& database) {
  for (const char* statement :
       {"CREATE TABLE [Woerterbuch] ([ID_Woerterbuch] COUNTER,[ID_Woerterbuch1] LONG,[Begriff] TEXT(250),"
        "[SortBegriff] TEXT(250),[PraefixBegriff] TEXT(3),[MetaSuche] LONGTEXT,[Ebene] SHORT,[Aussprache] "
        "TEXT(250),"
        "[Bemerkung] LONGTEXT,[Unterbegriff] BIT,[Klang] TEXT(50),[Prioritaet] SHORT,[Bild] TEXT(50),"
        "[DateTimeStamp] DATE,[DatabaseName] LONGTEXT,[InBearbeitung] BIT,[DateTimeStampLastChange] "
        "TEXT(50))",
        "CREATE INDEX [Begriff] ON [Woerterbuch] ([Begriff])",
        "CREATE INDEX [SortBegriff] ON [Woerterbuch] ([SortBegriff])",
        "CREATE INDEX [ID_Woerterbuch1] ON [Woerterbuch] ([ID_Woerterbuch1])",
        "CREATE UNIQUE INDEX [ID_Woerterbuch] ON [Woerterbuch] ([ID_Woerterbuch])",
        "CREATE UNIQUE INDEX [PrimaryKey] ON [Woerterbuch] ([ID_Woerterbuch]) WITH PRIMARY",
        "CREATE INDEX [DateTimeStamp] ON [Woerterbuch] ([DateTimeStamp])",
        "CREATE TABLE [Wortbedeutung] ([ID_Wortbedeutung] COUNTER,[ID_Woerterbuch] LONG,[Wortbedeutung] "
        "TEXT(250),"
        "[DatabaseName] LONGTEXT)",
        "CREATE INDEX [ID_Woerterbuch] ON [Wortbedeutung] ([ID_Woerterbuch])",
        "CREATE UNIQUE INDEX [PrimaryKey] ON [Wortbedeutung] ([ID_Wortbedeutung]) WITH PRIMARY"}) {
    database.Execute(statement);
  }
}

}  // namespace

std::string headword(std::int64_t n, bool ordered) {
  return ordered ? "wort" + std::to_string(10'000'000 + n) : scatteredWord(static_cast<std::uint64_t>(n));
}

engine::Workspace workspace() {
  return engine::Workspace({"", "VocariumUser", "built-in", "", false});
}

void makeEngineFile(const std::string& path, std::int64_t count, bool ordered) {
  if (fs::exists(path)) return;
  engine::Workspace space = workspace();
  engine::Database database = space.CreateDatabase(path, ";LANGID=0x0407;CP=1252;COUNTRY=0", 2);
  makeTables(database);
  engine::Recordset entries = database.OpenRecordset("Woerterbuch");
  const base::DateTime stamp = base::DateTime::of(2024, 3, 1, 12, 0, 0);
  for (std::int64_t n = 0; n < count; ++n) {
    const std::string word = headword(n, ordered);
    entries.AddNew();
    entries.set("ID_Woerterbuch1", entries["ID_Woerterbuch"]);
    entries.set("Begriff", word);
    entries.set("SortBegriff", word);
    entries.set("MetaSuche", "//" + word + "////sense of " + word);
    entries.set("Ebene", 1);
    entries.set("Prioritaet", 1);
    entries.set("DateTimeStamp", stamp.plusDays(n % 1000));
    entries.set("DatabaseName", path);
    entries.Update();
    if (n % 50000 == 0) space.Idle();
  }
  entries.Close();
  space.Idle();
}

void makePlainFile(const std::string& path, std::int64_t count, bool ordered) {
  if (fs::exists(path)) return;
  PlainFile file(path, true);
  file.run(
      "CREATE TABLE entry (id INTEGER PRIMARY KEY AUTOINCREMENT, main INTEGER, begriff TEXT COLLATE NOCASE,"
      " sort TEXT COLLATE NOCASE, praefix TEXT, meta TEXT, ebene INTEGER, aussprache TEXT, bemerkung TEXT,"
      " unterbegriff INTEGER, klang TEXT, prio INTEGER, bild TEXT, stamp TEXT, name TEXT, bearbeitung "
      "INTEGER,"
      " changed TEXT)");
  file.run("CREATE INDEX e1 ON entry (begriff)");
  file.run("CREATE INDEX e2 ON entry (sort)");
  file.run("CREATE INDEX e3 ON entry (main)");
  file.run("CREATE INDEX e4 ON entry (stamp)");
  file.run("BEGIN");
  PlainStatement insert(
      file.connection(),
      "INSERT INTO entry (main, begriff, sort, meta, ebene, unterbegriff, prio, stamp, name, "
      "bearbeitung) VALUES (?1, ?2, ?2, ?3, 1, 0, 1, ?4, ?5, 0)");
  const base::DateTime stamp = base::DateTime::of(2024, 3, 1, 12, 0, 0);
  for (std::int64_t n = 0; n < count; ++n) {
    const std::string word = headword(n, ordered);
    insert.bind(1, n + 1);
    insert.bind(2, word);
    insert.bind(3, "//" + word + "////sense of " + word);
    insert.bind(4, stamp.plusDays(n % 1000).iso());
    insert.bind(5, path);
    insert.run();
  }
  file.run("COMMIT");
}

}  // namespace bench
