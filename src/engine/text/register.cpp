#include <sqlite3.h>

#include <algorithm>
#include <charconv>
#include <exception>
#include <new>
#include <vector>

#include "engine/text/collation.h"
#include "engine/text/collator.h"
#include "engine/text/functions.h"
#include "engine/text/functions_table.h"
#include "engine/text/grams.h"
#include "engine/text/like.h"

namespace engine::text {
namespace {

using Family = std::span<const Function> (*)();
constexpr Family dialectFamilies[] = {textFunctions, numberFunctions, dateFunctions};
constexpr std::string_view errorPrefix = "VC";
constexpr int expected = SQLITE_UTF8 | SQLITE_INNOCUOUS;

std::string_view textOf(sqlite3_value* value) {
  const auto* bytes = reinterpret_cast<const char*>(sqlite3_value_text(value));
  return {bytes == nullptr ? "" : bytes, static_cast<std::size_t>(sqlite3_value_bytes(value))};
}

Value valueOf(sqlite3_value* value) {
  switch (sqlite3_value_type(value)) {
    case SQLITE_NULL:
      return {};
    case SQLITE_INTEGER:
      return static_cast<std::int64_t>(sqlite3_value_int64(value));
    case SQLITE_FLOAT:
      return sqlite3_value_double(value);
    default:
      return textOf(value);
  }
}

void giveText(sqlite3_context* context, std::string_view text) {
  sqlite3_result_text64(context, text.data(), text.size(), SQLITE_TRANSIENT, SQLITE_UTF8);
}

void give(sqlite3_context* context, const Value& value) {
  switch (value.kind()) {
    case Value::Kind::null:
      return sqlite3_result_null(context);
    case Value::Kind::boolean:
    case Value::Kind::integer:
      return sqlite3_result_int64(context, value.asInteger());
    case Value::Kind::real:
      return sqlite3_result_double(context, value.asReal());
    case Value::Kind::date:
      return giveText(context, value.asDate().iso());
    case Value::Kind::text:
      return giveText(context, value.text());
  }
}

// Nothing may leave a callback of SQLite as an exception.
template <class Do>
void guarded(sqlite3_context* context, Do action) {
  try {
    action();
  } catch (const Error& error) {
    const std::string message =
        std::string(errorPrefix) + std::to_string(error.number()) + ":" + error.text();
    sqlite3_result_error(context, message.c_str(), -1);
  } catch (const std::bad_alloc&) {
    sqlite3_result_error_nomem(context);
  } catch (const std::exception& error) {
    sqlite3_result_error(context, error.what(), -1);
  }
}

void call(sqlite3_context* context, int count, sqlite3_value** values) {
  guarded(context, [&] {
    const auto& function = *static_cast<const Function*>(sqlite3_user_data(context));
    if (count < function.least || count > function.most) refuseArgument(function.name);
    if (function.nullIsNull && count > 0 && sqlite3_value_type(values[0]) == SQLITE_NULL) {
      sqlite3_result_null(context);
      return;
    }
    std::vector<Value> arguments;
    arguments.reserve(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) arguments.push_back(valueOf(values[i]));
    give(context, function.run(arguments));
  });
}

// A pattern that is the same for all rows of a statement is read once.
void callLike(sqlite3_context* context, int count, sqlite3_value** values, int interfaceNumber) {
  if (sqlite3_value_type(values[0]) == SQLITE_NULL || sqlite3_value_type(values[1]) == SQLITE_NULL) {
    sqlite3_result_null(context);
    return;
  }
  auto* pattern = static_cast<LikePattern*>(sqlite3_get_auxdata(context, 1));
  std::unique_ptr<LikePattern> made;
  if (pattern == nullptr) {
    const std::string order = count > 2 ? std::string(textOf(values[2])) : "vc_0409";
    made = std::make_unique<LikePattern>(valueOf(values[1]).asText(), interfaceNumber, collator(order));
    pattern = made.get();
  }
  const bool isText = sqlite3_value_type(values[0]) == SQLITE_TEXT;
  const bool hit = pattern->matches(isText ? textOf(values[0]) : valueOf(values[0]).asText());
  // Handing the pattern over may free it at once, so it comes last.
  if (made) {
    sqlite3_set_auxdata(context, 1, made.release(), [](void* old) { delete static_cast<LikePattern*>(old); });
  }
  sqlite3_result_int(context, hit ? 1 : 0);
}

void like1(sqlite3_context* context, int count, sqlite3_value** values) {
  guarded(context, [&] { callLike(context, count, values, 1); });
}
void like2(sqlite3_context* context, int count, sqlite3_value** values) {
  guarded(context, [&] { callLike(context, count, values, 2); });
}

// vc_letters(text, collation): a text as an index of trigrams holds it.
void spell(sqlite3_context* context, int, sqlite3_value** values) {
  guarded(context, [&] {
    if (sqlite3_value_type(values[0]) == SQLITE_NULL) return sqlite3_result_null(context);
    auto* letters = static_cast<GramLetters*>(sqlite3_get_auxdata(context, 1));
    std::unique_ptr<GramLetters> made;
    if (letters == nullptr) {
      made = std::make_unique<GramLetters>(collator(std::string(textOf(values[1]))));
      letters = made.get();
    }
    giveText(context, letters->spell(textOf(values[0])));
    if (made) {
      sqlite3_set_auxdata(context, 1, made.release(),
                          [](void* old) { delete static_cast<GramLetters*>(old); });
    }
  });
}

// first and last keep a copy of the value in the aggregate's own memory.
struct Kept {
  sqlite3_value* value;
};

template <bool last>
void keep(sqlite3_context* context, int, sqlite3_value** values) {
  auto* kept = static_cast<Kept*>(sqlite3_aggregate_context(context, sizeof(Kept)));
  if (kept == nullptr) return sqlite3_result_error_nomem(context);
  if (kept->value != nullptr && !last) return;
  sqlite3_value_free(kept->value);
  kept->value = sqlite3_value_dup(values[0]);
  if (kept->value == nullptr) sqlite3_result_error_nomem(context);
}

void giveKept(sqlite3_context* context) {
  auto* kept = static_cast<Kept*>(sqlite3_aggregate_context(context, 0));
  if (kept == nullptr || kept->value == nullptr) return sqlite3_result_null(context);
  sqlite3_result_value(context, kept->value);
  sqlite3_value_free(kept->value);
  kept->value = nullptr;
}

using SharedCollator = std::shared_ptr<const Collator>;

int compareInOrder(void* order, int sizeA, const void* a, int sizeB, const void* b) {
  try {
    return (*static_cast<SharedCollator*>(order))
        ->compare({static_cast<const char*>(a), static_cast<std::size_t>(sizeA)},
                  {static_cast<const char*>(b), static_cast<std::size_t>(sizeB)});
  } catch (const std::exception&) {
    // SQLite takes no failure here; ICU fails on lack of memory alone, and bytes are an order too.
    return std::string_view(static_cast<const char*>(a), static_cast<std::size_t>(sizeA))
        .compare({static_cast<const char*>(b), static_cast<std::size_t>(sizeB)});
  }
}

// SQLite asks for a collation that a statement names; it reports an unknown one itself.
void addCollation(void*, sqlite3* connection, int, const char* name) {
  try {
    auto order = std::make_unique<SharedCollator>(collator(name));
    const auto drop = [](void* old) { delete static_cast<SharedCollator*>(old); };
    if (sqlite3_create_collation_v2(connection, name, SQLITE_UTF8, order.get(), compareInOrder, drop) ==
        SQLITE_OK) {
      order.release();
    }
  } catch (const std::exception&) {
    return;  // left unregistered: SQLite then names the collation in its own error
  }
}

void check(int code, std::string_view name) {
  if (code == SQLITE_OK) return;
  throw Error(errors::invalidArgument, "The function " + std::string(name) + " can not be registered.");
}

void addFunction(sqlite3* connection, const Function& function) {
  const std::string name = "vc_" + std::string(function.name);
  const int flags = expected | (function.changes ? 0 : SQLITE_DETERMINISTIC);
  // SQLite only hands the pointer back; the tables are constant.
  check(sqlite3_create_function_v2(connection, name.c_str(), -1, flags, const_cast<Function*>(&function),
                                   call, nullptr, nullptr, nullptr),
        name);
}

}  // namespace

void refuseArgument(std::string_view function) {
  throw Error(errors::invalidArgument,
              "Invalid argument or number of arguments for \"" + std::string(function) + "\".");
}

std::size_t countArgument(const Value& value, std::int64_t least, std::string_view function) {
  const std::int64_t count = value.asInteger();
  if (count < least) refuseArgument(function);
  return static_cast<std::size_t>(std::min<std::int64_t>(count, 0x7FFFFFFF));
}

std::optional<Error> errorOf(std::string_view message) {
  if (!message.starts_with(errorPrefix)) return std::nullopt;
  message.remove_prefix(errorPrefix.size());
  int number = 0;
  const auto [stop, code] = std::from_chars(message.data(), message.data() + message.size(), number);
  if (code != std::errc{} || stop == message.data() + message.size() || *stop != ':') return std::nullopt;
  return Error(number, std::string(stop + 1, message.data() + message.size()));
}

void registerText(sqlite3* connection) {
  check(sqlite3_collation_needed(connection, nullptr, addCollation), "collation");
  for (const Family family : dialectFamilies) {
    for (const Function& function : family()) addFunction(connection, function);
  }
  for (const Function& function : operatorFunctions()) addFunction(connection, function);
  for (const int arguments : {2, 3}) {
    const int flags = expected | SQLITE_DETERMINISTIC;
    check(sqlite3_create_function_v2(connection, "vc_like", arguments, flags, nullptr, like1, nullptr,
                                     nullptr, nullptr),
          "vc_like");
    check(sqlite3_create_function_v2(connection, "vc_like2", arguments, flags, nullptr, like2, nullptr,
                                     nullptr, nullptr),
          "vc_like2");
  }
  check(sqlite3_create_function_v2(connection, "vc_letters", 2, expected | SQLITE_DETERMINISTIC, nullptr,
                                   spell, nullptr, nullptr, nullptr),
        "vc_letters");
  check(sqlite3_create_function_v2(connection, "vc_first", 1, expected, nullptr, nullptr, keep<false>,
                                   giveKept, nullptr),
        "vc_first");
  check(sqlite3_create_function_v2(connection, "vc_last", 1, expected, nullptr, nullptr, keep<true>, giveKept,
                                   nullptr),
        "vc_last");
}

}  // namespace engine::text
