#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "shell/session/session.h"

/// Items of the two catalogues as the dialogs on them list them.
namespace entry {

struct CatalogueItem {
  std::int64_t id = 0;
  std::string name;
};

/// The rows of a catalogue (properties, else subject fields) by name. Throws what the engine throws.
std::vector<CatalogueItem> allItems(session::Session& s, bool properties);
/// The rows of a stored query or statement on a catalogue, in its order.
std::vector<CatalogueItem> itemsOf(session::Session& s, bool properties, const std::string& source);

/// Two lists side by side: the catalogue, and what was taken out of it for a command.
struct CatalogueChoice {
  std::vector<CatalogueItem> items;   ///< in the catalogue's order
  std::vector<CatalogueItem> chosen;  ///< in the order of taking
  std::vector<CatalogueItem> all;
};
CatalogueChoice readChoice(session::Session& s, bool properties);
/// Carries the item at an index of one list to the other; an index that the list does not have does nothing.
void choose(CatalogueChoice& choice, std::size_t index);
void giveBack(CatalogueChoice& choice, std::size_t index);

}  // namespace entry
