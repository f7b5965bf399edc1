#pragma once

#include <QWidget>
#include <functional>
#include <initializer_list>

namespace desktop {

/// Runs `operation` in place of what a control, or the dialog around it, does on these keys.
void onKeys(QWidget& control, std::initializer_list<Qt::Key> keys, std::function<void()> operation);

}  // namespace desktop
