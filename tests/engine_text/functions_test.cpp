#include "engine/text/functions.h"

#include <gtest/gtest.h>
#include <sqlite3.h>

#include "engine/text/collation.h"

namespace {

// One expression through SQLite: its text, "NULL", or the error it ends in.
class Functions : public testing::Test {
 protected:
  void SetUp() override {
    ASSERT_EQ(sqlite3_open(":memory:", &connection_), SQLITE_OK);
    engine::text::registerText(connection_);
  }
  void TearDown() override { sqlite3_close(connection_); }

  std::string query(const std::string& sql) {
    sqlite3_stmt* statement = nullptr;
    std::string result;
    if (sqlite3_prepare_v2(connection_, sql.c_str(), -1, &statement, nullptr) != SQLITE_OK)
      return sqlite3_errmsg(connection_);
    while (sqlite3_step(statement) == SQLITE_ROW) {
      if (!result.empty()) result += "|";
      const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement, 0));
      result += text == nullptr ? "NULL" : text;
    }
    const int code = sqlite3_finalize(statement);
    if (code == SQLITE_OK) return result;
    const auto error = engine::text::errorOf(sqlite3_errmsg(connection_));
    return error ? "error " + std::to_string(error->number()) : sqlite3_errmsg(connection_);
  }
  std::string value(const std::string& expression) { return query("select " + expression); }
  void expect(std::initializer_list<std::pair<const char*, const char*>> cases) {
    for (const auto& [expression, wanted] : cases) EXPECT_EQ(value(expression), wanted) << expression;
  }

  sqlite3* connection_ = nullptr;
};

TEST_F(Functions, CutAndSearchTextByCharacters) {
  expect({{"vc_len('Größe')", "5"},
          {"vc_len(1234)", "4"},
          {"vc_len(null)", "NULL"},
          {"vc_left('Größe', 3)", "Grö"},
          {"vc_left('Größe', -1)", "error 5"},
          {"vc_right('Größe', 2)", "ße"},
          {"vc_mid('Größe', 3)", "öße"},
          {"vc_mid('Größe', 3, 1)", "ö"},
          {"vc_mid('Größe', 0)", "error 5"},
          {"vc_ucase('straße')", "STRAßE"},
          {"vc_trim('  a ')||vc_ltrim('  b ')||vc_rtrim(' c  ')", "ab  c"},
          {"vc_instr('Äpfel', 'PF')", "2"},
          {"vc_instr(3, 'abcabc', 'A')", "4"},
          {"vc_instr(1, 'abc', 'B', 0)", "0"},
          {"vc_instr('abc', null)", "NULL"},
          {"vc_instrrev('äbcäbc', 'Ä')", "4"},
          {"vc_instrrev('abcabc', 'a', 3)", "1"},
          {"vc_replace('Äpfel und äpfel', 'ÄPFEL', 'Birnen')", "Birnen und Birnen"},
          {"vc_replace('aAa', 'a', 'x', 1, -1, 0)", "xAx"},
          {"vc_replace('aaaa', 'a', 'b', 2, 2)", "bba"},
          {"vc_replace('ıx', 'X', 'y')", "ıy"},
          {"vc_chr(65)||vc_chr(228)||vc_chr(128)", "Aä€"},
          {"vc_asc('€')", "128"},
          {"vc_ascw('€')", "8364"},
          {"vc_asc('')", "error 5"},
          {"vc_string(3, 'äb')", "äää"},
          {"vc_strcomp('a', 'A')", "0"},
          {"vc_strcomp('a', 'A', 0)", "1"},
          {"vc_len()", "error 5"}});
}

TEST_F(Functions, ConvertNumbersAndTypes) {
  expect({{"vc_abs(-3)", "3"},
          {"vc_int(-2.5)", "-3"},
          {"vc_fix(-2.5)", "-2"},
          {"vc_round(2.5)", "2"},
          {"vc_round(2.345, 1)", "2.3"},
          {"vc_val(' 1 2abc')", "12"},
          {"vc_val('abc')", "0"},
          {"vc_str(5)", " 5"},
          {"vc_str(-5)", "-5"},
          {"vc_cstr(1.5)", "1.5"},
          {"vc_cstr(null)", "error 94"},
          {"vc_clng('12')", "12"},
          {"vc_clng('x')", "error 13"},
          {"vc_clng(null)", "error 94"},
          {"vc_clng(3000000000)", "error 6"},
          {"vc_cbool('3')", "-1"},
          {"vc_isnull(null)", "-1"},
          {"vc_isnull('')", "0"},
          {"vc_nz(null)", ""},
          {"vc_nz(null, 7)", "7"},
          {"vc_nz('a', 7)", "a"},
          {"vc_iif(null, 1, 2)", "2"},
          {"vc_iif(1=1, 1, 2)", "1"},
          {"vc_isnumeric('1e3')", "-1"},
          {"vc_isnumeric('1x')", "0"},
          {"vc_choose(2, 'a', 'b')", "b"}});
}

