#include "desktop/entry/environment_window.h"

#include "catalogue/label.h"
#include "desktop/kit/keys.h"

namespace desktop {
namespace {

Grid& fileTypes(Dialog& dialog, entry::frmEnvironment& form) {
  Grid& grid = dialog.face.grid("DBGrid1", label::environment_title);
  grid.setHeads({qt(form.typeCaption), qt(form.applicationCaption)});
  grid.setColumnWidth(0, grid.fontMetrics().averageCharWidth() * 16);
  grid.edited = [&dialog, &form](int row, int column, const std::string& text) {
    const auto change = column == 0 ? entry::editFileType : entry::editApplication;
    dialog.face.run([&] { change(form, static_cast<std::size_t>(row), text); });
  };
  dialog.face.onDraw([&form, &grid] {
    Grid::Rows rows;
    for (const entry::FileType& each : form.DBGrid1) rows.push_back({each.Dateityp, each.Anwendung});
    rows.push_back({"", ""});
    grid.setRows(std::move(rows));
  });
  return grid;
}

}  // namespace

void buildEnvironment(Dialog& dialog, entry::frmEnvironment& form) {
  dialog.showTitle(label::environment_title);
  Face& face = dialog.face;
  dialog.isOpen = [&form] { return form.visible; };
  dialog.close = [&form] { entry::cancelEnvironment(form); };
  Grid& grid = fileTypes(dialog, form);
  const auto remove = [&form, &grid] {
    if (grid.currentRow() >= 0) entry::deleteFileType(form, static_cast<std::size_t>(grid.currentRow()));
  };
  onKeys(grid, {Qt::Key_Delete}, [&face, remove] { face.run(remove); });
  auto* column = new QVBoxLayout(&dialog);
  column->addWidget(&grid, 1);
  const auto add = [&grid] {
    const QModelIndex empty = grid.model()->index(grid.model()->rowCount() - 1, 0);
    grid.setCurrentIndex(empty);
    grid.edit(empty);
  };
  column->addLayout(dialog.buttonRow(
      {&face.button("AddRow", label::add, add),
       &face.button("RemoveRow", label::remove, remove, [&form] { return !form.DBGrid1.empty(); })},
      {&face.button(
           "Save", label::save, [&form] { entry::saveEnvironment(form); }, [&form] { return form.changed; }),
       &face.button("Cancel", label::cancel, dialog.close)}));
  dialog.resize(620, 420);
}

}  // namespace desktop
