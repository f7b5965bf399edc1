#pragma once

#include "browse/frmSearch.h"
#include "browse/frmSearchSelectedWord.h"
#include "desktop/kit/dialog.h"

namespace desktop {

/// frmSearch, in both modes.
void buildSearch(Dialog& dialog, browse::frmSearch& form);
/// frmSearchSelectedWord: what there is to a word that was marked.
void buildLookUp(Dialog& dialog, browse::frmSearchSelectedWord& form);

}  // namespace desktop
