#include "engine/constant_columns.h"

#include "engine/storage/attached_file.h"
#include "engine/storage/readers.h"
#include "engine/storage/statement.h"

namespace engine {

bool ConstantColumns::equal(const std::string& a, const std::string& b, const std::string& collation) {
  const auto statement = connection_.statement("SELECT ?1 = ?2 COLLATE " + schema::quoteName(collation));
  statement->bindText(1, a);
  statement->bindText(2, b);
  return !statement->step() || statement->integer(0) != 0;
}

const ConstantColumns::Known& ConstantColumns::lookUp(const plan::TableColumn& column) {
  const storage::AttachedFile& file = connection_.fileOf(*column.file);
  const std::string name =
      schema::quoteName(column.table->columns[static_cast<std::size_t>(column.column)].name);
  const std::string table = file.schemaName() + "." + schema::quoteName(column.table->name);
  Known& known = known_[file.path() + "\n" + table + "\n" + name];
  std::int64_t dataVersion = 0;
  {
    const auto version = connection_.statement("PRAGMA " + file.schemaName() + ".data_version");
    if (version->step()) dataVersion = version->integer(0);
  }
  const std::int64_t changes = connection_.readers().changesOf(file.schemaName(), column.table->name);
  if (known.changes == changes && known.dataVersion == dataVersion) return known;
  known = {changes, dataVersion, true, std::nullopt};
  {
    const auto first = connection_.statement("SELECT " + name + " FROM " + table + " LIMIT 1");
    if (!first->step()) return known;
    known.constant = !first->isNull(0);
    if (!known.constant) return known;
    known.text = std::string(first->text(0));
  }
  const auto other = connection_.statement("SELECT 1 FROM " + table + " WHERE " + name +
                                           " COLLATE BINARY IS NOT ?1 LIMIT 1");
  other->bindText(1, *known.text);
  known.constant = !other->step();
  return known;
}

bool ConstantColumns::differ(const std::vector<plan::TableColumn>& columns, const std::string& collation) {
  std::vector<std::string> texts;
  for (const plan::TableColumn& column : columns) {
    const Known& known = lookUp(column);
    if (!known.constant) return false;
    if (!known.text) continue;
    for (const std::string& before : texts)
      if (equal(before, *known.text, collation)) return false;
    texts.push_back(*known.text);
  }
  return true;
}

}  // namespace engine
