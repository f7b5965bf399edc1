#include "engine/storage/coerce.h"

#include <limits>
#include <string>

#include "base/text.h"

namespace engine::storage {

namespace {

std::string field(const schema::Table& table, const schema::Column& column) {
  return "The field \"" + column.name + "\" of \"" + table.name + "\"";
}

void bindWhole(Statement& statement, int parameter, const schema::Table& table, const schema::Column& column,
               const Value& value) {
  const std::int64_t number = value.asInteger();
  const bool isShort = column.type == ColumnType::shortInteger;
  const std::int64_t lowest =
      isShort ? std::numeric_limits<std::int16_t>::min() : std::numeric_limits<std::int32_t>::min();
  const std::int64_t highest =
      isShort ? std::numeric_limits<std::int16_t>::max() : std::numeric_limits<std::int32_t>::max();
  if (number < lowest || number > highest) {
    throw Error(errors::overflow,
                field(table, column) + " can not hold the number " + std::to_string(number) + ".");
  }
  statement.bindInteger(parameter, number);
}

void bindText(Statement& statement, int parameter, const schema::Table& table, const schema::Column& column,
              std::string_view text) {
  if (text.empty() && !column.allowZeroLength) {
    throw Error(errors::zeroLength, field(table, column) + " can not hold an empty text.");
  }
  const auto limit = static_cast<std::size_t>(column.size);
  // A character takes a byte at least, so most texts need no counting.
  if (column.type == ColumnType::text && text.size() > limit && base::length(text) > limit) {
    throw Error(errors::tooLong, field(table, column) + " can not hold more than " + std::to_string(limit) +
                                     " characters; the text has " + std::to_string(base::length(text)) + ".");
  }
  statement.bindText(parameter, text);
}

void bindTyped(Statement& statement, int parameter, const schema::Table& table, const schema::Column& column,
               const Value& value) {
  switch (column.type) {
    case ColumnType::counter:
    case ColumnType::longInteger:
    case ColumnType::shortInteger:
      return bindWhole(statement, parameter, table, column, value);
    case ColumnType::bit:
      return statement.bindInteger(parameter, value.asBoolean() ? -1 : 0);
    case ColumnType::real:
      return statement.bind(parameter, Value(value.asReal()));
    case ColumnType::date:
      return statement.bindText(parameter, value.asDate().iso());
    case ColumnType::text:
    case ColumnType::memo:
      if (value.isText()) return bindText(statement, parameter, table, column, value.text());
      return bindText(statement, parameter, table, column, value.asText());
  }
}

}  // namespace

void bindCoerced(Statement& statement, int parameter, const schema::Table& table,
                 const schema::Column& column, const Value& value) {
  if (value.isNull()) {
    if (column.type == ColumnType::bit) return statement.bindInteger(parameter, 0);
    if (column.required) throw Error(errors::nullRefused, field(table, column) + " needs a value.");
    return statement.bindNull(parameter);
  }
  try {
    bindTyped(statement, parameter, table, column, value);
  } catch (const Error& error) {
    if (error.number() != errors::typeMismatch && error.number() != errors::overflow) throw;
    if (error.text().starts_with("The field")) throw;
    throw Error(error.number(), field(table, column) + " can not take the value: " + error.text());
  }
}

}  // namespace engine::storage
