#include "desktop/store/backup_window.h"

#include <QFileDialog>
#include <QFormLayout>

#include "catalogue/label.h"

namespace desktop {

void buildBackup(Dialog& dialog, store::frmBackup& form) {
  dialog.showTitle(label::backup_title);
  Face& face = dialog.face;
  QLabel& source = face.shown("Source", [&form, &face] {
    return form.source.empty() ? std::string("–") : face.session().files.paths.real(form.source).string();
  });
  source.setWordWrap(true);
  QLineEdit& folder = face.line("Dir1", label::backup_folder, form.targetFolder);
  QPushButton& choose = face.button("ChooseFolder", label::browse_files, [&dialog, &form] {
    const QString chosen =
        QFileDialog::getExistingDirectory(&dialog, dialog.windowTitle(), qt(form.targetFolder));
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
  auto* column = new QVBoxLayout(&dialog);
  column->addLayout(rows);
  column->addStretch(1);
  column->addLayout(
      dialog.buttonRow({}, {&face.button("Command1", label::backup_start,
                                         [&dialog, &form] {
                                           if (store::BackUpDB(form)) dialog.finish();
                                         }),
                            &face.button("Command2", label::close, [&dialog] { dialog.finish(); })}));
  dialog.resize(620, 180);
}

}  // namespace desktop
