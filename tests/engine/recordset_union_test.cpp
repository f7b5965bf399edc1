// Unions over several files: rows of files that tell themselves apart are read by key, all others copied.

#include <algorithm>
#include <set>

#include "words.h"

namespace {

class RecordsetUnion : public test::Words {
 protected:
  /// Gives the entries of a file, numbered from 1, these headwords and a note that is the same in all rows.
  void fill(engine::Database& file, const std::vector<std::string>& headwords, const std::string& note) {
    if (file.Name() != database.Name())
      for (const char* statement :
           {"CREATE TABLE Woerterbuch (ID_Woerterbuch COUNTER, Begriff TEXT(250), SortBegriff TEXT(250), "
            "Bemerkung LONGTEXT)",
            "CREATE UNIQUE INDEX PrimaryKey ON Woerterbuch (ID_Woerterbuch) WITH PRIMARY",
            "CREATE INDEX SortBegriff ON Woerterbuch (SortBegriff)"})
        file.Execute(statement);
    auto rows = file.OpenRecordset("Woerterbuch");
    for (const std::string& headword : headwords) {
      rows.AddNew();
      rows.set("Begriff", headword);
      rows.set("SortBegriff", headword);
      rows.set("Bemerkung", note);
      rows.Update();
    }
  }
  std::string united(const std::string& where = "") const {
    const std::string columns = "SELECT ID_Woerterbuch, Begriff, SortBegriff, Bemerkung FROM Woerterbuch";
    return columns + " " + where + " UNION " + columns + " IN \"" + b.Name() + "\" " + where + " UNION " +
           columns + " IN \"" + c.Name() + "\" " + where;
  }
  static std::vector<std::string> all(engine::Recordset& rows) {
    std::vector<std::string> texts;
    if (rows.RecordCount() == 0) return texts;
    for (rows.MoveFirst(); !rows.EndOfFile(); rows.MoveNext()) texts.push_back(text(rows));
    return texts;
  }
  static std::string text(const engine::Recordset& rows) {
    return rows["Begriff"].asText() + "/" + rows["Bemerkung"].textOrEmpty();
  }

