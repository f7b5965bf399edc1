#include "desktop/shell/choice_list.h"

#include <algorithm>

namespace desktop {
namespace {

int indexOf(const std::vector<std::string>& items, const std::string& item) {
  const auto found = std::ranges::find(items, item);
  return found == items.end() ? -1 : static_cast<int>(found - items.begin());
}

}  // namespace

void addChoiceList(Face& face, QGridLayout& grid, const ChoiceNames& names, int caption,
                   const std::vector<std::string>& items, std::string& chosen,
                   std::function<void(const std::string&)> choose) {
  if (!choose) choose = [&chosen](const std::string& text) { chosen = text; };
  QListWidget& list = face.list(
      names.list, caption, [&items] { return items; }, [&items, &chosen] { return indexOf(items, chosen); },
      [&items, choose](int row) { choose(items.at(static_cast<std::size_t>(row))); });
  const QString head = spoken(face.caption(caption));
  QLabel& text = face.shown(names.label, [&chosen, head = head.toStdString()] {
    return chosen.empty() ? head : head + ": " + chosen;
  });
  text.setBuddy(&list);
  text.setWordWrap(true);
  const int column = grid.isEmpty() ? 0 : grid.columnCount();
  grid.addWidget(&text, 0, column, Qt::AlignBottom);
  grid.addWidget(&list, 1, column);
  grid.setColumnStretch(column, 1);
  grid.setRowStretch(1, 1);
}

}  // namespace desktop
