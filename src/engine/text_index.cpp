#include "engine/text_index.h"

#include "engine/impl.h"

namespace engine {

void indexTexts(Database& database, const std::string& table, const std::vector<std::string>& fields) {
  DatabaseImpl& impl = *database.impl();
  impl.requireWritable();
  impl.file->appendTextIndex({table, fields, 0, {}});
}

}  // namespace engine
