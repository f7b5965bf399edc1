#pragma once

#include <cstdint>
#include <deque>
#include <string>
#include <vector>

#include "base/value.h"
#include "engine/recordset.h"

namespace publish {

/// One row of a publishing query: an entry with one of its senses, examples, properties and subjects.
struct PrintRow {
  std::int64_t id = 0, mainId = 0, meaningId = 0;
  std::string headword, sortKey, databaseName;
  base::Value pronunciation, note, picture, sound, created;
  base::Value meaning, example, exampleTranslation;
  base::Value property, propertyValue, propertyShort, subject, subjectShort;
  base::Value meaningProperty, meaningPropertyValue, meaningPropertyShort, meaningSubject,
      meaningSubjectShort;
};

/// All rows of one entry, in their order.
using EntryRows = std::vector<PrintRow>;

/// Reads a publishing query entry by entry. Rows whose sort keys are equal are gathered by entry, so
/// that of two headwords spelled alike each comes out whole.
class EntryReader {
 public:
  /// The set stays the caller's and has to outlive the reader; it is read forwards from its first row.
  explicit EntryReader(engine::Recordset& rows);
  /// The next entry's rows; empty at the end.
  EntryRows next();
  /// All entries below a main entry of one file, in the set's order.
  std::vector<EntryRows> entriesBelow(std::int64_t mainId, const std::string& databaseName);

 private:
  struct Fields {
    std::size_t id, mainId, meaningId, headword, sortKey, databaseName, pronunciation, note, picture, sound,
        created, meaning, example, exampleTranslation, property, propertyValue, propertyShort, subject,
        subjectShort, meaningProperty, meaningPropertyValue, meaningPropertyShort, meaningSubject,
        meaningSubjectShort;
  };
  static Fields lookUp(const engine::Recordset& rows);
  PrintRow read() const;
  void readEqualKeys();

  engine::Recordset& rows_;
  Fields fields_;
  std::deque<EntryRows> pending_;
};

}  // namespace publish
