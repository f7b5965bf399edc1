#pragma once

#include "engine/schema/schema.h"
#include "engine/storage/statement.h"

namespace engine::storage {

/// Binds a value in the form that a column stores: whole numbers in their range, truths as -1 and 0, dates as
/// ISO text, text as it is. Null becomes 0 in a truth. Throws 13, 6, 3163, 3315 and 3314, each naming the
/// table and the field.
void bindCoerced(Statement& statement, int parameter, const schema::Table& table,
                 const schema::Column& column, const Value& value);

}  // namespace engine::storage
