#pragma once

/// Numbers that only the storage raises, beside those of engine::errors.
namespace engine::storage::errorNumbers {

inline constexpr int outOfMemory = 7;
inline constexpr int noTransaction = 3034;  ///< commit or rollback without a begin
inline constexpr int tooManyFiles = 3048;   ///< more than ten files at a time
inline constexpr int notASelect = 3065;     ///< a select was to be executed
inline constexpr int relatedRows = 3200;    ///< rows of another table depend on the row
inline constexpr int fieldInUse = 3280;     ///< an index or a relation needs the field
inline constexpr int tableInRelation = 3281;
inline constexpr int primaryExists = 3283;
inline constexpr int invalidName = 3125;
inline constexpr int noUniqueKey = 3368;  ///< a relation needs one on its first side
inline constexpr int indexExists = 3375;
inline constexpr int fieldExists = 3380;
inline constexpr int noSuchField = 3409;  ///< an index or a change of a field that is not there
inline constexpr int closedObject = 3420;
inline constexpr int cancelled = 32755;

}  // namespace engine::storage::errorNumbers
