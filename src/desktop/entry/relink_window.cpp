#include "catalogue/label.h"
#include "desktop/entry/entry_windows.h"

namespace desktop {

void buildRelink(Dialog& dialog, entry::frmRelink& form) {
  dialog.showTitle(label::relink_title);
  Face& face = dialog.face;
  QLineEdit& search = face.line("Text1", label::relink_target, form.Text1,
                                [&form](const std::string& text) { entry::Text1_Change(form, text); });
  search.setClearButtonEnabled(true);
  Grid& targets = face.grid("DataGrid1", label::relink_target);
  targets.setHeads({face.caption(label::headword)});
  targets.selected = [&dialog, &form](int row) {
    dialog.face.run([&] {
      form.Adodc1.setAbsolutePosition(row);
      form.targetSelected = true;
    });
  };
  // The list is bound anew by each key in the box; between two of them it is left alone.
  face.onDraw([&form, &targets, bound = std::string("-")]() mutable {
    if (bound != form.SQLTemp) targets.setRecordset(form.Adodc1, {"Begriff"});
    bound = form.SQLTemp;
    if (!form.targetSelected) targets.setCurrentRow(-1);
  });
  const auto closeWhenDone = [&dialog, &form](bool (*command)(entry::frmRelink&)) {
    if (command(form)) dialog.finish();
  };
  auto* column = new QVBoxLayout(&dialog);
  column->addLayout(face.labelled(label::relink_target, search));
  column->addWidget(&targets, 1);
  column->addLayout(dialog.buttonRow(
      {&face.button("Command1", label::relink_below, [closeWhenDone] { closeWhenDone(entry::Command1); }),
       &face.button("Command3", label::relink_as_main_entry,
                    [closeWhenDone] { closeWhenDone(entry::Command3); })},
      {&dialog.closeButton()}));
  dialog.resize(640, 460);
}

}  // namespace desktop
