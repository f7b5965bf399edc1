#include <gtest/gtest.h>

#include "words.h"

namespace {

using engine::Interface;
using test::errorNumber;
using test::firsts;
using test::Row;
using test::Rows;

/// The value of an expression over the first entry.
std::string valueOf(const test::MemoryFiles& files, const std::string& expression,
                    const engine::Parameters& parameters = {}) {
  return files.rows("SELECT " + expression + " FROM Woerterbuch WHERE ID_Woerterbuch = 1", parameters)
      .at(0)
      .at(0);
}

/// The entries that meet a condition.
Row where(const test::MemoryFiles& files, const std::string& condition,
          const engine::Parameters& parameters = {}) {
  return firsts(files.rows("SELECT ID_Woerterbuch FROM Woerterbuch WHERE " + condition, parameters));
}

TEST(Expressions, CountAndJoinAsTheDialectDoes) {
  const auto files = test::words();
  const std::pair<const char*, const char*> cases[] = {
      {"2 + 3 * 4", "14"},
      {"7 / 2", "3.5"},
      {"7 \\ 2", "3"},
      {"-7 MOD 3", "-1"},
      {"2 ^ 3 ^ 2", "64"},
      {"1 + Null", "~"},
      {"'a' + Null", "~"},
      {"'a' & Null & 1", "a1"},
      {"'a' + 'b'", "ab"},
      {"'2' + 3", "5"},
      {"1.5 & 'x'", "1.5x"},
      {"2.0 & ''", "2"},
      {"True & False", "-10"},
      {"(1 = 1) + 0", "-1"},
      {"NOT (1 = 2)", "-1"},
      {"ID_Woerterbuch = 1 AND Ebene = 1", "-1"},
      {"True XOR True", "0"},
      {"False IMP False", "-1"},
      {"True EQV False", "0"},
      {"IIf(isnull(Null), 'leer', 1 / 0)", "leer"},
      {"Nz(Null, 5) + 1", "6"},
      {"len(Begriff) & Begriff", "4Haus"},
      {"left(DateTimeStamp, 10)", "12.03.2020"},
      {"DateTimeStamp & ''", "12.03.2020 10:00:00"},
      {"datevalue(DateTimeStamp)", "2020-03-12 00:00:00"},
      {"DateTimeStamp + 1", "2020-03-13 10:00:00"},
      {"DateTimeStamp - #3-10-20 10:00:00#", "2"},
      {"'it''s'", "it's"},
  };
  for (const auto& [expression, expected] : cases) {
    std::string found = valueOf(*files, expression);
    if (found.ends_with(".0")) found.resize(found.size() - 2);  // a number without a fraction
    EXPECT_EQ(found, expected) << expression;
  }
  EXPECT_THROW(valueOf(*files, "Begriff + ID_Woerterbuch"), std::runtime_error);
}

TEST(Expressions, KeepTextsThatLookLikeStatementsAsTexts) {
  const auto files = test::words();
  const std::string awkward = "'); DROP TABLE \"x\"; --\\?1 '";
  EXPECT_EQ(valueOf(*files, "'" + base::replaceAll(awkward, "'", "''") + "'"), awkward);
  EXPECT_EQ(valueOf(*files, "[p] & 'a\nb'", {{"p", "\t"}}), "\ta\nb");
}

TEST(Expressions, BringBothSidesOfAComparisonToOneType) {
  const auto files = test::words();
  EXPECT_EQ(where(*files, "ID_Woerterbuch = '3'"), Row{"3"});
  EXPECT_EQ(where(*files, "ID_Woerterbuch > [p]", {{"p", "3"}}), Row{"4"});
  EXPECT_EQ(where(*files, "ID_Woerterbuch + 1 = [p]", {{"p", "3"}}), Row{"2"});
  EXPECT_EQ(where(*files, "ID_Woerterbuch IN ('1', 4, [p])", {{"p", 3}}), (Row{"1", "3", "4"}));
  EXPECT_EQ(errorNumber([&] { where(*files, "ID_Woerterbuch = 'x'"); }), 13);
  EXPECT_EQ(where(*files, "unterbegriff=true"), Row{"1"});
  EXPECT_EQ(where(*files, "(Ebene = 2) = True"), Row{"4"});
  EXPECT_EQ(where(*files, "NOT Unterbegriff AND Ebene = 1"), (Row{"2", "3"}));
  EXPECT_EQ(where(*files, "Begriff = [p] OR SortBegriff = 4", {{"p", "HAUS"}}), Row{"1"});
}

TEST(Expressions, CompareDatesHoweverTheyAreWritten) {
  const auto files = test::words();
  EXPECT_EQ(where(*files, "DateTimeStamp >= #03-12-20 11:00:00#"), (Row{"2", "4"}));
  EXPECT_EQ(where(*files, "DateTimeStamp = '01.05.2021'"), Row{"2"});
  EXPECT_EQ(where(*files, "datevalue(DateTimeStamp) = datevalue([von])", {{"von", "12.3.2020"}}),
            (Row{"1", "4"}));
  EXPECT_EQ(
      where(*files, "DateTimeStamp BETWEEN [a] AND [b]", {{"a", "12.03.2020"}, {"b", "12.03.2020 12:00"}}),
      Row{"1"});
  // A time stamp in a text column, one of them no date at all.
  EXPECT_EQ(where(*files, "DateTimeStampLastChange > #01-01-21#"), Row{"2"});
  EXPECT_EQ(where(*files, "DateTimeStamp IN (#05-01-21#, '12.03.2020 10:00:00')"), (Row{"1", "2"}));
}

TEST(Expressions, CompareTextsByTheLocale) {
  const auto files = test::words();
  EXPECT_EQ(where(*files, "Begriff = 'HAUS'"), Row{"1"});
  EXPECT_EQ(where(*files, "Begriff = 'ahre'"), Row{});
  EXPECT_EQ(where(*files, "ucase(Begriff) = 'haus'"), Row{"1"});
  EXPECT_EQ(where(*files, "'HAUSTÜR' = Begriff"), Row{"4"});
  EXPECT_EQ(where(*files, "Begriff IN ('zug', 'ähre')"), (Row{"2", "3"}));
  EXPECT_EQ(where(*files, "Begriff < 'b'"), Row{"2"});
  EXPECT_EQ(where(*files, "Begriff IN (SELECT ucase(Begriff) FROM Woerterbuch)").size(), 4u);
  EXPECT_EQ(where(*files, "Begriff BETWEEN 'HAUS' AND 'haustür'"), (Row{"1", "4"}));
  EXPECT_EQ(files
                ->rows("SELECT DISTINCT lcase(Kategorie) FROM WKategorie UNION SELECT ucase(Kategorie) FROM "
                       "WKategorie")
                .size(),
            2u);
  EXPECT_EQ(
      files->rows("SELECT lcase(Begriff), count(*) FROM AllWordsOrderByBegriff GROUP BY left(Begriff, 1), "
                  "lcase(Begriff) HAVING count(*) > 0 ORDER BY 1"),
      (Rows{{"ähre", "1"}, {"haus", "1"}, {"haustür", "1"}, {"zug", "1"}}));
  EXPECT_EQ(files->rows("SELECT Min(Begriff), Max(Begriff), Max(ID_Woerterbuch) AS MaxID FROM Woerterbuch"),
            (Rows{{"Ähre", "Zug", "4"}}));
}

TEST(Expressions, MatchPatternsOfBothInterfaces) {
  const auto files = test::words();
  EXPECT_EQ(where(*files, "SortBegriff LIKE 'HAUS*'"), (Row{"1", "4"}));
  EXPECT_EQ(where(*files, "SortBegriff NOT LIKE 'haus*'"), (Row{"2", "3"}));
  EXPECT_EQ(where(*files, "Begriff LIKE [p] & '*' AND Begriff LIKE '?[äu]*'", {{"p", "z"}}), Row{"3"});
  EXPECT_EQ(where(*files, "ID_Woerterbuch LIKE 4"), Row{"4"});
  EXPECT_EQ(where(*files, "ID_Woerterbuch LIKE '[3-9]'"), (Row{"3", "4"}));
  EXPECT_EQ(where(*files, "DateTimeStamp LIKE '*2020*'"), (Row{"1", "4"}));
  EXPECT_EQ(where(*files, "Begriff LIKE Null"), Row{});
  EXPECT_EQ(where(*files, "Begriff LIKE 'Haus%'"), Row{});
  files->context.way = Interface::second;
  EXPECT_EQ(where(*files, "Begriff LIKE 'Haus%'"), (Row{"1", "4"}));
  EXPECT_EQ(where(*files, "Begriff LIKE '_ug' OR Begriff LIKE '*'"), Row{"3"});
}

/// The bounds that help an index must not lose a text that matches, whatever the letters.
TEST(Expressions, FindByAPrefixWhatAScanFinds) {
  for (const char* collation : {"vc_0407", "vc_0405", "vc_041d", "vc_041f", "vc_040a"}) {
    test::MemoryFiles files;
    test::MemoryFile& file = files.add("A.CVB", collation);
    file.define("CREATE TABLE T (ID COUNTER, W TEXT(50))");
    file.define("CREATE INDEX W ON T (W)");
    const char* const letters[] = {"a", "A", "ä", "z", "c", "h", "CH", "ß", "ss",
                                   "i", "I", "ı", "İ", "å", "l", "L",  " ", "-"};
    for (const char* a : letters)
      for (const char* b : letters)
        for (const char* c : {"", "h", "x"}) {
          std::string text = std::string("(NULL, '") + a;
          file.insert("T", text + b + c + "')");
        }
    for (const char* a : letters)
      for (const char* b : {"", "a", "h", "H", "Z", "s", "i", "I"}) {
        const std::string pattern = std::string("'") + a + b + "*'";
        EXPECT_EQ(files.rows("SELECT ID FROM T WHERE W LIKE " + pattern + " ORDER BY ID"),
                  files.rows("SELECT ID FROM T WHERE W & '' LIKE " + pattern + " ORDER BY ID"))
            << collation << pattern;
      }
  }
}

TEST(Expressions, AskSubqueriesAboutTheRow) {
  const auto files = test::words();
  EXPECT_EQ(where(*files,
                  "NOT EXISTS (SELECT * FROM Wortbedeutung WHERE Wortbedeutung.ID_Woerterbuch = "
                  "Woerterbuch.ID_Woerterbuch)"),
            (Row{"2", "4"}));
  EXPECT_EQ(
      where(*files,
            "(SELECT count(*) FROM Wortbedeutung AS M WHERE M.ID_Woerterbuch = Woerterbuch.ID_Woerterbuch) "
            "= 2"),
      Row{"1"});
  EXPECT_EQ(where(*files, "ID_Woerterbuch NOT IN (SELECT DISTINCT ID_Woerterbuch FROM Wortbedeutung)"),
            (Row{"2", "4"}));
  EXPECT_EQ(
      where(*files,
            "ID_Woerterbuch IN (SELECT TOP 1 ID_Woerterbuch FROM Wortbedeutung ORDER BY ID_Wortbedeutung "
            "DESC)"),
      Row{"3"});
  // What asks for the same number twice, and the same turned round, where Null makes the difference.
  const std::string twice =
      "ID_Woerterbuch1 IN (SELECT DISTINCT ID_Woerterbuch FROM Wortbedeutung AS M WHERE M.ID_Woerterbuch = "
      "Woerterbuch.ID_Woerterbuch1 AND M.Wortbedeutung <> 'nichts')";
  const std::string once =
      "EXISTS (SELECT * FROM Wortbedeutung AS M WHERE M.ID_Woerterbuch = Woerterbuch.ID_Woerterbuch1)";
  files->file().run("UPDATE d1.Woerterbuch SET ID_Woerterbuch1 = NULL WHERE ID_Woerterbuch = 2");
  const Row with = where(*files, once), without = where(*files, "NOT " + once);
  EXPECT_EQ(with.size() + without.size(), 4U);
  EXPECT_FALSE(with.empty());
  EXPECT_EQ(where(*files, twice), with);
  EXPECT_EQ(where(*files, "NOT (" + twice + ")"), without);
  EXPECT_EQ(where(*files, "(" + twice + ") = False"), without);
  // The inner query names the row two levels out.
  EXPECT_EQ(
      where(*files,
            "EXISTS (SELECT * FROM Wortbedeutung WHERE EXISTS (SELECT * FROM WortBedBsp WHERE "
            "WortBedBsp.ID_Wortbedeutung = Wortbedeutung.ID_Wortbedeutung AND Woerterbuch.ID_Woerterbuch = "
            "Wortbedeutung.ID_Woerterbuch))"),
      (Row{"1", "3"}));
}

TEST(Expressions, AreRefusedWhereTheyCanNotBeMeant) {
  const auto files = test::words();
  for (const char* text :
       {"SELECT nothing(1) FROM Woerterbuch", "SELECT left('a') FROM Woerterbuch",
        "SELECT * FROM Woerterbuch WHERE count(*) > 1", "SELECT sum(max(Ebene)) FROM Woerterbuch",
        "SELECT (SELECT 1, 2) FROM Woerterbuch", "SELECT Begriff FROM Woerterbuch ORDER BY 2",
        "SELECT ID_Woerterbuch FROM Woerterbuch WHERE Ebene IN (SELECT * FROM Wortbedeutung)",
        "SELECT Begriff FROM Woerterbuch UNION SELECT 1, 2 FROM Woerterbuch", "SELECT *"})
    EXPECT_EQ(errorNumber([&] { files->bind(text); }), 3075) << text;
}

}  // namespace
