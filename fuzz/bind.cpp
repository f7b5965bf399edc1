#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

#include "engine_plan/words.h"

namespace {

/// A dictionary's tables without rows, and a second file for IN "b.cvb".
test::MemoryFiles& files() {
  static const auto made = [] {
    auto both = std::make_unique<test::MemoryFiles>();
    test::defineWords(both->add("A.CVB"));
    both->file().addQuery("Endless", "SELECT * FROM Endless2");
    both->file().addQuery("Endless2", "SELECT * FROM Endless");
    both->file().addQuery(
        "WithParameter",
        "PARAMETERS lWortID Long; SELECT * FROM Woerterbuch WHERE ID_Woerterbuch = [lWortID]");
    test::defineWords(both->add("b.cvb", "vc_041d"));
    return both;
  }();
  return *made;
}

/// SQLite's own limits, and constants that overflow: no fault of what was emitted.
bool isLimit(std::string_view message) {
  constexpr std::array<std::string_view, 8> limits = {
      "too many", "too large",     "at most 64 tables", "parser stack overflow",
      "too big",  "out of memory", "integer overflow",  "Expression tree is too large"};
  for (const std::string_view limit : limits)
    if (message.find(limit) != std::string_view::npos) return true;
  return false;
}

/// What was emitted has to be a statement; it is not run.
void prepare(const std::string& sql) {
  try {
    files().fetch("EXPLAIN " + sql);
  } catch (const std::runtime_error& error) {
    if (isLimit(error.what())) return;
    std::fprintf(stderr, "%s\n", error.what());
    std::abort();
  }
}

void emitAll(const engine::plan::Plan& plan) {
  prepare(engine::plan::emitRows(plan));
  prepare(engine::plan::emitCount(plan));
  if (!plan.keyed) return;
  prepare(engine::plan::emitKeys(plan));
  prepare(engine::plan::emitKeys(plan, {}, true));
  prepare(engine::plan::emitKeysAndRows(plan));
  prepare(engine::plan::emitRowByKey(plan));
}

/// A criterion over a keyed set and over one that is not.
void checkCriterion(std::string_view text) {
  static const engine::plan::Plan entries = files().bind("SELECT * FROM AllWordsOrderByBegriff");
  static const engine::plan::Plan joined =
      files().bind("SELECT DISTINCT Begriff, Kategorie FROM ExportView1");
  for (const engine::plan::Plan* plan : {&entries, &joined}) {
    try {
      const auto condition = engine::sql::parseCondition(text);
      prepare(engine::plan::emitRows(*plan, engine::plan::bindCriterion(*plan, *condition, files().context)));
    } catch (const engine::Error& error) {
      if (error.text().empty()) std::abort();
    }
  }
}

/// A statement ends in a plan whose texts SQLite takes, or in an Error.
void check(std::string_view text) {
  try {
    const engine::sql::Statement statement = engine::sql::parse(text);
    if (statement.kind == engine::sql::StatementKind::select && statement.select->into.empty())
      emitAll(engine::plan::bind(statement, files().context));
    else if (statement.kind <= engine::sql::StatementKind::remove)
      emitAll(engine::plan::bindAction(statement, files().context).rows);
  } catch (const engine::Error& error) {
    if (error.text().empty()) std::abort();
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  check(text);
  checkCriterion(text);
  return 0;
}
