#include "support/corpus.h"

#include <gtest/gtest.h>

#include "base/text.h"
#include "engine/sql/parser.h"
#include "engine/sql/printer.h"

namespace {

using engine::sql::parse;
using engine::sql::print;
using engine::sql::Statement;

/// Criteria are tried as the condition of a select, so that they print and compare like all else.
std::string asStatement(const test::CorpusRow& row) {
  return row.kind == "find" ? "select * from t where " + row.statement : row.statement;
}

TEST(Corpus, PrintsToTextThatGivesTheSameTree) {
  std::size_t statements = 0;
  for (const std::string& file : test::corpusFiles()) {
    for (const test::CorpusRow& row : test::corpus(file)) {
      SCOPED_TRACE(row.name());
      ++statements;
      try {
        const Statement tree = parse(asStatement(row));
        const std::string printed = print(tree);
        const Statement again = parse(printed);
        EXPECT_TRUE(same(tree, again)) << printed;
        EXPECT_EQ(print(again), printed);
      } catch (const base::Error& error) {
        ADD_FAILURE() << error.text() << "\n" << row.statement;
      }
    }
  }
  EXPECT_GT(statements, 500u);
}

/// Callers upper-case whole statements before they send them.
TEST(Corpus, MeansTheSameInUpperCase) {
  for (const std::string& file : test::corpusFiles()) {
    for (const test::CorpusRow& row : test::corpus(file)) {
      SCOPED_TRACE(row.name());
      const std::string text = asStatement(row);
      const Statement upper = parse(base::upper(text));
      EXPECT_EQ(print(upper), base::upper(print(parse(text))));
    }
  }
}

}  // namespace