TEST_F(Functions, ReadDatesDayFirstAndKeepNull) {
  expect({{"vc_datevalue('3.4.2021 12:30:00')", "2021-04-03 00:00:00"},
          {"vc_cdate('3.4.21 7:08')", "2021-04-03 07:08:00"},
          {"vc_cdate('2021-04-03 01:02:03')", "2021-04-03 01:02:03"},
          {"vc_cdate(null)", "NULL"},
          {"vc_datevalue(null)", "NULL"},
          {"vc_datevalue('')", "error 13"},
          {"vc_datevalue('31.4.2021')", "error 13"},
          {"vc_cdate('7:08')", "1899-12-30 07:08:00"},
          {"vc_year('3.4.2021')||vc_month('3.4.2021')||vc_day('3.4.2021')", "202143"},
          {"vc_weekday('4.4.2021')", "1"},
          {"vc_weekday('4.4.2021', 2)", "7"},
          {"vc_dateserial(2021, 14, 0)", "2022-01-31 00:00:00"},
          {"vc_dateadd('m', 1, '31.1.2021 5:00')", "2021-02-28 05:00:00"},
          {"vc_dateadd('yyyy', 9000, '31.1.2021')", "error 5"},
          {"vc_datediff('d', '31.12.2020', '1.3.2021')", "60"},
          {"vc_datediff('ww', '3.4.2021', '4.4.2021')", "1"},
          {"vc_datepart('ww', '1.1.2021')", "1"},
          {"vc_isdate('30.2.2021')", "0"},
          {"vc_format('2024-03-05 07:08:09', 'yyyy.mm.dd hh:mm:ss')", "2024.03.05 07:08:09"},
          {"vc_format('kein Datum', 'yyyy')", "kein Datum"},
          {"vc_format(null, 'yyyy')", ""},
          {"vc_format(5, '000')", "005"},
          {"vc_format(1234567.345, '#,##0.00')", "1,234,567.35"},
          {"vc_format(0.5, '0%')", "50%"},
          {"vc_format(-0.25, '#.##')", "-.25"},
          {"vc_format(12, '0.##')", "12."},
          {"vc_cdbl('2021-04-03 12:00:00')", "44289.5"},
          {"vc_int('2021-04-03 12:00:00')", "44289"},
          {"vc_clng('2021-04-03 00:00:00')", "44289"},
          {"vc_now() >= vc_date()", "1"}});
}

TEST_F(Functions, OperatorsTreatNullAndTypesAsTheDialect) {
  expect({{"vc_concat('a', null, 1)", "a1"},
          {"vc_plus('a', null)", "NULL"},
          {"vc_plus('1', '2')", "12"},
          {"vc_plus('1', 2)", "3"},
          {"vc_plus('a', 2)", "error 13"},
          {"vc_plus('2021-04-03 00:00:00', 1.5)", "2021-04-04 12:00:00"},
          {"vc_minus('2021-04-03 12:00:00', '2021-04-01 00:00:00')", "2.5"},
          {"vc_minus('2021-04-03 12:00:00', 1)", "2021-04-02 12:00:00"},
          {"vc_plus(9007199254740993, 1)", "9007199254740994"},
          {"vc_div(7, 2)", "3.5"},
          {"vc_div(6, 2)", "3"},
          {"vc_div(1, 0)", "error 11"},
          {"vc_idiv(7.6, 2)", "4"},
          {"vc_idiv(-9223372036854775807 - 1, -1)", "9.22337203685478e+18"},
          {"vc_mod(-7, 3)", "-1"},
          {"vc_mod(1, 0)", "error 11"},
          {"vc_pow(2, 10)", "1024"},
          {"vc_like('Haus', 'h*', 'vc_0407')", "1"},
          {"vc_like(152, '1?2')", "1"},
          {"vc_like2('Haus', 'h_us')", "1"},
          {"vc_like(null, '*')", "NULL"},
          {"vc_like('a', null)", "NULL"},
          {"vc_like('a', '[')", "error 5"}});
}

TEST_F(Functions, CollationsAndAggregatesWorkInStatements) {
  query("create table t (id integer primary key, w text collate vc_0405, p text)");
  query("insert into t (w, p) values ('hora', 'h*'), ('chleba', 'x*'), ('cukr', 'CU*'), (null, '*')");
  EXPECT_EQ(query("select w from t where w is not null order by w"), "cukr|hora|chleba");
  EXPECT_EQ(query("select id from t where w = 'HORA'"), "1");
  EXPECT_EQ(query("select vc_first(w) from (select w from t order by id)"), "hora");
  EXPECT_EQ(query("select vc_last(w) from (select w from t order by id)"), "NULL");
  EXPECT_EQ(query("select vc_first(w) from t where id > 99"), "NULL");
  EXPECT_EQ(query("select w from t where vc_like(w, p, 'vc_0405')"), "hora|cukr");
  EXPECT_NE(query("select w from t order by w collate vc_03ff").find("no such collation"), std::string::npos);
}

TEST(FunctionErrors, AreToldFromThoseOfTheStorage) {
  const auto error = engine::text::errorOf("VC13:\"x\" is no number.");
  ASSERT_TRUE(error);
  EXPECT_EQ(error->number(), 13);
  EXPECT_EQ(error->text(), "\"x\" is no number.");
  EXPECT_FALSE(engine::text::errorOf("no such column: VC"));
  EXPECT_FALSE(engine::text::errorOf("VCx:y"));
}

}  // namespace
