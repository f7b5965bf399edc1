#pragma once

#include <memory>

#include "browse/frmSearch.h"
#include "browse/frmSearchSelectedWord.h"
#include "desktop/kit/dialog.h"

namespace desktop {

/// frmSearch, in both modes.
std::unique_ptr<Dialog> makeSearch(Gate& gate, QWidget* parent, browse::frmSearch& form);
/// frmSearchSelectedWord: what there is to a word that was marked.
std::unique_ptr<Dialog> makeLookUp(Gate& gate, QWidget* parent, browse::frmSearchSelectedWord& form);

}  // namespace desktop
