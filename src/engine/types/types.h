#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "base/error.h"
#include "base/value.h"

namespace engine {

using base::Error;
using base::Value;

/// Named parameters of a statement; names compare without case.
using Parameters = std::vector<std::pair<std::string, Value>>;

/// The two documented interfaces to the same file. They differ in the wildcards of LIKE
/// (* ? # [..] against % _) and in how a recordset counts.
enum class Interface { first, second };

/// Column types of the dialect.
enum class ColumnType { counter, longInteger, shortInteger, bit, text, memo, date, real };

/// The documented error numbers that the engine raises.
namespace errors {
inline constexpr int invalidArgument = 5, overflow = 6, outOfRange = 9, typeMismatch = 13, fileNotFound = 53, diskFull = 61,
                     permissionDenied = 70, invalidUseOfNull = 94, tableExists = 3010, objectNotFound = 3011,
                     queryExists = 3012, updateWithoutEdit = 3020, noCurrentRecord = 3021, duplicateKey = 3022,
                     readOnly = 3027, badPath = 3044, keyIsNull = 3058, tooFewParameters = 3061,
                     unknownName = 3070, syntax = 3075, inputNotFound = 3078, tooLong = 3163, recordDeleted = 3167,
                     relatedRowRequired = 3201, databaseExists = 3204, itemNotFound = 3265, nullRefused = 3314,
                     zeroLength = 3315, notADictionary = 3343, badLogin = 3029, locked = 3045, busy = 3260;
}  // namespace errors

}  // namespace engine
