#include "engine/text_index.h"

#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <functional>
#include <random>
#include <set>

#include "engine/text/collation.h"
#include "engine/text/like.h"
#include "stored_words.h"

using namespace stored;

namespace {

using Ids = std::set<std::int64_t>;

constexpr int many = 1500;  // more than are read through without an index

/// Letters that fold, sort or weigh in unusual ways: dotted and dotless i, final sigma, sharp s, combining
/// marks, ligatures, wide and narrow forms of one letter, a character beyond the first plane, ignorable ones.
const std::vector<std::string> letters = {
    "a", "A",  "ä",  "Ä", "a\u0308", "b",  "B",  "e",      "é",          "h",      "i",      "I",
    "ı", "İ",  "s",  "S", "ß",       "ẞ",  "ſ",  "σ",      "ς",          "Σ",      "ά",      "Ά",
    "ﬁ", "ａ", "Ａ", "ｶ", "カ",      "か", "中", "\u2F2D", "\U0001F600", "\u00AD", "\u200D", " "};

/// A dictionary of random texts, with the same rows in memory.
class IndexedTexts {
 public:
  explicit IndexedTexts(std::string locale, unsigned seed = 1)
      : locale_(std::move(locale)), random_(seed), path_(folder_ / "words.cvb") {
    {
      engine::Workspace workspace(login);
      engine::Database database = workspace.CreateDatabase(path_, locale_, 2);
      for (const char* statement :
           {"CREATE TABLE Haupt (ID COUNTER, Name TEXT(50))",
            "CREATE UNIQUE INDEX PrimaryKey ON Haupt (ID) WITH PRIMARY",
            "CREATE TABLE Woerterbuch (ID_Woerterbuch COUNTER, ID_Haupt LONG, MetaSuche LONGTEXT, Ebene "
            "SHORT, "
            "Bemerkung LONGTEXT)",
            "CREATE UNIQUE INDEX PrimaryKey ON Woerterbuch (ID_Woerterbuch) WITH PRIMARY",
            "INSERT INTO Haupt (ID, Name) VALUES (1, 'eins')",
            "INSERT INTO Haupt (ID, Name) VALUES (2, 'zwei')"})
        database.Execute(statement);
      engine::Relation relation;
      relation.Name = "HauptWoerterbuch";
      relation.Table = "Haupt";
      relation.ForeignTable = "Woerterbuch";
      relation.field = "ID";
      relation.foreignField = "ID_Haupt";
      relation.Attributes = engine::Relation::updateCascade | engine::Relation::deleteCascade;
      database.appendRelation(relation);
      engine::indexTexts(database, "woerterbuch", {"metasuche", "bemerkung"});
    }
    open();
    for (int i = 1; i <= many; ++i) insert(i);
    workspace_->Idle();
  }

  engine::Database& database() { return database_; }
  const std::string& path() const { return path_; }
  std::string operator/(const char* name) const { return folder_ / name; }

  void open() {
    close();
    workspace_ = std::make_unique<engine::Workspace>(login);
    database_ = workspace_->OpenDatabase(path_);
  }
  void close() {
    database_ = {};
    workspace_.reset();
  }
  void compact(const std::string& locale = "") {
    close();
    {
      engine::Workspace workspace(login);
      engine::CompactDatabase(workspace, path_, folder_ / "small.cvb", locale, 2);
    }
    std::filesystem::rename(folder_ / "small.cvb", path_);
    if (!locale.empty()) locale_ = locale;
    open();
  }
  void idle() { workspace_->Idle(); }

  std::string text(std::size_t length) {
    std::string made;
    for (; length > 0; --length) made += letters[random_() % letters.size()];
    return made;
  }

