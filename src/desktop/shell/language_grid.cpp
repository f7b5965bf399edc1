#include "desktop/shell/language_grid.h"

#include <QGroupBox>
#include <algorithm>

#include "catalogue/label.h"

namespace desktop {

QWidget* languageGrid(Face& face, const LanguageNames& names, int caption,
                      const std::vector<frame::Language>& languages, std::string& chosen, bool& rightToLeft) {
  auto* box = new QGroupBox(face.caption(caption));
  auto* column = new QVBoxLayout(box);
  QLineEdit& text = face.line(names.box, caption, chosen);
  QListWidget& list = face.list(
      names.grid, caption,
      [&languages] {
        std::vector<std::string> items;
        for (const frame::Language& each : languages) items.push_back(each.name);
        return items;
      },
      [&languages, &chosen] {
        const auto found = std::ranges::find(languages, chosen, &frame::Language::name);
        return found == languages.end() ? -1 : static_cast<int>(found - languages.begin());
      },
      [&languages, &chosen](int row) { chosen = languages.at(static_cast<std::size_t>(row)).name; });
  column->addWidget(&text);
  column->addWidget(&list, 1);
  column->addWidget(&face.check(names.rightToLeft, label::wizard_right_to_left, rightToLeft));
  return box;
}

}  // namespace desktop