  engine::Database b = workspace.CreateDatabase(folder / "b.cvb", german, 2);
  engine::Database c = workspace.CreateDatabase(folder / "c.cvb", ";LANGID=0x0406;CP=1252;COUNTRY=0", 2);
};

TEST_F(RecordsetUnion, FilesThatTellThemselvesApartAreMerged) {
  std::vector<std::string> expected;
  std::vector<std::string> words;
  for (int n = 0; n < 100; ++n) words.push_back("w" + std::to_string(1000 - n * 7));
  fill(database, words, "A");
  fill(b, words, "B");
  fill(c, {"w500", "w1", "Ähre", "zz"}, "C");
  for (const char* note : {"A", "B"})
    for (const std::string& word : words) expected.push_back(word + "/" + note);
  for (const char* word : {"w500", "w1", "Ähre", "zz"}) expected.push_back(std::string(word) + "/C");

  auto rows = database.OpenRecordset(united() + " ORDER BY SortBegriff;");
  rows.MoveLast();
  EXPECT_EQ(rows.RecordCount(), static_cast<std::int64_t>(expected.size()));
  EXPECT_EQ(text(rows), "zz/C");
  std::vector<std::string> found = all(rows);
  EXPECT_EQ(found.front(), "Ähre/C");
  EXPECT_TRUE(std::is_sorted(found.begin() + 1, found.end(), [](const std::string& a, const std::string& z) {
    return a.substr(0, a.find('/')) < z.substr(0, z.find('/'));
  }));
  std::vector<std::string> sorted = found;
  std::ranges::sort(sorted);
  std::ranges::sort(expected);
  EXPECT_EQ(sorted, expected);

  // Backwards, by position and by condition it is the same list.
  std::vector<std::string> backwards;
  for (rows.MoveLast(); !rows.BeginOfFile(); rows.MovePrevious()) backwards.push_back(text(rows));
  std::ranges::reverse(backwards);
  EXPECT_EQ(backwards, found);
  rows.FindFirst("Bemerkung = 'C' and SortBegriff > 'w4'");
  EXPECT_EQ(text(rows), "w500/C");
  EXPECT_EQ(found[static_cast<std::size_t>(rows.AbsolutePosition())], "w500/C");
  rows.FindLast("SortBegriff = 'w993'");
  EXPECT_EQ(text(rows), "w993/B");
  rows.FindFirst("ID_Woerterbuch = 1 and Bemerkung = 'B'");
  EXPECT_EQ(text(rows), "w1000/B");
  rows.FindFirst("Begriff = 'nirgends'");
  EXPECT_TRUE(rows.NoMatch());

  auto filtered =
      database.OpenRecordset(united("WHERE Begriff LIKE \"w99*\"") + " ORDER BY SortBegriff DESC, 1;");
  EXPECT_EQ(all(filtered), (std::vector<std::string>{"w993/B", "w993/A"})) << "ties turn round with the rest";
  auto letters = database.OpenRecordset(
      united("WHERE SortBegriff LIKE \"w9*\" OR SortBegriff LIKE \"z*\" OR SortBegriff LIKE \"w99*\"") +
      " ORDER BY SortBegriff;");
  std::vector<std::string> lettered;
  std::ranges::copy_if(found, std::back_inserter(lettered),
                       [](const auto& word) { return word.starts_with("w9") || word.starts_with("z"); });
  EXPECT_EQ(all(letters), lettered);
  auto snapshot =
      database.OpenRecordset(united() + " ORDER BY SortBegriff;", engine::RecordsetKind::snapshot);
  EXPECT_EQ(all(snapshot), found);
  EXPECT_THROW(rows.Edit(), engine::Error);
  EXPECT_THROW(rows.AddNew(), engine::Error);
  EXPECT_THROW(rows.Delete(), engine::Error);
}

TEST_F(RecordsetUnion, RowsThatMayBeEqualStandOnce) {
  fill(database, {"eins", "zwei"}, "A");
  fill(b, {"EINS", "drei"}, "a");  // compares equal, without case
  fill(c, {}, "");
  auto rows = database.OpenRecordset(united() + " ORDER BY SortBegriff;");
  EXPECT_EQ(all(rows).size(), 3U);
  // A row that breaks what held for all brings the comparison back, and the next reading sees it.
  b.Execute("update Woerterbuch set Bemerkung = 'B'");
  auto apart = database.OpenRecordset(united() + " ORDER BY SortBegriff;");
  apart.MoveLast();
  EXPECT_EQ(apart.RecordCount(), 4);
  b.Execute("update Woerterbuch set Bemerkung = 'A' where ID_Woerterbuch = 1");
  apart.Requery();
  EXPECT_EQ(all(apart).size(), 3U);
}

TEST_F(RecordsetUnion, TheListStandsWhileRowsComeAndGo) {
  fill(database, {"a", "c"}, "A");
  fill(b, {"b", "d"}, "B");
  fill(c, {"e"}, "C");
  auto rows = database.OpenRecordset(united() + " ORDER BY SortBegriff;");
  database.Execute("insert into Woerterbuch (Begriff, SortBegriff, Bemerkung) values ('aa', 'aa', 'A')");
  b.Execute("delete * from Woerterbuch where Begriff = 'd'");
  rows.MoveLast();
  EXPECT_EQ(rows.RecordCount(), 5) << "membership is that of the opening";
  EXPECT_EQ(text(rows), "e/C");
  rows.MovePrevious();
  EXPECT_EQ(
      [&] {
        try {
          text(rows);
        } catch (const engine::Error& error) {
          return error.number();
        }
        return 0;
      }(),
      3167);
  rows.Requery();
  EXPECT_EQ(all(rows), (std::vector<std::string>{"a/A", "aa/A", "b/B", "c/A", "e/C"}));
}

}  // namespace
