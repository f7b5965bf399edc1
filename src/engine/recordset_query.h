#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "engine/plan/plan.h"
#include "engine/recordset_open.h"
#include "engine/storage/connection.h"

namespace engine {

/// The bound select behind a recordset: what it was opened from, its plan, and the values of its
/// parameters. Bound anew when a definition changed, since a plan points into the files' definitions.
class RecordsetQuery {
 public:
  /// `filters` are conditions of the dialect that rows have to meet besides.
  RecordsetQuery(RecordsetSource source, std::vector<std::string> filters);
  RecordsetQuery(const RecordsetQuery&) = delete;
  RecordsetQuery& operator=(const RecordsetQuery&) = delete;

  const RecordsetSource& source() const { return source_; }
  const std::vector<std::string>& filters() const { return filters_; }
  storage::Connection& connection() const { return source_.file->connection(); }
  const plan::Plan& plan();
  /// To be called before the rows are read anew: what the plan knows of them may have changed.
  void renew();
  /// The filters and `criterion` (both may be missing) as SQLite text over the plan's rows.
  std::string where(const std::string& criterion = {});
  /// A condition of the dialect as SQLite text, for the plan's statements or for a spool of its rows.
  /// Throws 3070, 3075.
  std::string bind(const std::string& criterion);
  std::string bindOnCopy(const std::string& criterion);
  /// A statement with the parameters bound that it has. Throws 3061 naming those that were not given.
  storage::StatementLease statement(const std::string& text);
  /// Whether SQLite has to read every row of a narrowed keyed set to sort it before it can hand out the
  /// first. The keys alone, mostly out of an index, are read much faster then than whole rows here and there
  /// in the file.
  bool sortsFirst();
  storage::AttachedFile& fileOf(int source);
  /// Changes whenever the plan was bound anew: what points into it has to be made anew, too.
  std::int64_t binding() const { return boundAt_; }

 private:
  void bindPlan();
  std::int64_t definitions() const;

  RecordsetSource source_;
  std::vector<std::string> filters_;
  std::vector<std::shared_ptr<storage::AttachedFile>> others_;  // files of IN "file"
  plan::Context context_;
  plan::Plan plan_;
  std::int64_t boundAt_ = -1;  // sum of the files' versions
};

}  // namespace engine
