#include "store/queries/stored_queries.h"

#include "store/queries/families.h"

namespace store {

std::vector<StoredQueryText> storedQueries() {
  std::vector<StoredQueryText> all;
  for (const auto family : {queries::entryLists(), queries::meaningLists(), queries::entryParts(),
                            queries::catalogues(), queries::tableViews(), queries::exportViews(),
                            queries::printSelections(), queries::reports(), queries::rulesAndRest()})
    all.insert(all.end(), family.begin(), family.end());
  return all;
}

void CreateQueries(engine::Database& db) {
  for (const StoredQueryText& query : storedQueries()) {
    try {
      db.CreateQueryDef(query.name, query.text);
    } catch (const engine::Error& error) {
      if (error.number() != engine::errors::queryExists) throw;
    }
  }
}

}  // namespace store
