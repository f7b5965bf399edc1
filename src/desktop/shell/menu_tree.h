#pragma once

#include <vector>

namespace desktop {

/// What stands in a menu: items, "-" for a separator, and the names of menus of their own.
struct Menu {
  const char* name;
  std::vector<const char*> items;
};

/// The menus of the frame. The first is the bar itself.
const std::vector<Menu>& menuTree();

/// Keys of menu items beside their accelerators.
struct Shortcut {
  const char* item;
  const char* keys;
};
const std::vector<Shortcut>& menuShortcuts();

}  // namespace desktop
