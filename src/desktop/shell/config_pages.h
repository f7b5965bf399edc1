#pragma once

#include "desktop/kit/dialog.h"
#include "shell/frame/frmConfig.h"

/// What the tabs of the settings are made of, for the files that make them.
namespace desktop {

struct ConfigWindow {
  Dialog& dialog;
  Face& face;
  frame::frmConfig& form;
};

/// The controls of a tab that stand in the table of controls, in its order: those of a group in a box each,
/// the others below. Null when the table has none.
QLayout* tableOfControls(const ConfigWindow& window, frame::ConfigTab tab);

// The parts of tabs that are more than a control a field.
QLayout* languageChoice(const ConfigWindow& window);
QLayout* sortingAndFonts(const ConfigWindow& window);
QLayout* articleList(const ConfigWindow& window);
QLayout* printFonts(const ConfigWindow& window);
QLayout* reportAttributes(const ConfigWindow& window);
QLayout* programSettings(const ConfigWindow& window);

}  // namespace desktop