  void insert(std::int64_t id) {
    const std::string search = text(1 + random_() % 30), note = text(1 + random_() % 12);
    database_.Execute(
        "INSERT INTO Woerterbuch (ID_Woerterbuch, ID_Haupt, MetaSuche, Ebene, Bemerkung) VALUES (" +
            std::to_string(id) + ", " + std::to_string(1 + id % 2) + ", s, 1, n)",
        {{"s", search}, {"n", id % 7 == 0 ? Value() : Value(note)}});
    rows_[id] = {search, id % 7 == 0 ? std::nullopt : std::optional(note)};
  }
  void update(std::int64_t id) {
    rows_[id].first = text(20);
    database_.Execute("UPDATE Woerterbuch SET MetaSuche = s WHERE ID_Woerterbuch = " + std::to_string(id),
                      {{"s", rows_[id].first}});
  }
  void erase(std::int64_t id) {
    database_.Execute("DELETE FROM Woerterbuch WHERE ID_Woerterbuch = " + std::to_string(id));
    rows_.erase(id);
  }
  std::map<std::int64_t, std::pair<std::string, std::optional<std::string>>>& rows() { return rows_; }

  Ids found(const std::string& condition, const std::string& from = "Woerterbuch",
            engine::Interface way = engine::Interface::first) {
    engine::Recordset rows =
        database_.OpenRecordset("SELECT ID_Woerterbuch FROM " + from + " WHERE " + condition,
                                engine::RecordsetKind::snapshot, {}, way);
    Ids ids;
    for (; !rows.EndOfFile(); rows.MoveNext()) ids.insert(rows.value(0).asInteger());
    return ids;
  }
  using Hit = std::function<bool(bool search, std::optional<bool> note)>;
  Ids expected(const std::string& pattern, const Hit& hit, int way = 1) {
    const engine::text::LikePattern like(pattern, way,
                                         engine::text::collator(engine::text::collationName(locale_)));
    Ids ids;
    for (const auto& [id, texts] : rows_) {
      std::optional<bool> note;
      if (texts.second) note = like.matches(*texts.second);
      if (hit(like.matches(texts.first), note)) ids.insert(id);
    }
    return ids;
  }

  /// A piece of some row's text, in another case where it has one, between wildcards.
  std::string pattern() {
    auto row = rows_.begin();
    std::advance(row, static_cast<std::ptrdiff_t>(random_() % rows_.size()));
    std::vector<std::string> characters;
    for (std::size_t at = 0; at < row->second.first.size();) {
      const std::size_t start = at;
      do ++at;
      while (at < row->second.first.size() && (row->second.first[at] & 0xC0) == 0x80);
      characters.push_back(row->second.first.substr(start, at - start));
    }
    std::string made = "*";
    const std::size_t length = 2 + random_() % 5;
    const std::size_t first = characters.empty() ? 0 : random_() % characters.size();
    for (std::size_t i = first; i < std::min(first + length, characters.size()); ++i)
      made += random_() % 15 == 0 ? "?" : random_() % 4 == 0 ? sibling(characters[i]) : characters[i];
    return made + (random_() % 8 == 0 ? "" : "*");
  }
  void expectPatternsFound(int count) {
    const Hit either = [](bool search, std::optional<bool> note) { return search || note.value_or(false); };
    for (int i = 0; i < count; ++i) {
      const std::string one = pattern(), like = " LIKE \"" + one + "\"";
      ASSERT_EQ(found("metasuche" + like + " OR bemerkung" + like), expected(one, either)) << one;
      ASSERT_EQ(found("metasuche" + like + " AND ebene = 1"),
                expected(one, [](bool search, auto) { return search; }))
          << one;
    }
  }
  std::vector<std::string> faults() {
    idle();
    engine::Workspace other(login);
    return engine::checkDatabase(other, path_);
  }
  bool isIndexed() {
    const auto& data = database_.impl()->file->data();
    return data.texts.size() == 1 && !data.texts[0].rules.empty();
  }

 private:
  std::string sibling(const std::string& letter) {
    static const std::vector<std::vector<std::string>> groups = {{"a", "A", "ａ", "Ａ"},
                                                                 {"ä", "Ä"},
                                                                 {"i", "I", "ı", "İ"},
                                                                 {"s", "S", "ſ"},
                                                                 {"σ", "ς", "Σ"},
                                                                 {"ß", "ẞ"},
                                                                 {"ά", "Ά"},
                                                                 {"ｶ", "カ", "か"},
                                                                 {"b", "B"},
                                                                 {"中", "\u2F2D"}};
    for (const auto& group : groups)
      if (std::find(group.begin(), group.end(), letter) != group.end())
        return group[random_() % group.size()];
    return letter;
  }

