#pragma once

#include "browse/frmFilter.h"
#include "desktop/kit/dialog.h"

namespace desktop {

/// frmFilter: what the views are narrowed to, and how the list is paged.
void buildFilter(Dialog& dialog, browse::frmFilter& form);

}  // namespace desktop
