#include "engine/sql/parser.h"

#include <gtest/gtest.h>

#include "engine/sql/printer.h"

namespace {

using engine::sql::parse;
using engine::sql::parseCondition;
using engine::sql::print;

/// Every operation in parentheses, so that grouping shows.
std::string grouped(const engine::sql::Expr& e) {
  using engine::sql::ExprKind;
  const auto arg = [&](std::size_t i) { return grouped(*e.args[i]); };
  const std::string no = e.negated ? "NOT " : "";
  switch (e.kind) {
    case ExprKind::unary:
      return "(" + e.op + " " + arg(0) + ")";
    case ExprKind::binary:
      return "(" + arg(0) + " " + e.op + " " + arg(1) + ")";
    case ExprKind::like:
      return "(" + arg(0) + " " + no + "LIKE " + arg(1) + ")";
    case ExprKind::between:
      return "(" + arg(0) + " " + no + "BETWEEN " + arg(1) + " AND " + arg(2) + ")";
    case ExprKind::isNull:
      return "(" + arg(0) + " IS " + no + "NULL)";
    case ExprKind::name:
      return e.path.back();
    default: {
      engine::sql::Expr bare;
      bare.kind = e.kind;
      bare.value = e.value;
      bare.path = e.path;
      return e.args.empty() ? print(bare) : print(e);
    }
  }
}

TEST(Expressions, BindAsTightlyAsTheDialectSays) {
  const std::pair<const char*, const char*> cases[] = {
      {"a OR b AND c", "(a OR (b AND c))"},
      {"NOT a = b AND c", "((NOT (a = b)) AND c)"},
      {"NOT -a = b", "(NOT ((- a) = b))"},
      {"a AND NOT b OR c", "((a AND (NOT b)) OR c)"},
      {"a XOR b OR c", "(a XOR (b OR c))"},
      {"a IMP b EQV c XOR d", "(a IMP (b EQV (c XOR d)))"},
      {"a & b + c", "(a & (b + c))"},
      {"a = b & c", "(a = (b & c))"},
      {"a + b mod c \\ d * e ^ f", "(a + (b MOD (c \\ (d * (e ^ f)))))"},
      {"-a ^ b", "(- (a ^ b))"},
      {"-a * b", "((- a) * b)"},
      {"a ^ -b ^ c", "((a ^ (- b)) ^ c)"},
      {"a * -b ^ c", "(a * (- (b ^ c)))"},
      {"a - b - c", "((a - b) - c)"},
      {"a / b * c", "((a / b) * c)"},
      {"a Like [b] & '*' or c", "((a LIKE (b & '*')) OR c)"},
      {"a between b and c and d", "((a BETWEEN b AND c) AND d)"},
      {"a not between b + 1 and c or d", "((a NOT BETWEEN (b + 1) AND c) OR d)"},
      {"a is not null and not b is null", "((a IS NOT NULL) AND (NOT (b IS NULL)))"},
      {"a = b = c", "((a = b) = c)"},
      {"not not a", "(NOT (NOT a))"},
      {"(a or b) and c", "((a OR b) AND c)"},
  };
  for (const auto& [text, expected] : cases) EXPECT_EQ(grouped(*parseCondition(text)), expected) << text;
}

TEST(Expressions, ReadLiteralsOfEveryKind) {
  using base::DateTime;
  using base::Value;
  const std::pair<const char*, Value> cases[] = {
      {"12", 12},
      {"9223372036854775808", 9223372036854775808.0},
      {"1.5", 1.5},
      {".5", 0.5},
      {"5.", 5.0},
      {"1E3", 1000.0},
      {"'O''Neil \"x\"'", "O'Neil \"x\""},
      {"\"say \"\"x\"\" it's\"", "say \"x\" it's"},
      {"''", ""},
      {"null", Value()},
      {"Yes", true},
      {"FALSE", false},
      {"#03-04-05 06:07:08#", DateTime::of(2005, 3, 4, 6, 7, 8)},
      {"#12-31-49#", DateTime::of(2049, 12, 31)},
      {"#12/31/50#", DateTime::of(1950, 12, 31)},
      {"#2/29/2000#", DateTime::of(2000, 2, 29)},
      {"#2024-02-03 04:05#", DateTime::of(2024, 2, 3, 4, 5)},
      {"#1/2/2020 12:30:00 AM#", DateTime::of(2020, 1, 2, 0, 30)},
      {"#13:45#", DateTime::of(1899, 12, 30, 13, 45)},
  };
  for (const auto& [text, expected] : cases) EXPECT_EQ(parseCondition(text)->value, expected) << text;
  for (const char* wrong :
       {"#13-01-20#", "#02-30-20#", "#01-02#", "#01-02-20 25:00#", "#01-02-20", "#x#", "##"})
    EXPECT_THROW(parseCondition(wrong), base::Error) << wrong;
}

TEST(Names, MayBeWordsThatMeanSomethingElsewhere) {
  const auto statement = parse(
      "select [Object], Date, t.Order, t.[Left], Name as Select, left(Text, 3) as [two words], Code, URL, "
      "Objekt "
      "from Rating t, [Group by] where Top = 1 and Column > Index");
  const auto& items = statement.select->items;
  EXPECT_EQ(items[0].expr->path, std::vector<std::string>{"Object"});
  EXPECT_EQ(items[2].expr->path, (std::vector<std::string>{"t", "Order"}));
  EXPECT_EQ(items[3].expr->path, (std::vector<std::string>{"t", "Left"}));
  EXPECT_EQ(items[4].alias, "Select");
  EXPECT_EQ(items[5].expr->kind, engine::sql::ExprKind::call);
  EXPECT_EQ(items[5].alias, "two words");
  EXPECT_EQ(statement.select->from[0]->alias, "t");
  EXPECT_EQ(statement.select->from[1]->table, "Group by");
}

TEST(Selects, TakeAFileBehindEachFromClause) {
  const auto statement = parse(
      "SELECT DISTINCTROW a.*, b.x INTO made FROM a left JOIN b ON a.id = b.id IN 'C:/one''s.cvb' WHERE "
      "a.x='W'or 1=1 "
      "UNION ALL SELECT c.*, 1 FROM c IN \"two.cvb\" where c.id IN (select id from d in 'three.cvb')order by "
      "x desc;");
  const auto& select = *statement.select;
  EXPECT_EQ(select.into, "made");
  EXPECT_EQ(select.inFile, "C:/one's.cvb");
  EXPECT_EQ(select.distinct, engine::sql::Distinct::rows);
  EXPECT_EQ(select.from[0]->join, engine::sql::JoinKind::left);
  ASSERT_EQ(select.unions.size(), 1u);
  EXPECT_TRUE(select.unions[0].all);
  EXPECT_EQ(select.unions[0].select->inFile, "two.cvb");
  EXPECT_EQ(select.unions[0].select->where->select->inFile, "three.cvb");
  ASSERT_EQ(select.orderBy.size(), 1u);
  EXPECT_TRUE(select.orderBy[0].descending);
}

TEST(Selects, NameTextFilesWithTheirExtension) {
  EXPECT_EQ(parse("select * from words.txt").select->from[0]->table, "words.txt");
  EXPECT_EQ(parse("select * from 2023-my_words.csv;").select->from[0]->table, "2023-my_words.csv");
  EXPECT_EQ(parse("select * from [my words.txt] order by 1").select->from[0]->table, "my words.txt");
  EXPECT_EQ(parse("select x into words.txt from a").select->into, "words.txt");
}

TEST(Actions, KeepTheirParts) {
  const auto update =
      parse("UPDATE  a INNER JOIN b ON a.i=b.i SET a.x = b.y, [b].[y] = a.x where a.z is null");
  EXPECT_EQ(update.update->set[0].path, (std::vector<std::string>{"a", "x"}));
  EXPECT_EQ(update.update->set.size(), 2u);
  const auto remove = parse("DELETE DISTINCTROW a.* FROM b INNER JOIN a ON a.i=b.i;");
  EXPECT_EQ(remove.remove->ofTable, std::vector<std::string>{"a"});
  const auto values = parse("insert into X ( [a b], C ) VALUES ( -1, \"it\"\"s\")");
  EXPECT_EQ(values.insert->columns, (std::vector<std::string>{"a b", "C"}));
  const auto select = parse("INSERT INTO [F] ([id]) SELECT [id] FROM g IN 'x.cvb'");
  EXPECT_EQ(select.insert->select->inFile, "x.cvb");
  EXPECT_THROW(parse("insert into x (a, b) values (1)"), base::Error);
}

TEST(Definitions, KnowTheirTypes) {
  const auto table =
      parse("CREATE TABLE [T] ([id] COUNTER,[n] TEXT(50),m TEXT NOT NULL, o LONGTEXT,p bit, q DateTime)");
  const auto& columns = table.createTable->columns;
  EXPECT_EQ(columns[0].type, engine::ColumnType::counter);
  EXPECT_EQ(columns[1].size, 50);
  EXPECT_EQ(columns[2].size, 255);
  EXPECT_TRUE(columns[2].notNull);
  EXPECT_EQ(columns[3].type, engine::ColumnType::memo);
  EXPECT_EQ(columns[5].type, engine::ColumnType::date);
  const auto index = parse("CREATE UNIQUE INDEX [PrimaryKey] ON [Autor] ([ID_Autor]) WITH PRIMARY");
  EXPECT_TRUE(index.createIndex->unique && index.createIndex->primary);
  EXPECT_EQ(parse("alter table t drop column [x y]").alterTable->column.name, "x y");
  EXPECT_EQ(parse("ALTER TABLE t ADD COLUMN c SHORT;").alterTable->column.type,
            engine::ColumnType::shortInteger);
  EXPECT_THROW(parse("create table t (c TEXT(256))"), base::Error);
  EXPECT_THROW(parse("create table t (c TEXT(0))"), base::Error);
}

TEST(Parameters, AreDeclaredWithTheirTypes) {
  const auto statement =
      parse("PARAMETERS [s x] Text ( 50 ), lWortID Long;SELECT * from t where a = lwortid");
  ASSERT_EQ(statement.parameters.size(), 2u);
  EXPECT_EQ(statement.parameters[0].name, "s x");
  EXPECT_EQ(statement.parameters[0].type, "TEXT(50)");
  EXPECT_EQ(statement.parameters[1].type, "LONG");
}

}  // namespace
