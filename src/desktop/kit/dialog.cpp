#include "desktop/kit/dialog.h"

#include <QEventLoop>
#include <QKeyEvent>
#include <QSettings>

#include "catalogue/label.h"
#include "shell/session/routines.h"

namespace desktop {
namespace {

/// Places of windows stand beside the settings file, which is rewritten whole and has no room for them.
QString placesFile(const session::Session& s) {
  return qt(s.files.paths.real(s.folders.AppConfigPath).string() + "/Windows.ini");
}

}  // namespace

void restorePlace(session::Session& s, QWidget& window, const std::string& formName) {
  const QSettings stored(placesFile(s), QSettings::IniFormat);
  const QByteArray place = stored.value(qt(formName)).toByteArray();
  if (!place.isEmpty()) window.restoreGeometry(place);
}

void keepPlace(session::Session& s, const QWidget& window, const std::string& formName) {
  QSettings stored(placesFile(s), QSettings::IniFormat);
  stored.setValue(qt(formName), window.saveGeometry());
}

Dialog::Dialog(Gate& gate, QWidget* parent, const std::string& formName)
    : QDialog(parent), face(gate, *this, formName), helpTopic(formName) {
  setModal(true);
  setSizeGripEnabled(true);
  face.onDraw([this] { leaveWhenOver(); });
}

void Dialog::showTitle(int title) {
  setWindowTitle(face.caption(title));
}

void Dialog::run() {
  session::Session& s = face.session();
  const std::string formName = objectName().toStdString();
  if (keepsPlace) restorePlace(s, *this, formName);
  if (start) face.run(start);
  if (finished_ || (isOpen && !isOpen())) return;
  face.draw();
  exec();
  if (keepsPlace) keepPlace(s, *this, formName);
}

void Dialog::leaveWhenOver() {
  if (isVisible() && (finished_ || (isOpen && !isOpen()))) done(Accepted);
}

void Dialog::reject() {
  if (close)
    face.run(close);
  else
    face.run([this] { finish(); });
}

void Dialog::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_F1)
    face.run([this] { session::ShowHelpTopic(face.session(), helpTopic); });
  else
    QDialog::keyPressEvent(event);
}

QPushButton& Dialog::helpButton() {
  return face.button("Help", label::help, [this] { session::ShowHelpTopic(face.session(), helpTopic); });
}

QPushButton& Dialog::closeButton() {
  return face.button("Close", label::close, [this] { finish(); });
}

QHBoxLayout* Dialog::buttonRow(std::initializer_list<QWidget*> left, std::initializer_list<QWidget*> right) {
  auto* row = new QHBoxLayout;
  if (!helpTopic.empty()) row->addWidget(&helpButton());
  for (QWidget* each : left) row->addWidget(each);
  row->addStretch(1);
  for (QWidget* each : right) row->addWidget(each);
  return row;
}

}  // namespace desktop
