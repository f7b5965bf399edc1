#include "engine/schema/schema.h"

#include <gtest/gtest.h>

namespace {

using engine::ColumnType;
using engine::schema::quoteName;
using engine::schema::Table;

TEST(Table, FindsColumnsWithoutRegardToCaseAndItsKey) {
  const Table table{
      "Übung",
      {{"Größe", ColumnType::real, 0, false, false}, {"ID", ColumnType::counter, 0, false, false}},
      {{"Größe", {"Größe"}, false, false}, {"PrimaryKey", {"ID"}, true, true}}};
  EXPECT_EQ(table.find("GRÖßE"), 0);
  EXPECT_EQ(table.find("id"), 1);
  EXPECT_EQ(table.find("id "), -1);
  EXPECT_EQ(table.counter(), 1);
  ASSERT_NE(table.primaryKey(), nullptr);
  EXPECT_EQ(table.primaryKey()->name, "PrimaryKey");
  EXPECT_EQ(Table{}.primaryKey(), nullptr);
  EXPECT_EQ(Table{}.counter(), -1);
}

TEST(QuoteName, LeavesNoWayOutOfTheQuotes) {
  EXPECT_EQ(quoteName("a b"), "\"a b\"");
  EXPECT_EQ(quoteName("a\"; DROP TABLE b; --"), "\"a\"\"; DROP TABLE b; --\"");
  EXPECT_EQ(quoteName(""), "\"\"");
}

}  // namespace
