#pragma once

#include <memory>

#include "browse/frmFilter.h"
#include "desktop/kit/dialog.h"

namespace desktop {

/// frmFilter: what the views are narrowed to, and how the list is paged.
std::unique_ptr<Dialog> makeFilter(Gate& gate, QWidget* parent, browse::frmFilter& form);

}  // namespace desktop
