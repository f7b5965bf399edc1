#include "store/rewriter.h"

#include <algorithm>
#include <set>

#include "store/dictionary.h"

namespace {

using session::View;
using store::BuildMultiSQL;

class Rewriter : public StoreTest {
 protected:
  std::string rewrite(std::string sql, View view = View::frmWoerter) { return BuildMultiSQL(s, sql, view); }
  /// A session of three files; returns the names of the added ones.
  std::vector<std::string> openThree() {
    const std::string b = createClosed("b.cvb"), c = createClosed("C d.cvb");
    create("a.cvb");
    EXPECT_TRUE(store::addDictionary(s, b, false));
    EXPECT_TRUE(store::addDictionary(s, c, false));
    return {s.files.ExtraDB[0].Name(), s.files.ExtraDB[1].Name()};
  }
};

TEST_F(Rewriter, OneFileKeepsItsPartsInTheirOrder) {
  EXPECT_EQ(rewrite(" select * from woerterbuch where ebene=1 order by sortbegriff; "),
            "SELECT * FROM WOERTERBUCH WHERE EBENE=1 ORDER BY SORTBEGRIFF");
  EXPECT_EQ(rewrite("select * from woerterbuch;"), "SELECT * FROM WOERTERBUCH");
  EXPECT_EQ(rewrite("PARAMETERS lWortID Long; select * from url where id=[lWortID];"),
            "PARAMETERS LWORTID LONG; SELECT * FROM URL WHERE ID=[LWORTID]");
  EXPECT_EQ(rewrite("select * from woerterbuch", View::frmPrint),
            "SELECT * FROM WOERTERBUCH order by Sortbegriff;");
  EXPECT_EQ(rewrite("select * from woerterbuch order by ebene", View::frmStandardReports),
            "SELECT * FROM WOERTERBUCH ORDER BY EBENE");
  std::string sql = "select * from x order by y";
  BuildMultiSQL(s, sql, View::frmSearch);
  EXPECT_EQ(sql, "SELECT * FROM X") << "the argument is changed too";
}

TEST_F(Rewriter, SeveralFilesAreSpannedWithTheClauseBeforeTheCondition) {
  const auto [b, c] = std::pair{openThree()[0], s.files.ExtraDB[1].Name()};
  EXPECT_EQ(rewrite("PARAMETERS p Text; SELECT * FROM woerterbuch WHERE ebene=1 ORDER BY SortBegriff;"),
            "PARAMETERS P TEXT; SELECT * FROM WOERTERBUCH WHERE EBENE=1"
            " UNION SELECT * FROM WOERTERBUCH  IN \"" +
                b +
                "\" WHERE EBENE=1"
                " UNION SELECT * FROM WOERTERBUCH  IN \"" +
                c + "\" WHERE EBENE=1 ORDER BY SORTBEGRIFF");
  EXPECT_EQ(rewrite("select * from sprachen;", View::frmPrint),
            "SELECT * FROM SPRACHEN UNION SELECT * FROM SPRACHEN IN \"" + b +
                "\" UNION SELECT * FROM SPRACHEN IN \"" + c + "\" order by Sortbegriff;");
}

TEST_F(Rewriter, TheFilterIsAppliedBeforeTheArmsAreMade) {
  s.filter.ApplyFilterToSQL = [](std::string& sql, View view) {
    if (view == View::frmWoerter) sql += " WHERE begriff like \"a*\"";
  };
  const std::string b = openThree()[0];
  const std::string text = rewrite("select * from woerterbuch order by begriff");
  EXPECT_EQ(std::string::size_type{2}, [&] {
    std::string::size_type n = 0;
    for (auto at = text.find("IN \""); at != std::string::npos; at = text.find("IN \"", at + 1)) ++n;
    return n;
  }());
  EXPECT_NE(text.find("IN \"" + b + "\" WHERE begriff like \"a*\""), std::string::npos) << text;
  EXPECT_EQ(rewrite("select * from woerterbuch", View::frmSearch).find("like"), std::string::npos);
}

TEST_F(Rewriter, ListsRunOverAllFilesAsIfTheyWereOne) {
  openThree();
  std::multiset<std::string> expected;
  engine::Database* files[] = {&db(), &s.files.ExtraDB[0], &s.files.ExtraDB[1]};
  for (engine::Database* file : files)
    for (const char* headword : {"gleich", "Ähre", "zuletzt"}) {
      addEntry(*file, headword);
      expected.insert(headword);
    }
  addEntry(s.files.ExtraDB[1], "nur hier", 2);
  addEntry(s.files.ExtraDB[0], "anderswo");
  expected.insert("anderswo");

  std::vector<std::string> found;
  std::set<std::string> databases;
  engine::Recordset list =
      db().OpenRecordset(rewrite("SELECT * FROM woerterbuch WHERE ebene=1 ORDER BY SortBegriff;"));
  for (; !list.EndOfFile(); list.MoveNext()) {
    found.push_back(list["Begriff"].asText());
    databases.insert(list["DatabaseName"].asText());
  }
  EXPECT_EQ(std::multiset<std::string>(found.begin(), found.end()), expected);
  EXPECT_EQ(found.front(), "Ähre");
  EXPECT_EQ(found.back(), "zuletzt");
  EXPECT_EQ(databases.size(), 3U);

  engine::Recordset stored = store::openRewritten(s, "AllWordsOrderByBegriff", View::frmWoerter);
  stored.MoveLast();
  EXPECT_EQ(stored.RecordCount(), 11);
  engine::Recordset joined = store::openRewritten(s, "ExportView2", View::frmPrint);
  joined.MoveLast();
  EXPECT_EQ(joined.RecordCount(), 11);
}

}  // namespace
