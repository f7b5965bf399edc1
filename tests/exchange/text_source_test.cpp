#include "exchange/text_source.h"

#include <gtest/gtest.h>

#include "base/error.h"
#include "base/text.h"
#include "support/temp_dir.h"

namespace {

using exchange::TextLayout;
using exchange::TextSource;
using Rows = std::vector<TextSource::Row>;

Rows allRows(TextSource& source) {
  Rows rows;
  for (TextSource::Row row; source.next(row);) rows.push_back(row);
  return rows;
}

Rows readRows(const std::string& bytes, const TextLayout& layout = {}) {
  const test::TempDir folder;
  TextSource source(folder.write("words.txt", bytes), layout);
  return allRows(source);
}

int failure(const std::string& bytes, const TextLayout& layout = {}) {
  try {
    readRows(bytes, layout);
  } catch (const base::Error& error) {
    EXPECT_FALSE(error.text().empty());
    return error.number();
  }
  return 0;
}

TEST(TextSource, readsQuotedFieldsWithSeparatorsQuotesAndLineBreaks) {
  const Rows rows =
      readRows("word;meaning\r\n\"a;b\";\"say \"\"yes\"\"\"\r\n\"two\r\nlines\";plain \"middle\" quote\r\n");
  ASSERT_EQ(rows.size(), 2u);
  EXPECT_EQ(rows[0], (TextSource::Row{"a;b", "say \"yes\""}));
  EXPECT_EQ(rows[1], (TextSource::Row{"two\r\nlines", "plain \"middle\" quote"}));
}

TEST(TextSource, tellsNullFromEmptyAndFillsShortRows) {
  const Rows rows = readRows("a;b;c\n1;;\"\"\n2\n\n\n;;3\n");
  ASSERT_EQ(rows.size(), 3u) << "empty lines are no rows";
  EXPECT_EQ(rows[0], (TextSource::Row{"1", std::nullopt, ""}));
  EXPECT_EQ(rows[1], (TextSource::Row{"2", std::nullopt, std::nullopt}));
  EXPECT_EQ(rows[2], (TextSource::Row{std::nullopt, std::nullopt, "3"}));
}

TEST(TextSource, namesColumnsByHeaderOrByPlace) {
  const test::TempDir folder;
  const std::string path = folder.write("words.txt", "Wort;Übersetzung\nHaus;house");
  TextSource named(path, {});
  EXPECT_EQ(named.find("ÜBERSETZUNG"), 1u);
  EXPECT_EQ(named.find("2"), 1u);
  EXPECT_FALSE(named.find("3").has_value());
  EXPECT_EQ(named.rowCount(), 1);
  TextLayout bare;
  bare.header = false;
  TextSource numbered(path, bare);
  EXPECT_EQ(numbered.find("f1"), 0u);
  EXPECT_EQ(numbered.rowCount(), 2);
}

TEST(TextSource, readsCharacterSetsAndByteOrderMarks) {
  TextLayout ansi;
  ansi.characterSet = "ANSI";
  EXPECT_EQ(readRows("w\nM\xFC"
                     "ller\n",
                     ansi)[0][0],
            "Müller");
  TextLayout oem;
  oem.characterSet = "OEM";
  EXPECT_EQ(readRows("w\nM\x81ller\n", oem)[0][0], "Müller");
  EXPECT_EQ(readRows("\xEF\xBB\xBFw\nMüller\n", ansi)[0][0], "Müller") << "the mark decides, not the setting";
  EXPECT_EQ(readRows("\xFF\xFE" + base::fromUtf8("w\nMüller\n", "UTF-16LE"))[0][0], "Müller");
  EXPECT_EQ(readRows("\xFE\xFF" + base::fromUtf8("w\nMüller\n", "UTF-16BE"))[0][0], "Müller");
}

TEST(TextSource, refusesWhatItCanNotReadBeforeAnyRowIsTaken) {
  EXPECT_EQ(failure("w\nok\nM\xFCller\n"), 3274) << "no UTF-8";
  EXPECT_EQ(failure(std::string("w\na\0b\n", 6)), 3274) << "a NUL character";
  EXPECT_EQ(failure("a;b\n1;2\n1;2;3\n"), 3274) << "more fields than columns";
  EXPECT_EQ(failure("a\n\"never ends\n"), 3274);
  TextLayout unknown;
  unknown.characterSet = "no-such-set";
  EXPECT_EQ(failure("a\nb\n", unknown), 5);
  EXPECT_THROW(TextSource("/nowhere/words.txt", {}), base::Error);
  EXPECT_THROW(TextSource("/tmp", {}), base::Error);
  try {
    readRows("w\nok\nM\xFCller\n");
  } catch (const base::Error& error) {
    EXPECT_NE(error.text().find("Line 3"), std::string::npos) << error.text();
  }
}

TEST(TextSource, emptyFilesHaveNoRows) {
  EXPECT_TRUE(readRows("").empty());
  EXPECT_TRUE(readRows("\r\n\r\n").empty());
  EXPECT_TRUE(readRows("only;a;header\r\n").empty());
}

TEST(TextSchema, describesTheFileAndIsReadBackTheSame) {
  for (const TextLayout& layout :
       {TextLayout{true, ";", ".", "UTF-8"}, TextLayout{false, "", ",", "ANSI"},
        TextLayout{true, ",", ".", "OEM"}, TextLayout{true, "|", ".", "Unicode"}}) {
    const test::TempDir folder;
    const std::string path = folder.write("Meine Wörter.txt", "a\n");
    exchange::MakeSchema(path, layout);
    const TextLayout read = exchange::readSchema(path);
    EXPECT_EQ(read.header, layout.header);
    EXPECT_EQ(read.separator, layout.separator);
    EXPECT_EQ(read.decimalSymbol, layout.decimalSymbol);
    EXPECT_EQ(read.characterSet, layout.characterSet);
  }
}

TEST(TextSchema, writesItsLinesExactly) {
  const test::TempDir folder;
  const std::string path = folder.write("words.txt", "a\n");
  exchange::MakeSchema(path, {});
  EXPECT_EQ(test::TempDir::read(folder / "schema.ini"),
            "[words.txt]\r\nColNameHeader = True\r\nFormat=Delimited(;)\r\nMaxScanRows = 0\r\nCharacterSet = "
            "65001\r\n"
            "DecimalSymbol=.\r\n");
  exchange::MakeSchema(path, {false, "", ".", "OEM"});
  const std::string other = test::TempDir::read(folder / "schema.ini");
  EXPECT_NE(other.find("ColNameHeader = False\r\nFormat=TabDelimited\r\n"), std::string::npos);
  EXPECT_NE(other.find("CharacterSet = OEM\r\n"), std::string::npos);
}

TEST(TextSchema, refusesWhatItDoesNotUnderstand) {
  const test::TempDir folder;
  const std::string path = folder.write("words.txt", "a\n");
  EXPECT_THROW(exchange::readSchema(path), base::Error);
  folder.write("schema.ini", "[other.txt]\nFormat=CSVDelimited\n");
  EXPECT_THROW(exchange::readSchema(path), base::Error);
  folder.write("schema.ini", "[WORDS.TXT]\nFormat=FixedLength\n");
  EXPECT_THROW(exchange::readSchema(path), base::Error);
}

}  // namespace
