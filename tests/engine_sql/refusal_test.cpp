#include <gtest/gtest.h>

#include "engine/sql/parser.h"
#include "engine/sql/printer.h"

namespace {

using engine::sql::parse;
using engine::sql::print;

std::string refusal(const std::string& text) {
  try {
    parse(text);
  } catch (const base::Error& error) {
    EXPECT_EQ(error.number(), 3075) << text;
    return error.text();
  }
  return "accepted";
}

std::string repeated(const std::string& piece, std::size_t times) {
  std::string all;
  for (std::size_t i = 0; i < times; ++i) all += piece;
  return all;
}

TEST(Refusals, SayWhatWasMetAndWhere) {
  EXPECT_NE(refusal("select a, b c\nfrom t").find("line 1, column 13, near 'c'"), std::string::npos);
  EXPECT_NE(refusal("select \xC3\xA4 + \nform t where").find("line 2, column 6, near 't'"),
            std::string::npos);
  EXPECT_NE(refusal("select * from").find("at the end"), std::string::npos);
  EXPECT_NE(refusal("select * from t where a = 'open").find("no closing quote (line 1, column 27"),
            std::string::npos);
  EXPECT_NE(refusal("select * from t; select 1").find("near 'select'"), std::string::npos);
}

TEST(Refusals, CoverAllThatIsNotTheDialect) {
  for (const char* text : {"",
                           ";",
                           "   ",
                           "select",
                           "select * from t where",
                           "select * from t order",
                           "select from t",
                           "select a.b.c.d from t",
                           "select * from (a",
                           "select * from a left b",
                           "select * from a inner join b",
                           "select a from t where a in 5",
                           "select a from t where a not 5",
                           "select (1 from t",
                           "select [a from t",
                           "select [] from t",
                           "select [a[b]] from t",
                           "update t set",
                           "update t set a",
                           "delete t",
                           "delete t from t",
                           "insert into t",
                           "insert into t (a) b",
                           "create table t",
                           "create table t (a)",
                           "create table t (a blob)",
                           "create view v",
                           "drop t",
                           "alter table t a b",
                           "parameters a; select 1",
                           "select 1 select 2",
                           "attach 'x' as y",
                           "pragma key",
                           "select a from t where a = ?1",
                           "select /* x */ 1",
                           "select a from t in t2",
                           "select a from t in ''",
                           "select `a` from t",
                           "select a from t where a = b c",
                           "select count(* from t",
                           "select a like from t",
                           "select 1e999",
                           "vacuum"})
    EXPECT_NE(refusal(text), "accepted") << text;
}

TEST(Refusals, CoverBytesThatAreNoText) {
  EXPECT_NE(refusal("select '\xFF' from t").find("UTF-8"), std::string::npos);
  EXPECT_NE(refusal(std::string("select 'a\0b' from t", 19)).find("NUL"), std::string::npos);
  EXPECT_NE(refusal("select '" + std::string(1024 * 1024, 'x') + "'").find("1 MiB"), std::string::npos);
}

TEST(Depth, IsBoundedInEveryDirection) {
  constexpr std::size_t deep = 100000;
  const std::string texts[] = {
      "select " + repeated("(", deep) + "1" + repeated(")", deep),
      "select " + repeated("(", deep),
      "select " + repeated("- ", deep) + "1",
      "select " + repeated("not ", deep) + "1",
      "select 1" + repeated("+1", deep),
      "select 1" + repeated(" xor 1", deep),
      "select 1" + repeated(" is null", deep),
      "select " + repeated("f(", deep) + "1",
      "select * from " + repeated("(", deep) + "a",
      "select * from " + repeated("(select * from ", deep / 10) + "a",
      "select * from a" + repeated(" inner join b on 1", deep / 10),
      "select * from a" + repeated(" inner join b", deep / 10) + repeated(" on 1", deep / 10),
      "select * from a where x in (" + repeated("select 1 where x in (", deep / 10),
  };
  for (const std::string& text : texts) EXPECT_NE(refusal(text), "accepted") << text.substr(0, 60);
}

TEST(Depth, LeavesLongListsAndChainsAlone) {
  const std::string texts[] = {
      "SELECT 1 WHERE a = 1" + repeated(" OR a = 1", 100000),
      "SELECT 1 WHERE a = 1" + repeated(" AND a = 1", 100000),
      "SELECT 1 WHERE a = 1" + repeated(" OR a = 1 AND b = 2", 40000),
      "SELECT 1 WHERE a IN (1" + repeated(", 2", 100000) + ")",
      "SELECT 1" + repeated(" UNION SELECT 1", 20000),
      "SELECT " + repeated("(", 300) + "1" + repeated(")", 300),
  };
  for (const std::string& text : texts) {
    const auto tree = parse(text);
    const std::string printed = print(tree);
    EXPECT_TRUE(same(tree, parse(printed))) << text.substr(0, 60);
    EXPECT_LE(tree.select->height, engine::sql::maxHeight);
  }
}

}  // namespace
