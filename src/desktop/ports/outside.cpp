#include <QApplication>
#include <QClipboard>
#include <QDesktopServices>
#include <QFileInfo>
#include <QFontDatabase>
#include <QPrinterInfo>
#include <QProcess>
#include <QUrl>

#include "base/error.h"
#include "desktop/kit/text.h"
#include "desktop/ports/desk.h"

namespace desktop {

void Desk::setClipboard(const std::string& text) {
  QApplication::clipboard()->setText(qt(text));
}

void Desk::open(const std::string& target) {
  if (help && help(target)) return;
  const QString text = qt(target);
  const QUrl url = QFileInfo::exists(text) ? QUrl::fromLocalFile(text) : QUrl::fromUserInput(text);
  if (!url.isValid() || !QDesktopServices::openUrl(url))
    throw base::Error(53, "Nothing on this system opens " + target + ".");
}

void Desk::start(const std::string& commandLine) {
  QStringList words = QProcess::splitCommand(qt(commandLine));
  if (words.isEmpty()) throw base::Error(53, "There is no program to start.");
  const QString program = words.takeFirst();
  if (!QProcess::startDetached(program, words))
    throw base::Error(53, "The program " + program.toStdString() + " could not be started.");
}

bool Desk::soundDevicePresent() {
  return media_.soundDevicePresent();
}

std::vector<std::string> Desk::fontNames() {
  std::vector<std::string> names;
  for (const QString& family : QFontDatabase::families()) names.push_back(family.toStdString());
  return names;
}

std::string Desk::defaultPrinter() {
  const QString printer = QPrinterInfo::defaultPrinterName();
  return printer.isEmpty() ? std::string() : printer.toStdString() + ",cups,local";
}

}  // namespace desktop
