#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>

#include "base/text.h"
#include "filled_dictionary.h"

namespace test {

inline std::string text(std::int64_t number) {
  return std::to_string(number);
}

/// One filled dictionary for all tests of a suite; they only read it.
class QueriesTest : public ::testing::Test {
 protected:
  static void SetUpTestSuite() {
    shared_ = std::make_unique<Shared>();
    shared_->db = createEmpty(shared_->workspace, shared_->folder / "filled.cvb");
    shared_->data = makeFilling(7, shared_->folder / "filled.cvb");
    fill(shared_->db, shared_->data);
    shared_->workspace.Idle();
  }
  static void TearDownTestSuite() { shared_.reset(); }

  static engine::Database& db() { return shared_->db; }
  static const Filling& data() { return shared_->data; }

  static std::vector<std::string> rows(const std::string& query, const std::vector<std::string>& fields,
                                       const engine::Parameters& parameters = {}) {
    return rowsOf(db().OpenRecordset(query, engine::RecordsetKind::dynaset, parameters), fields);
  }

  /// The query gives these rows and no others, in whatever order.
  static void expectRows(const std::string& query, const std::vector<std::string>& fields,
                         std::vector<std::string> expected, const engine::Parameters& parameters = {}) {
    SCOPED_TRACE(query);
    try {
      std::vector<std::string> found = rows(query, fields, parameters);
      std::sort(found.begin(), found.end());
      std::sort(expected.begin(), expected.end());
      EXPECT_EQ(found, expected);
    } catch (const engine::Error& error) {
      ADD_FAILURE() << error.number() << " " << error.text();
    }
  }

  /// The field never gets smaller from row to row (or greater, if descending).
  static void expectOrder(const std::string& query, const std::string& field, bool descending = false,
                          const engine::Parameters& parameters = {}) {
    SCOPED_TRACE(query);
    try {
      std::vector<std::string> found = rows(query, {field}, parameters);
      for (std::string& text : found) text = base::lower(text);
      if (descending) std::reverse(found.begin(), found.end());
      EXPECT_TRUE(std::is_sorted(found.begin(), found.end())) << ::testing::PrintToString(found);
      EXPECT_FALSE(found.empty());
    } catch (const engine::Error& error) {
      ADD_FAILURE() << error.number() << " " << error.text();
    }
  }

  static bool startsWith(const std::string& text, const std::string& letter) {
    return base::equalsIgnoreCase(base::left(text, base::length(letter)), letter);
  }

 private:
  struct Shared {
    TempDir folder;
    engine::Workspace workspace{testLogin()};
    engine::Database db;
    Filling data;
  };
  static inline std::unique_ptr<Shared> shared_;
};

}  // namespace test
