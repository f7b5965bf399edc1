#include "dictionary.h"

namespace engine::storage {
namespace {

using WriterTest = DictionaryTest;

enum Field { id, begriff, ebene, unterbegriff, bemerkung, stamp, mass };

TEST_F(WriterTest, CoercesEachTypeAndKeepsWhatItWroteOverAReopening) {
  const auto row = insert("Woerterbuch", {{begriff, Value(12)},
                                          {ebene, Value("2")},
                                          {unterbegriff, Value("-1")},
                                          {bemerkung, Value("")},
                                          {stamp, Value("3.4.2021 5:06")},
                                          {mass, Value("1.5")}});
  const auto bare = insert("Woerterbuch", {});
  reopen();
  Statement read(connection->handle(), "SELECT * FROM d1.Woerterbuch ORDER BY 1");
  ASSERT_TRUE(read.step());
  EXPECT_EQ(read.integer(id), row);
  EXPECT_EQ(read.value(begriff, ColumnType::text), Value("12"));
  EXPECT_EQ(read.value(ebene, ColumnType::shortInteger), Value(2));
  EXPECT_EQ(read.value(unterbegriff, ColumnType::bit), Value(true));
  EXPECT_EQ(read.integer(unterbegriff), -1);
  EXPECT_EQ(read.value(bemerkung, ColumnType::memo), Value(""));
  EXPECT_EQ(read.value(stamp, ColumnType::date), Value(base::DateTime::of(2021, 4, 3, 5, 6)));
  EXPECT_EQ(read.text(stamp), "2021-04-03 05:06:00");
  EXPECT_EQ(read.value(mass, ColumnType::real), Value(1.5));
  ASSERT_TRUE(read.step());
  EXPECT_EQ(read.integer(id), bare);
  EXPECT_EQ(read.value(unterbegriff, ColumnType::bit), Value(false)) << "a truth is never Null";
  for (const int field : {begriff, ebene, bemerkung, stamp, mass}) EXPECT_TRUE(read.isNull(field)) << field;
}

TEST_F(WriterTest, RefusesWhatAColumnCanNotHoldAndLeavesNothingBehind) {
  const std::string long20 = "äöüäöüäöüäöüäöüäöüäö", long21 = long20 + "x";
  insert("Woerterbuch", {{id, Value(7)}, {begriff, Value(long20)}});
  const std::pair<RowValues, int> refused[] = {
      {{{begriff, Value(long21)}}, errors::tooLong},
      {{{begriff, Value("")}}, errors::zeroLength},
      {{{ebene, Value(32768)}}, errors::overflow},
      {{{ebene, Value("zwei")}}, errors::typeMismatch},
      {{{id, Value(std::int64_t{1} << 31)}}, errors::overflow},
      {{{stamp, Value("morgen")}}, errors::typeMismatch},
      {{{id, Value(7)}}, errors::duplicateKey},
  };
  for (const auto& [values, error] : refused) {
    EXPECT_EQ(errorOf([&] { insert("Woerterbuch", values); }), error);
    EXPECT_EQ(errorOf([&] {
                if (error != errors::duplicateKey) {
                  TableWriter(*file, file->existingTable("Woerterbuch")).update(7, values);
                } else {
                  throw Error(error, "only an insertion repeats the key");
                }
              }),
              error);
  }
  EXPECT_EQ(errorOf([&] { insert("Wortbedeutung", {{1, Value(99)}}); }), errors::relatedRowRequired);
  EXPECT_EQ(count("Woerterbuch"), 1);
  EXPECT_EQ(count("Wortbedeutung"), 0);
  file->setAllowZeroLength("woerterbuch", "begriff", true);
  insert("Woerterbuch", {{begriff, Value("")}});
  TableWriter writer(*file, file->existingTable("Woerterbuch"));
  EXPECT_EQ(errorOf([&] { writer.update(1234, {{begriff, Value("x")}}); }), errors::recordDeleted);
  EXPECT_EQ(errorOf([&] { writer.erase(1234); }), errors::recordDeleted);
}

TEST_F(WriterTest, CountersAreNeverUsedTwiceAndTakeExplicitValues) {
  const auto& table = file->existingTable("Woerterbuch");
  EXPECT_EQ(TableWriter(*file, table).takeCounter(), 1) << "reserved, then given up";
  const auto last = insert("Woerterbuch", {{begriff, Value("a")}});
  EXPECT_EQ(last, 2);
  TableWriter(*file, table).erase(last);
  reopen();
  EXPECT_EQ(insert("Woerterbuch", {{begriff, Value("b")}}), 3);
  EXPECT_EQ(insert("Woerterbuch", {{id, Value(100)}}), 100);
  EXPECT_EQ(insert("Woerterbuch", {}), 101);
  EXPECT_EQ(insert("Woerterbuch", {{id, Value(50)}}), 50);
  TableWriter writer(*file, file->existingTable("Woerterbuch"));
  const auto taken = writer.takeCounter();
  EXPECT_EQ(taken, 102);
  EXPECT_EQ(insert("Woerterbuch", {}), 103);
  EXPECT_EQ(writer.insert({{id, Value(taken)}}), taken);
}

TEST_F(WriterTest, KeysTakeNoNullAndNoSecondRow) {
  file->createTable({"Vokabeltraining",
                     {{"Begriff", ColumnType::text, 250, false, false},
                      {"Wortbedeutung", ColumnType::text, 250, false, false},
                      {"Richtig", ColumnType::longInteger, 0, true, false}},
                     {{"PrimaryKey", {"Begriff", "Wortbedeutung"}, true, true}}});
  insert("Vokabeltraining", {{0, Value("Haus")}, {1, Value("house")}, {2, Value(1)}});
  const auto error = [&](const RowValues& values) {
    return errorOf([&] { insert("Vokabeltraining", values); });
  };
  EXPECT_EQ(error({{0, Value("HAUS")}, {1, Value("House")}, {2, Value(1)}}), errors::duplicateKey);
  EXPECT_EQ(error({{0, Value("Haus")}, {1, Value("home")}, {2, Value(1)}}), 0);
  EXPECT_EQ(error({{0, Value("Haus")}, {2, Value(1)}}), errors::keyIsNull);
  EXPECT_EQ(error({{0, Value("Maus")}, {1, Value("mouse")}}), errors::nullRefused);
  EXPECT_EQ(count("Vokabeltraining"), 2);
}

TEST_F(WriterTest, DeletionsAndNewKeysRunThroughTheWholeChain) {
  for (int entry = 1; entry <= 3; ++entry) {
    insert("Woerterbuch", {{id, Value(entry)}});
    for (int meaning = 0; meaning < 2; ++meaning) {
      const auto key = insert("Wortbedeutung", {{1, Value(entry)}});
      insert("WortBedBsp", {{0, Value(key)}, {1, Value("Beispiel")}});
    }
  }
  insert("WortBedBsp", {{1, Value("ohne Bedeutung")}});
  TableWriter writer(*file, file->existingTable("Woerterbuch"));
  writer.erase(2);
  EXPECT_EQ(count("Wortbedeutung"), 4);
  EXPECT_EQ(count("WortBedBsp"), 5);
  writer.update(3, {{id, Value(30)}});
  EXPECT_EQ(count("Wortbedeutung", "ID_Woerterbuch = 30"), 2);
}

TEST_F(WriterTest, ARelationWithoutCascadeKeepsItsParentRow) {
  file->createTable({"Kind", {{"ID_Woerterbuch", ColumnType::longInteger, 0, false, false}}, {}});
  file->appendRelation({"K", "Woerterbuch", "Kind", "ID_Woerterbuch", "ID_Woerterbuch", 0});
  insert("Woerterbuch", {{id, Value(1)}});
  insert("Kind", {{0, Value(1)}});
  TableWriter writer(*file, file->existingTable("Woerterbuch"));
  EXPECT_EQ(errorOf([&] { writer.erase(1); }), 3200);
  EXPECT_EQ(count("Woerterbuch"), 1);
}

}  // namespace
}  // namespace engine::storage
