#pragma once

#include <cstddef>
#include <vector>

#include "entry/catalogue_items.h"
#include "platform/desk.h"
#include "shell/session/session.h"

/// The dialog of automatic assignment: which properties and subject fields every new entry and every new
/// meaning gets. Changes are stored at once. Its operations are commands: they report failures and return
/// whether all went well.
namespace entry {

enum class AutomaticTab { toEntries, toMeanings };

struct frmAutokat : platform::Form {
  explicit frmAutokat(session::Session& s) : Form("frmAutokat"), session(s) {}

  /// One of the two catalogues and those of its items that are flagged, on the tab in force.
  struct Lists {
    std::vector<CatalogueItem> catalogue, flagged;
  };

  session::Session& session;
  AutomaticTab tab = AutomaticTab::toEntries;
  bool meaningsShown = true;  ///< only dictionaries (project type 1) have meanings
  Lists properties, subjects;
};

bool Form_Load(frmAutokat& form);
bool selectTab(frmAutokat& form, AutomaticTab tab);
/// A double click on an item: in the catalogue it sets the item's flag, among the flagged it clears it.
bool setFlag(frmAutokat& form, bool property, std::size_t catalogueRow);
bool clearFlag(frmAutokat& form, bool property, std::size_t flaggedRow);
/// The check box of a catalogue: flags all its items, or none.
bool flagAll(frmAutokat& form, bool property, bool flagged);
/// Clears all flags of the tab in force, in both catalogues.
bool clearAllFlags(frmAutokat& form);

}  // namespace entry
