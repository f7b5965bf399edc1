#pragma once

#include "browse/result_grid.h"
#include "desktop/kit/dialog.h"

namespace desktop {

/// Shows a result in a grid, row by row as they come into view; call it behind each change.
void showResult(Grid& grid, browse::ResultGrid& result);

/// A grid over a result with its caption above it; both are hidden with the result. `result` outlives the
/// window.
QWidget* resultBox(Dialog& dialog, const char* objectName, int caption, browse::ResultGrid& result,
                   Grid*& made);

}  // namespace desktop
