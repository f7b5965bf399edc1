#include "entry/catalogue_items.h"

#include <algorithm>
#include <iterator>

namespace entry {

std::vector<CatalogueItem> itemsOf(session::Session& s, bool properties, const std::string& source) {
  auto rows = s.files.CurrentDB.OpenRecordset(source, engine::RecordsetKind::snapshot);
  const std::size_t id = rows.field(properties ? "ID_WKategorie" : "ID_Sachgebiet");
  const std::size_t name = rows.field(properties ? "Kategorie" : "Sachgebiet");
  std::vector<CatalogueItem> items;
  for (; !rows.EndOfFile(); rows.MoveNext())
    items.push_back({rows.value(id).asInteger(), rows.value(name).textOrEmpty()});
  return items;
}

std::vector<CatalogueItem> allItems(session::Session& s, bool properties) {
  return itemsOf(s, properties, properties ? "OrderWKategorie" : "OrderWSachgebiet");
}

CatalogueChoice readChoice(session::Session& s, bool properties) {
  CatalogueChoice choice;
  choice.all = choice.items = allItems(s, properties);
  return choice;
}

void choose(CatalogueChoice& choice, std::size_t index) {
  if (index >= choice.items.size()) return;
  choice.chosen.push_back(choice.items[index]);
  choice.items.erase(choice.items.begin() + static_cast<std::ptrdiff_t>(index));
}

void giveBack(CatalogueChoice& choice, std::size_t index) {
  if (index >= choice.chosen.size()) return;
  choice.chosen.erase(choice.chosen.begin() + static_cast<std::ptrdiff_t>(index));
  choice.items.clear();
  std::ranges::copy_if(choice.all, std::back_inserter(choice.items), [&](const CatalogueItem& item) {
    return std::ranges::find(choice.chosen, item.id, &CatalogueItem::id) == choice.chosen.end();
  });
}

}  // namespace entry
