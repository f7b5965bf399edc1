#include <QApplication>
#include <QCheckBox>
#include <QFileDialog>
#include <QGridLayout>
#include <QInputDialog>
#include <QMainWindow>
#include <QMessageBox>
#include <QPushButton>

#include "base/error.h"
#include "base/text.h"
#include "desktop/kit/text.h"
#include "desktop/ports/desk.h"
#include "store/dialogs.h"

namespace desktop {
namespace {

enum { kindMask = 7, iconMask = 0xf0, question = 32, exclamation = 48, information = 64 };

QMessageBox::Icon iconOf(int flags) {
  switch (flags & iconMask) {
    case question:
      return QMessageBox::Question;
    case exclamation:
      return QMessageBox::Warning;
    case information:
      return QMessageBox::Information;
    default:
      return QMessageBox::Warning;
  }
}

/// "label|pattern|label|pattern" as the toolkit's "label (pattern);;label (pattern)". A label that shows
/// its patterns already keeps them; patterns find names in either case.
QString filterOf(const std::string& filter) {
  QStringList made;
  const QStringList parts = qt(filter).split('|');
  for (int n = 0; n + 1 < parts.size(); n += 2) {
    QStringList patterns;
    for (QString pattern : parts[n + 1].split(';', Qt::SkipEmptyParts)) {
      pattern = pattern.trimmed();
      patterns << pattern;
      if (pattern.toUpper() != pattern) patterns << pattern.toUpper();
      if (pattern.toLower() != pattern) patterns << pattern.toLower();
    }
    patterns.removeDuplicates();
    QString label = parts[n];
    label = label.left(label.indexOf('(')).trimmed();
    made << label + " (" + patterns.join(' ') + ")";
  }
  return made.join(";;");
}

/// The pattern of a dialog that asks for a folder: no file bears such a name.
constexpr const char* folderPattern = "*.~#~";

/// Boxes are modal windows of their own: the pointer of a command that waits for an answer is put back.
class PlainPointer {
 public:
  explicit PlainPointer(bool busy) : busy_(busy) {
    if (busy_) QApplication::setOverrideCursor(Qt::ArrowCursor);
  }
  ~PlainPointer() {
    if (busy_) QApplication::restoreOverrideCursor();
  }
  PlainPointer(const PlainPointer&) = delete;
  PlainPointer& operator=(const PlainPointer&) = delete;

 private:
  bool busy_;
};

}  // namespace

QWidget* Desk::parent() const {
  return QApplication::activeModalWidget() != nullptr ? QApplication::activeModalWidget() : frame.data();
}

int Desk::message(const std::string& text, int flags, const std::string& title) {
  const PlainPointer plain(busy_);
  QMessageBox box(parent());
  box.setObjectName("MessageBox");
  box.setTextFormat(Qt::PlainText);
  box.setIcon(iconOf(flags));
  box.setWindowTitle(qt(title));
  box.setText(qt(text).replace("\r\n", "\n"));
  const int kind = flags & kindMask;
  if (kind == 0) {
    box.addButton(ok, QMessageBox::AcceptRole);
    box.exec();
    return platform::box::answerOk;
  }
  // A question without "cancel" must be answered: with this role neither Escape nor the close box does.
  QAbstractButton* yesButton = box.addButton(yes, QMessageBox::ActionRole);
  box.addButton(no, QMessageBox::ActionRole)->setObjectName("No");
  yesButton->setObjectName("Yes");
  QAbstractButton* cancelButton = kind == 3 ? box.addButton(cancel, QMessageBox::RejectRole) : nullptr;
  box.exec();
  if (box.clickedButton() == yesButton) return platform::box::answerYes;
  if (cancelButton != nullptr && box.clickedButton() == cancelButton) return platform::box::answerCancel;
  return platform::box::answerNo;
}

std::string Desk::input(const std::string& prompt, const std::string& title) {
  const PlainPointer plain(busy_);
  QInputDialog box(parent());
  box.setObjectName("InputBox");
  box.setWindowTitle(qt(title));
  box.setLabelText(qt(prompt).replace("\r\n", "\n"));
  box.setOkButtonText(ok);
  box.setCancelButtonText(cancel);
  return box.exec() == QDialog::Accepted ? box.textValue().toStdString() : std::string();
}

platform::FileChoice Desk::askFile(const platform::FileDialog& wanted, bool save) {
  const PlainPointer plain(busy_);
  QFileDialog dialog(parent(), qt(wanted.title), qt(wanted.folder), filterOf(wanted.filter));
  dialog.setObjectName("FileDialog");
  // The toolkit's own dialog: only to that one the read-only box can be added.
  dialog.setOption(QFileDialog::DontUseNativeDialog);
  const bool folder = wanted.filter.ends_with(folderPattern);
  dialog.setAcceptMode(save && !folder ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
  dialog.setFileMode(save ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
  if (folder) {
    dialog.setFileMode(QFileDialog::Directory);
    dialog.setOption(QFileDialog::ShowDirsOnly);
  }
  if (!wanted.fileName.empty()) dialog.selectFile(qt(wanted.fileName));
  dialog.setDefaultSuffix(qt(wanted.extension));
  QCheckBox* readOnlyBox = nullptr;
  if (!save && (wanted.flags & store::hideReadOnly) == 0) {
    readOnlyBox = new QCheckBox(readOnly, &dialog);
    readOnlyBox->setObjectName("ReadOnly");
    if (auto* grid = qobject_cast<QGridLayout*>(dialog.layout()))
      grid->addWidget(readOnlyBox, grid->rowCount(), 0, 1, -1);
  }
  if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
    throw base::Error(platform::cancelled, "The file dialog was cancelled.");
  return {dialog.selectedFiles().first().toStdString(), readOnlyBox != nullptr && readOnlyBox->isChecked()};
}

platform::FileChoice Desk::openFile(const platform::FileDialog& dialog) {
  return askFile(dialog, false);
}
platform::FileChoice Desk::saveFile(const platform::FileDialog& dialog) {
  return askFile(dialog, true);
}

void Desk::showModal(platform::Form& form) {
  const PlainPointer plain(busy_);
  modal(form);
}

}  // namespace desktop
