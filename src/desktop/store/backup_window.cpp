#include "desktop/store/backup_window.h"

#include <QFileDialog>
#include <QFormLayout>

#include "catalogue/label.h"

namespace desktop {

std::unique_ptr<Dialog> makeBackup(Gate& gate, QWidget* parent, store::frmBackup& form) {
  auto dialog = std::make_unique<Dialog>(gate, parent, form.formName, label::backup_title);
  Dialog* shown = dialog.get();
  Face& face = shown->face;
  QLabel& source = face.shown("Source", [&form, &face] {
    return form.source.empty() ? std::string("–") : face.session().files.paths.real(form.source).string();
  });
  source.setWordWrap(true);
  QLineEdit& folder = face.line("Dir1", label::backup_folder, form.targetFolder);
  QPushButton& choose = face.button("ChooseFolder", label::browse_files, [shown, &form] {
    const QString chosen =
        QFileDialog::getExistingDirectory(shown, shown->windowTitle(), qt(form.targetFolder));
    if (!chosen.isEmpty()) form.targetFolder = chosen.toStdString();
  });
  auto* target = new QHBoxLayout;
  target->addWidget(&folder, 1);
  target->addWidget(&choose);
  auto* rows = new QFormLayout;
  rows->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
  rows->addRow(face.caption(label::backup_source), &source);
  rows->addRow(face.caption(label::backup_folder), target);
  rows->addRow(QString(), &face.check("Check1", label::backup_with_media_folder, form.withMedia));
  auto* column = new QVBoxLayout(shown);
  column->addLayout(rows);
  column->addStretch(1);
  column->addLayout(
      shown->buttonRow({}, {&face.button("Command1", label::backup_start,
                                         [shown, &form] {
                                           if (store::BackUpDB(form)) shown->finish();
                                         }),
                            &face.button("Command2", label::close, [shown] { shown->finish(); })}));
  shown->resize(620, 180);
  return dialog;
}

}  // namespace desktop
