#pragma once

#include <QGridLayout>
#include <functional>
#include <string>
#include <vector>

#include "desktop/kit/face.h"

namespace desktop {

/// Object names of a list and of the label above it.
struct ChoiceNames {
  const char *list, *label;
};

/// Adds a list to choose one text from behind the last column of a grid, with the caption and the choice
/// above it. The texts and the chosen one outlive the widget; a choice is stored into `chosen` unless
/// `choose` does it.
void addChoiceList(Face& face, QGridLayout& grid, const ChoiceNames& names, int caption,
                   const std::vector<std::string>& items, std::string& chosen,
                   std::function<void(const std::string&)> choose = {});

}  // namespace desktop
