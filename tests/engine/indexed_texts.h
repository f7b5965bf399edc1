#pragma once

#include <functional>
#include <random>
#include <set>

#include "engine/text/collation.h"
#include "engine/text/like.h"
#include "engine/text_index.h"
#include "stored_words.h"

namespace stored {

using Ids = std::set<std::int64_t>;

inline constexpr int many = 1500;  // more than are read through without an index

/// Letters that fold, sort or weigh in unusual ways: dotted and dotless i, final sigma, sharp s, combining
/// marks, ligatures, wide and narrow forms of one letter, a character beyond the first plane, ignorable ones.
inline const std::vector<std::string> letters = {
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
    const std::size_t length = 1 + random_() % 6;
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

}  // namespace stored
