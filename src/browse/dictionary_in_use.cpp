#include "browse/dictionary_in_use.h"

#include <algorithm>
#include <utility>

#include "base/text.h"
#include "shell/session/routines.h"

namespace browse {

engine::Database& databaseOf(session::Session& s, const std::string& databaseName) {
  auto& files = s.files;
  const std::string path = base::upper(base::trim(databaseName));
  if (files.OpenDBCount < 2 || path == base::upper(files.CurrentDB.Name())) return files.CurrentDB;
  const auto end = files.ExtraDB.begin() + (files.OpenDBCount - 1);
  const auto other = std::find_if(files.ExtraDB.begin(), end,
                                  [&](const engine::Database& db) { return base::upper(db.Name()) == path; });
  return other == end ? files.CurrentDB : *other;
}

void useDictionary(session::Session& s, const std::string& databaseName) {
  auto& files = s.files;
  if (files.OpenDBCount < 2) return;
  const std::string path = base::upper(base::trim(databaseName));
  engine::Database& chosen = databaseOf(s, path);
  if (base::upper(chosen.Name()) != path) return;
  if (&chosen != &files.CurrentDB) std::swap(files.CurrentDB, chosen);
  files.CurrentDBPath = path;
  files.DictFolder = "/" + base::withoutExtension4(path);
  const auto listed = std::ranges::find(files.dictionaryList, path);
  if (listed != files.dictionaryList.end())
    files.selectedDictionary = static_cast<int>(listed - files.dictionaryList.begin());
}

std::string entryCondition(const session::Session& s, std::int64_t id, const std::string& databaseName) {
  std::string condition = "woerterbuch.ID_Woerterbuch = " + std::to_string(id);
  if (s.files.OpenDBCount > 1 && !databaseName.empty())
    condition += " and databasename = '" + session::escapedSQLText(databaseName) + "'";
  return condition;
}

}  // namespace browse
