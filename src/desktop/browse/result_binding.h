#pragma once

#include <functional>

#include "browse/result_grid.h"
#include "desktop/kit/dialog.h"

namespace desktop {

/// Shows the known rows of a result in a grid, each as it comes into view; call it behind each change.
void showResult(Grid& grid, browse::ResultGrid& result);

/// Has the rows of a result that are not known yet looked for while the user does nothing, a few at a time or
/// by `readOn`. All that is named lives as long as `face`.
void readOnWhenIdle(QWidget& window, Face& face, const Grid& grid, browse::ResultGrid& result,
                    std::function<void()> readOn = {});

/// A grid over a result with its caption above it; both are hidden with the result. `result` outlives the
/// window. Rows that are not known yet are looked for while the user does nothing, by `readOn` if there is
/// one.
QWidget* resultBox(Dialog& dialog, const char* objectName, int caption, browse::ResultGrid& result,
                   Grid*& made, std::function<void()> readOn = {});

}  // namespace desktop