  std::string locale_;
  std::mt19937 random_;
  test::TempDir folder_;
  std::string path_;
  std::unique_ptr<engine::Workspace> workspace_;
  engine::Database database_;
  std::map<std::int64_t, std::pair<std::string, std::optional<std::string>>> rows_;
};

constexpr const char* turkish = ";LANGID=0x041F;CP=1254;COUNTRY=0";
constexpr const char* greek = ";LANGID=0x0408;CP=1253;COUNTRY=0";
constexpr const char* japanese = ";LANGID=0x0411;CP=932;COUNTRY=0";

}  // namespace

TEST(TextIndex, FindsWhatALoopFindsInEachLocale) {
  for (const char* locale : {german, turkish, greek, japanese}) {
    IndexedTexts texts(locale);
    texts.expectPatternsFound(10);
    EXPECT_FALSE(texts.isIndexed());
    texts.compact();
    ASSERT_TRUE(texts.isIndexed());
    EXPECT_EQ(lines(texts.faults()), "");
    texts.expectPatternsFound(40);
    texts.compact(german);
    texts.expectPatternsFound(10);
  }
}

TEST(TextIndex, KeepsNullAndNotApartAndServesJoinsAndTheSecondInterface) {
  IndexedTexts texts(german);
  texts.compact();
  for (int i = 0; i < 10; ++i) {
    const std::string one = texts.pattern(), like = " LIKE \"" + one + "\"";
    const auto note = [](bool, std::optional<bool> hit) { return hit && *hit; };
    const auto noNote = [](bool, std::optional<bool> hit) { return hit && !*hit; };
    const auto rest = [](bool, std::optional<bool> hit) { return !hit || !*hit; };
    EXPECT_EQ(texts.found("NOT bemerkung" + like), texts.expected(one, noNote)) << one;
    EXPECT_EQ(texts.found("bemerkung NOT" + like), texts.expected(one, noNote)) << one;
    EXPECT_EQ(texts.found("(bemerkung" + like + ") IS NULL OR (bemerkung" + like + ") = 0"),
              texts.expected(one, rest))
        << one;
    EXPECT_EQ(texts.found("woerterbuch.id_haupt = haupt.id AND bemerkung" + like, "woerterbuch, haupt"),
              texts.expected(one, note));
    EXPECT_EQ(
        texts.found("bemerkung" + like, "haupt LEFT JOIN woerterbuch ON haupt.id = woerterbuch.id_haupt"),
        texts.expected(one, note));
    const std::string other = texts.pattern();
    Ids both = texts.expected(one, note);
    both.merge(texts.expected(other, [](bool search, auto) { return search; }));
    EXPECT_EQ(texts.found("bemerkung" + like + " OR metasuche LIKE \"" + other + "\""), both) << other;
    std::string second = one;
    for (char& c : second) c = c == '*' ? '%' : c == '?' ? '_' : c;
    EXPECT_EQ(texts.found("bemerkung LIKE \"" + second + "\"", "woerterbuch", engine::Interface::second),
              texts.expected(second, note, 2));
  }
  texts.database().CreateQueryDef("Notizen", "SELECT * FROM Woerterbuch WHERE ebene = 1 ORDER BY metasuche");
  const std::string one = texts.pattern();
  EXPECT_EQ(texts.found("metasuche LIKE \"" + one + "\"", "Notizen"),
            texts.expected(one, [](bool search, auto) { return search; }));
  EXPECT_ANY_THROW(texts.database().OpenRecordset("SELECT * FROM [vc$text]"));
  EXPECT_ANY_THROW(texts.database().OpenRecordset("SELECT * FROM [vc$text$11$Woerterbuch$changed]"));
}

