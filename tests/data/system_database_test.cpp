// The system database that the build made, against the tables it was made of.
#include <gtest/gtest.h>
#include <unicode/ucnv.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <map>
#include <string>
#include <vector>

#include "catalogue.h"
#include "engine/workspace.h"
#include "tsv.h"

namespace {

const std::string data = std::string(VOCARIUM_SOURCE_DIR) + "/data";
const std::string share = std::string(VOCARIUM_BINARY_DIR) + "/share";

engine::Login login(const std::string& password = "LarksMoor") {
  return {"Corvanta", "CorvantaAdmin", password, share + "/Sys.mda"};
}

class SystemDatabase : public testing::Test {
 protected:
  engine::Recordset rows(const std::string& source) { return db.OpenRecordset(source); }
  std::vector<std::string> column(const std::string& statement) {
    std::vector<std::string> values;
    for (auto set = rows(statement); !set.EndOfFile(); set.MoveNext())
      values.push_back(set.value(0).textOrEmpty());
    return values;
  }
  engine::Workspace workspace{login()};
  engine::Database db = workspace.OpenDatabase(share + "/corvasys.cvb", false, true);
};

std::vector<std::string> fileColumn(const std::string& file, const std::string& name) {
  const tsv::Table table = tsv::read(data + "/reference/" + file + ".tsv");
  const auto at = static_cast<std::size_t>(std::find(table.columns.begin(), table.columns.end(), name) -
                                           table.columns.begin());
  std::vector<std::string> values;
  for (const tsv::Row& row : table.rows) values.push_back(row.fields.at(at));
  return values;
}

TEST_F(SystemDatabase, TextsStandAtTheirPositionsInBothLanguages) {
  for (const catalogue::Kind& kind : catalogue::kinds) {
    const auto texts = catalogue::read(data + "/catalogue", kind.name);
    std::vector<std::string> german, english;
    for (const auto& text : texts) {
      german.push_back(text.german);
      english.push_back(text.english);
    }
    const std::string table = kind.table;
    EXPECT_EQ(column("SELECT " + std::string(kind.bilingual ? "BeschriftungDtsch" : "DrucktextDtsch") +
                     " FROM " + table + " ORDER BY " + table + ".ID;"),
              german);
    if (kind.bilingual) {
      EXPECT_EQ(column("SELECT BeschriftungEngl FROM " + table + " ORDER BY " + table + ".ID;"), english);
    }
  }
}

TEST_F(SystemDatabase, ReferenceTablesHoldTheirRowsInOrder) {
  struct Source {
    const char *table, *field, *file, *column;
  };
  for (const Source& s : {Source{"Standardsprachen", "Sprache", "languages", "German"},
                          {"Standardsprachen", "Flagge", "languages", "flag"},
                          {"StandardsprachenEnglisch", "Sprache", "languages", "English"},
                          {"StandardKodierungen", "Code", "encodings", "code"},
                          {"StandardKodierungen", "Codebeschreibung", "encodings", "description"},
                          {"WKategorie", "Kategorie", "properties", "German"},
                          {"WKategorie", "Abkuerzung", "properties", "German abbreviation"},
                          {"WKategorieEnglisch", "Kategorie", "properties", "English"},
                          {"WSachgebiet", "Sachgebiet", "subjects", "German"},
                          {"WSachgebietEnglisch", "Abkuerzung", "subjects", "English abbreviation"},
                          {"Standardreports", "Eigenschaftswert", "report_attributes", "Eigenschaftswert"},
                          {"Lautschriften", "LautschriftZeichenArialUnicode", "phonetic_characters",
                           "LautschriftZeichenArialUnicode"},
                          {"Autor", "AutorWebURL", "author", "AutorWebURL"}})
    EXPECT_EQ(column(std::string("select ") + s.field + " from " + s.table), fileColumn(s.file, s.column))
        << s.table << "." << s.field;
  EXPECT_TRUE(rows("Sprachen").EndOfFile());
}

// Names are found by their text in a dictionary, so that each may stand there only once, in any case of
// letters.
TEST_F(SystemDatabase, CatalogueNamesAreUnique) {
  for (const char* source : {"WKategorie", "WKategorieEnglisch", "WSachgebiet", "WSachgebietEnglisch"}) {
    const std::string field = std::string(source).starts_with("WK") ? "Kategorie" : "Sachgebiet";
    EXPECT_EQ(column("select " + field + " from " + source + " group by " + field + " having count(*) > 1"),
              std::vector<std::string>{});
  }
}

TEST_F(SystemDatabase, EveryEncodingIsOneThatTextCanBeWrittenIn) {
  for (const std::string& code : fileColumn("encodings", "code")) {
    UErrorCode status = U_ZERO_ERROR;
    UConverter* converter = ucnv_open(code.c_str(), &status);
    EXPECT_TRUE(U_SUCCESS(status)) << code;
    ucnv_close(converter);
  }
}

// Walks the days by a plain loop that knows nothing of the way the table was made.
TEST_F(SystemDatabase, TheCalendarCountsEveryDay) {
  auto day = rows("select * from WZeit order by date_key");
  auto date = base::DateTime::of(1990, 1, 1);  // a Monday
  int weekday = 1, isoWeek = 1, dayOfYear = 1, weekOfMonth = 1;
  std::int64_t count = 0;
  for (; !day.EndOfFile(); day.MoveNext(), ++count) {
    ASSERT_EQ(day["full_date"].asDate(), date) << date.iso();
    ASSERT_EQ(day["date_key"].asInteger(), date.year() * 10000 + date.month() * 100 + date.day());
    ASSERT_EQ(day["day_num_of_week"].asInteger(), weekday) << date.iso();
    ASSERT_EQ(day["day_num_of_year"].asInteger(), dayOfYear) << date.iso();
    ASSERT_EQ(day["week_num_of_year"].asInteger(), isoWeek) << date.iso();
    ASSERT_EQ(day["week_num_of_month"].asInteger(), weekOfMonth) << date.iso();
    ASSERT_EQ(day["quarter_num_of_year"].asInteger(), (date.month() + 2) / 3);
    ASSERT_EQ(day["month_begin_date"].asDate(), base::DateTime::of(date.year(), date.month(), 1));
    ASSERT_EQ(day["month_end_date"].asDate().plusDays(1).day(), 1);
    ASSERT_EQ(day["quarter_end_date"].asDate().plusDays(1).month() % 3, 1);
    const auto next = date.plusDays(1);
    dayOfYear = next.year() == date.year() ? dayOfYear + 1 : 1;
    weekday = weekday % 7 + 1;
    if (next.month() != date.month())
      weekOfMonth = 1;
    else if (weekday == 1)
      ++weekOfMonth;
    if (weekday == 1) {
      // The week that begins on this Monday is the first when its Thursday lies in the year's first seven
      // days.
      const auto thursday = next.plusDays(3);
      isoWeek = thursday.month() == 1 && thursday.day() <= 7 ? 1 : isoWeek + 1;
    }
    date = next;
  }
  EXPECT_EQ(date, base::DateTime::of(2061, 1, 1));
  EXPECT_EQ(count, 25933);
  EXPECT_EQ(column("select day_of_week_name from WZeit where date_key = 20240229"),
            std::vector<std::string>{"Donnerstag"});
  EXPECT_EQ(column("select month_name_abbreviation from WZeit where date_key = 20240301"),
            std::vector<std::string>{"Mär"});
}

TEST(SystemDatabaseFiles, OpenWithTheirOwnCredentialAlone) {
  EXPECT_THROW(engine::Workspace{login("wrong")}, base::Error);
  std::ifstream in(share + "/corvasys.cvb", std::ios::binary);
  const std::string bytes((std::istreambuf_iterator<char>(in)), {});
  EXPECT_EQ(bytes.find("Donnerstag"), std::string::npos);
  EXPECT_EQ(bytes.find("Standardsprachen"), std::string::npos);
}

TEST(SupportFiles, StandBesideTheSystemDatabase) {
  for (const char* name : {"Stylesheets/vocarium1.css", "Stylesheets/xmlvocarium1.css", "Images/VC_logo.jpg",
                           "Images/Rating.gif", "Images/neu.gif"})
    EXPECT_TRUE(std::filesystem::exists(share + "/" + name)) << name;
}

}  // namespace
