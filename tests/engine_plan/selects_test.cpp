#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <set>

#include "words.h"

namespace {

using test::firsts;
using test::Row;
using test::Rows;

TEST(Order, IsTheKeysUnlessAQueryOrStatementSaysElse) {
  const auto files = test::words();
  const Row byKey = {"1", "2", "3", "4"}, byWord = {"2", "1", "4", "3"};
  // An index that covers the statement would give another order.
  EXPECT_EQ(firsts(files->rows("SELECT ID_Woerterbuch FROM Woerterbuch WHERE Begriff > ''")), byKey);
  EXPECT_EQ(firsts(files->rows("SELECT ID_Woerterbuch FROM AllWordsOrderByBegriff")), byWord);
  EXPECT_EQ(firsts(files->rows("SELECT * FROM AllWordsOrderByBegriff WHERE Ebene < 3")), byWord);
  EXPECT_EQ(firsts(files->rows("SELECT * FROM AllWordsOrderByBegriff ORDER BY ID_Woerterbuch DESC")),
            (Row{"4", "3", "2", "1"}));
  EXPECT_EQ(firsts(files->rows("SELECT Begriff AS Ebene FROM Woerterbuch ORDER BY Ebene DESC")),
            (Row{"Zug", "Haustür", "Haus", "Ähre"}));
  EXPECT_EQ(firsts(files->rows("SELECT ID_Woerterbuch FROM Woerterbuch ORDER BY DateTimeStamp DESC, 1")),
            (Row{"2", "4", "1", "3"}));
  files->file().addQuery("Last", "SELECT TOP 2 ID_Woerterbuch FROM Woerterbuch ORDER BY SortBegriff DESC");
  EXPECT_EQ(firsts(files->rows("SELECT * FROM Last")), (Row{"3", "4"}));
  EXPECT_EQ(firsts(files->rows("SELECT DISTINCT ID_Woerterbuch1 FROM Woerterbuch")), (Row{"1", "2", "3"}));
}

TEST(Order, OfATableKeyedByTextsFollowsTheLocale) {
  test::MemoryFiles files;
  test::MemoryFile& file = files.add("A.CVB");
  file.define("CREATE TABLE V (Begriff TEXT(50), Wortbedeutung TEXT(50))");
  file.define("CREATE INDEX PrimaryKey ON V (Begriff, Wortbedeutung) WITH PRIMARY");
  file.insert("V", "('Zug', 'b'), ('Ähre', 'x'), ('zug', 'A'), ('Esel', 'x')");
  EXPECT_EQ(files.rows("SELECT * FROM V"), (Rows{{"Ähre", "x"}, {"Esel", "x"}, {"zug", "A"}, {"Zug", "b"}}));
}

TEST(Top, CountsBeforeAFurtherCondition) {
  const auto files = test::words();
  const auto plan = files->bind("SELECT TOP 2 ID_Woerterbuch FROM Woerterbuch ORDER BY Begriff");
  EXPECT_TRUE(plan.keyed);
  EXPECT_EQ(files->fetch(emitKeys(plan)), (Rows{{"2"}, {"1"}}));
  EXPECT_EQ(files->fetch(emitKeys(plan, {}, true)), (Rows{{"1"}, {"2"}}));
  EXPECT_EQ(files->fetch(emitCount(plan)), (Rows{{"2"}}));
  const auto criterion = engine::sql::parseCondition("ID_Woerterbuch <> 2");
  EXPECT_EQ(files->fetch(emitRows(plan, bindCriterion(plan, *criterion, files->context))), (Rows{{"1"}}));
}

TEST(Distinct, GoesByValuesAndDropsNothingWhereAKeyIsSelected) {
  const auto files = test::words();
  const auto all = files->bind("SELECT DISTINCT * FROM Woerterbuch ORDER BY SortBegriff");
  EXPECT_FALSE(all.keyed);
  EXPECT_FALSE(all.distinct) << "the key makes all rows differ";
  EXPECT_EQ(firsts(files->fetch(emitRows(all))), (Row{"2", "1", "4", "3"}));
  const auto some = files->bind("SELECT DISTINCT ID_Woerterbuch, ID_WKategorie FROM relWoertWKat");
  EXPECT_EQ(files->fetch(emitRows(some)), (Rows{{"1", "1"}, {"1", "2"}, {"3", "1"}}));
  EXPECT_EQ(files->fetch(emitCount(some)), (Rows{{"3"}}));
}

/// A row of the three tables that the statements below join.
struct Linked {
  int entry, link, property;  // 0 for none
};
/// Links of entries 1 to 3 to properties 1 and 2. 0 stands for Null, 9 for a property that is not there.
using Links = std::vector<std::pair<int, int>>;

Links someLinks(std::mt19937& random) {
  Links links;
  for (int i = 0; i < 8; ++i) {
    const int properties[] = {0, 1, 2, 9};
    links.emplace_back(1 + static_cast<int>(random() % 3), properties[random() % 4]);
  }
  return links;
}

std::string asRows(const Links& links) {
  std::string rows;
  for (const auto& [entry, property] : links)
    rows += (rows.empty() ? "(" : ", (") + std::to_string(entry) + ", " +
            (property == 0 ? "NULL" : std::to_string(property)) + ", 'v')";
  return rows;
}

/// The rows of the outer joins, or those of the inner ones.
std::vector<Linked> joined(const Links& links, bool outer) {
  std::vector<Linked> all;
  for (int entry = 1; entry <= 3; ++entry) {
    const std::size_t before = all.size();
    for (std::size_t i = 0; i < links.size(); ++i) {
      if (links[i].first != entry) continue;
      const int property = links[i].second == 9 ? 0 : links[i].second;
      if (outer || property != 0) all.push_back({entry, static_cast<int>(i) + 1, property});
    }
    if (outer && all.size() == before) all.push_back({entry, 0, 0});
  }
  return all;
}

template <class Identity>
std::size_t distinct(const std::vector<Linked>& from, Identity identity) {
  std::set<std::vector<int>> seen;
  for (const Linked& row : from) seen.insert(identity(row));
  return seen.size();
}

TEST(Distinctrow, DropsRowsThatRepeatTheSelectedTablesRows) {
  const std::string leftJoins =
      " FROM (Woerterbuch LEFT JOIN relWoertWKat ON Woerterbuch.ID_Woerterbuch = "
      "relWoertWKat.ID_Woerterbuch) LEFT "
      "JOIN WKategorie ON WKategorie.ID_WKategorie = relWoertWKat.ID_WKategorie";
  const std::string innerJoins =
      " FROM WKategorie INNER JOIN (Woerterbuch INNER JOIN relWoertWKat ON Woerterbuch.ID_Woerterbuch = "
      "relWoertWKat.ID_Woerterbuch) ON WKategorie.ID_WKategorie = relWoertWKat.ID_WKategorie";
  std::mt19937 random(7);
  for (int round = 0; round < 30; ++round) {
    test::MemoryFiles files;
    test::MemoryFile& file = files.add("A.CVB");
    test::defineWords(file);
    // Equal headwords and values, so that DISTINCT would drop more.
    file.run("INSERT INTO d1.Woerterbuch (Begriff) VALUES ('x'), ('x'), ('x')");
    file.run("INSERT INTO d1.WKategorie (Kategorie) VALUES ('k'), ('k')");
    const Links links = someLinks(random);
    const std::string rows = asRows(links);
    file.insert("relWoertWKat", rows);

    const std::vector<Linked> outer = joined(links, true), inner = joined(links, false);
    const auto count = [&](const std::string& columns, const std::string& from) {
      const auto plan = files.bind("SELECT DISTINCTROW " + columns + from);
      EXPECT_TRUE(plan.keyed);
      const std::size_t rowCount = files.fetch(emitRows(plan)).size();
      EXPECT_EQ(files.fetch(emitCount(plan)), (Rows{{std::to_string(rowCount)}}));
      EXPECT_EQ(files.fetch(emitKeys(plan)).size(), rowCount);
      return rowCount;
    };
    const std::string both = "Woerterbuch.Begriff, WKategorie.Kategorie";
    const auto entryAndProperty = [](const Linked& row) { return std::vector{row.entry, row.property}; };
    const auto entryAlone = [](const Linked& row) { return std::vector{row.entry}; };
    EXPECT_EQ(count(both, leftJoins), distinct(outer, entryAndProperty)) << rows;
    EXPECT_EQ(count(both, innerJoins), distinct(inner, entryAndProperty)) << rows;
    EXPECT_EQ(count("Woerterbuch.Begriff", leftJoins), 3u);
    EXPECT_EQ(count("Woerterbuch.Begriff", innerJoins), distinct(inner, entryAlone)) << rows;
    EXPECT_EQ(count(both + ", KategorieWert", leftJoins), outer.size());
    EXPECT_EQ(count("*", innerJoins), inner.size());
    // The same through a stored query that is joined once more.
    file.addQuery("Pairs", "SELECT DISTINCTROW Woerterbuch.ID_Woerterbuch, WKategorie.Kategorie" + leftJoins);
    EXPECT_EQ(files
                  .rows("SELECT * FROM Woerterbuch LEFT JOIN Pairs ON Woerterbuch.ID_Woerterbuch = "
                        "Pairs.ID_Woerterbuch")
                  .size(),
              distinct(outer, entryAndProperty))
        << rows;
  }
}

TEST(Union, MergesEqualRowsUnderTheFirstFilesLocale) {
  test::MemoryFiles files;
  // Swedish sorts "v" and "w" as letters of their own and Å behind Z; German does not.
  for (const auto& [path, collation] : {std::pair{"A.CVB", "vc_041d"}, {"B.CVB", "vc_0407"}}) {
    test::MemoryFile& file = files.add(path, collation);
    file.define("CREATE TABLE T (ID COUNTER, W TEXT(50), N LONGTEXT)");
  }
  files.file().insert("T", "(1, 'Ål', 'x'), (2, 'bo', 'X')");
  files.file("B.CVB").insert("T", "(1, 'ÅL', 'X'), (5, 'zon', NULL)");
  Row words = firsts(files.rows("SELECT W, N FROM T UNION SELECT W, N FROM T IN \"B.CVB\" ORDER BY T.W"));
  for (std::string& word : words) word = base::lower(word);  // either of two equal rows may stand
  EXPECT_EQ(words, (Row{"bo", "zon", "ål"}));
  EXPECT_EQ(
      files.rows("SELECT W FROM T UNION ALL SELECT W FROM T IN \"B.CVB\" WHERE ID = 1 ORDER BY 1").size(),
      3u);
  const auto plan = files.bind("SELECT * FROM T UNION SELECT * FROM T IN 'B.CVB'");
  EXPECT_FALSE(plan.keyed);
  const auto criterion = engine::sql::parseCondition("t.w = 'ZON'");
  EXPECT_EQ(firsts(files.fetch(emitRows(plan, bindCriterion(plan, *criterion, files.context)))), Row{"5"});
}

TEST(Speed, StatementsOfTheBrowserUseIndexes) {
  const auto files = test::words();
  const auto uses = [&](const std::string& text, const std::string& step,
                        const engine::Parameters& parameters = {}) {
    const std::string steps = files->explain(text, parameters);
    EXPECT_NE(steps.find(step), std::string::npos) << text << "\n" << steps;
    EXPECT_EQ(steps.find("TEMP B-TREE FOR ORDER BY"), std::string::npos) << text << "\n" << steps;
    EXPECT_EQ(steps.find("AUTOMATIC"), std::string::npos) << text << "\n" << steps;
  };
  const std::string all = "SELECT * FROM Woerterbuch WHERE ";
  uses("SELECT * FROM AllWordsOrderByBegriff", "SCAN t0 USING INDEX Woerterbuch$SortBegriff");
  uses("SELECT ID_Woerterbuch FROM Woerterbuch ORDER BY DateTimeStamp DESC", "Woerterbuch$DateTimeStamp");
  uses(all + "begriff = \"Haus\"", "SEARCH t0 USING INDEX Woerterbuch$Begriff (Begriff=?)");
  uses(all + "begriff = [p]", "Woerterbuch$Begriff (Begriff=?)", {{"p", "x"}});
  uses(all + "begriff IN ('a', 'b') ORDER BY begriff", "Woerterbuch$Begriff (Begriff=?)");
  uses(all + "SortBegriff LIKE 'ha*' ORDER BY SortBegriff",
       "Woerterbuch$SortBegriff (SortBegriff>? AND SortBegriff<?)");
  uses(all + "id_woerterbuch like 5 and id_woerterbuch1 like 5", "INTEGER PRIMARY KEY (rowid=?)");
  uses(all + "id_woerterbuch1 = '5'", "Woerterbuch$ID_Woerterbuch1 (ID_Woerterbuch1=?)");
  uses(all + "ID_Woerterbuch = [lWortID]", "INTEGER PRIMARY KEY (rowid=?)", {{"lWortID", 1}});
  uses("SELECT * FROM exportview2 WHERE ID_Woerterbuch = 5 ORDER BY ID_Woerterbuch",
       "INTEGER PRIMARY KEY (rowid=?)");
  EXPECT_EQ(files->explain("SELECT * FROM exportview2 WHERE ID_Woerterbuch = 5").find("SCAN t"),
            std::string::npos);
  EXPECT_EQ(files->explain("SELECT * FROM exportview2 WHERE ID_Woerterbuch = 5").find("MATERIALIZE"),
            std::string::npos);
  // Repeated links are left out one by one: nothing has to be grouped, however the views are stacked.
  EXPECT_TRUE(files->bind("SELECT DISTINCTROW * FROM exportview2").groupBy.empty());
}

}  // namespace
