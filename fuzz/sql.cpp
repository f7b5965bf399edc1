#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string_view>

#include "engine/sql/parser.h"
#include "engine/sql/printer.h"

namespace {

/// What is accepted must print to a text that gives the same tree and prints the same again.
void check(std::string_view text) {
  engine::sql::Statement statement;
  try {
    statement = engine::sql::parse(text);
  } catch (const base::Error& error) {
    if (error.number() != engine::errors::syntax) std::abort();
    return;
  }
  const std::string printed = engine::sql::print(statement);
  const engine::sql::Statement again = engine::sql::parse(printed);
  if (engine::sql::same(statement, again) && engine::sql::print(again) == printed) return;
  std::fprintf(stderr, "%s\n%s\n", printed.c_str(), engine::sql::print(again).c_str());
  std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  check(std::string_view(reinterpret_cast<const char*>(data), size));
  return 0;
}