TEST(TextIndex, FollowsEveryKindOfWrite) {
  IndexedTexts texts(german);
  for (int round = 0; round < 3; ++round) {
    if (round != 1) texts.compact();
    const std::int64_t base = 2000 + round * 100;
    for (std::int64_t i = 0; i < 30; ++i) texts.insert(base + i);
    for (std::int64_t id = 3; id < 300; id += 17) texts.update(id + round);
    for (std::int64_t id = 5 + round; id < 400; id += 40) {
      if (texts.rows().count(id) == 0) continue;
      texts.erase(id);
      texts.insert(id);  // another text under a number that the index knows
    }
    for (std::int64_t id = 701 + round * 10; id < 705 + round * 10; ++id) texts.erase(id);
    texts.expectPatternsFound(10);
    // One statement over many rows, and a recordset.
    texts.database().Execute("UPDATE Woerterbuch SET Bemerkung = 'Sammelnotiz' WHERE ID_Woerterbuch > 1200");
    for (auto& [id, row] : texts.rows())
      if (id > 1200) row.second = "Sammelnotiz";
    engine::Recordset rows =
        texts.database().OpenRecordset("SELECT * FROM Woerterbuch WHERE ID_Woerterbuch = 900");
    rows.Edit();
    rows.set("MetaSuche", Value("Handarbeit " + std::to_string(round)));
    rows.Update();
    texts.rows()[900].first = "Handarbeit " + std::to_string(round);
    rows.Close();
    EXPECT_EQ(texts.found("bemerkung LIKE \"*melnot*\"").size(),
              static_cast<std::size_t>(std::count_if(texts.rows().begin(), texts.rows().end(),
                                                     [](const auto& row) { return row.first > 1200; })));
    EXPECT_EQ(texts.found("metasuche LIKE \"*darbeit " + std::to_string(round) + "*\""), Ids{900});
    texts.expectPatternsFound(10);
    EXPECT_EQ(lines(texts.faults()), "");
  }
  texts.database().Execute("DELETE FROM Haupt WHERE ID = 2");  // takes its entries along
  std::erase_if(texts.rows(), [](const auto& row) { return row.first % 2 == 1; });
  texts.expectPatternsFound(10);
  texts.compact();
  texts.expectPatternsFound(10);
  EXPECT_EQ(lines(texts.faults()), "");
}

TEST(TextIndex, RollsBackWithItsRowsAndOutlivesAKill) {
  IndexedTexts texts(german);
  texts.compact();
  const auto before = texts.rows();
  texts.close();
  const pid_t child = ::fork();
  ASSERT_GE(child, 0);
  if (child == 0) {
    texts.open();
    for (std::int64_t id = 1; id < 200; ++id) {
      texts.update(id);
      if (id == 100) texts.idle();
    }
    ::kill(::getpid(), SIGKILL);
  }
  int status = 0;
  ::waitpid(child, &status, 0);
  ASSERT_TRUE(WIFSIGNALED(status));
  texts.open();
  engine::Recordset rows =
      texts.database().OpenRecordset("SELECT ID_Woerterbuch, MetaSuche FROM Woerterbuch");
  int changed = 0;
  for (; !rows.EndOfFile(); rows.MoveNext()) {
    std::string& text = texts.rows()[rows.value(0).asInteger()].first;
    changed += text != rows.value(1).textOrEmpty();
    text = rows.value(1).textOrEmpty();
  }
  rows.Close();
  EXPECT_GT(changed, 50);
  texts.expectPatternsFound(10);
  EXPECT_EQ(lines(texts.faults()), "");
}

TEST(TextIndex, DamageIsToldAndRepairMakesItAnew) {
  IndexedTexts texts(german);
  texts.compact();
  texts.close();
  const std::string good = test::TempDir::read(texts.path());
  engine::Workspace workspace(login);
  for (std::size_t page = 2; page <= good.size() / 4096; page += 9) {
    std::string bad = good;
    ruinPage(bad, page);
    overwrite(texts.path(), bad);
    EXPECT_NE(lines(engine::checkDatabase(workspace, texts.path())), "") << page;
    // Either the page does not matter to a search, or the search fails; it never finds less.
    try {
      texts.open();
      texts.expectPatternsFound(3);
    } catch (const engine::Error& error) {
      EXPECT_EQ(error.number(), engine::errors::notADictionary) << error.text();
    }
    texts.close();
  }
  overwrite(texts.path(), good);
  EXPECT_EQ(lines(engine::RepairDatabase(workspace, texts.path()).lines), "");
  texts.open();
  EXPECT_TRUE(texts.isIndexed());
  texts.expectPatternsFound(10);
  EXPECT_EQ(lines(texts.faults()), "");
}

TEST(TextIndex, TheCheckNamesRowsThatItDoesNotListAsTheyAre) {
  IndexedTexts texts(german);
  texts.compact();
  {
    engine::storage::AttachedFile& file = *texts.database().impl()->file;
    file.connection().beforeWrite(file);
    const engine::storage::Connection::Internal internal(file.connection());
    engine::storage::runStatement(file.connection().handle(), "DROP TRIGGER " + file.schemaName() +
                                                                  ".\"vc$text$11$Woerterbuch$updated\"");
    texts.update(77);
  }
  EXPECT_NE(lines(texts.faults()).find("are missing"), std::string::npos);
  texts.close();
  engine::Workspace workspace(login);
  engine::RepairDatabase(workspace, texts.path());
  texts.open();
  EXPECT_EQ(lines(texts.faults()), "");
  {
    engine::storage::AttachedFile& file = *texts.database().impl()->file;
    texts.database().Execute("UPDATE Woerterbuch SET MetaSuche = 'eine Rarität' WHERE ID_Woerterbuch = 77");
    EXPECT_EQ(texts.found("metasuche LIKE \"*Rarität*\""), Ids{77});
    file.connection().beforeWrite(file);
    const engine::storage::Connection::Internal internal(file.connection());
    engine::storage::runStatement(file.connection().handle(),
                                  "DELETE FROM " + file.schemaName() + ".\"vc$text$11$Woerterbuch$changed\"");
  }
  EXPECT_NE(lines(texts.faults()).find("differs from 1 rows: 77."), std::string::npos);
  // Which the search does not see: it goes by the index.
  EXPECT_EQ(texts.found("metasuche LIKE \"*Rarität*\""), Ids{});
}

TEST(TextIndex, GoesWithItsFieldsAndTables) {
  IndexedTexts texts(german);
  texts.compact();
  engine::Database& database = texts.database();
  const auto columns = [&] { return database.impl()->file->data().texts; };
  database.Execute("ALTER TABLE Woerterbuch DROP COLUMN Ebene");
  EXPECT_EQ(columns().size(), 1U);
  const std::string one = texts.pattern();
  const auto search = [](bool hit, auto) { return hit; };
  EXPECT_EQ(texts.found("metasuche LIKE \"" + one + "\""), texts.expected(one, search));
  EXPECT_EQ(lines(texts.faults()), "");
  texts.compact();
  EXPECT_TRUE(texts.isIndexed());
  EXPECT_EQ(texts.found("metasuche LIKE \"" + one + "\""), texts.expected(one, search));
  database.Execute("ALTER TABLE Woerterbuch DROP COLUMN Bemerkung");
  EXPECT_TRUE(columns().empty());
  EXPECT_EQ(texts.found("metasuche LIKE \"" + one + "\""), texts.expected(one, search));
  engine::indexTexts(database, "Woerterbuch", {"MetaSuche"});
  texts.compact();
  EXPECT_TRUE(texts.isIndexed());
  EXPECT_EQ(texts.found("metasuche LIKE \"" + one + "\""), texts.expected(one, search));
  const auto refused = [&](const char* table, const char* field) {
    try {
      engine::indexTexts(database, table, {field});
    } catch (const engine::Error& error) {
      return error.number();
    }
    return 0;
  };
  EXPECT_EQ(refused("Keine", "MetaSuche"), 3078);
  EXPECT_EQ(refused("Woerterbuch", "Keins"), 3265);
  EXPECT_EQ(refused("Woerterbuch", "ID_Haupt"), 5);
}
