#include "desktop/kit/text.h"

#include <QApplication>
#include <QFontDatabase>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTextOption>

#include "store/rows.h"

namespace desktop {
namespace {

bool setting(session::Session& s, const char* field) {
  auto row = s.files.CurrentDB.OpenRecordset("Sprache", engine::RecordsetKind::snapshot);
  return !row.EndOfFile() && store::truth(row[field]);
}

}  // namespace

QFont fontNamed(const std::string& name, bool phonetic) {
  static const QStringList installed = QFontDatabase::families();
  QFont font = QApplication::font();
  const QStringList wanted = phonetic ? QStringList{qt(name), "Charis SIL", "Noto Sans", "DejaVu Sans"}
                                      : QStringList{qt(name), "Noto Sans", "DejaVu Sans"};
  for (const QString& family : wanted) {
    if (family.isEmpty() || !installed.contains(family, Qt::CaseInsensitive)) continue;
    font.setFamily(family);
    break;
  }
  return font;
}

void showText(QLineEdit& box, const std::string& text) {
  if (const QString wanted = qt(text); box.text() != wanted) box.setText(wanted);
}

void showText(QPlainTextEdit& box, const std::string& text) {
  // The box knows lines, the data carriage returns before them.
  const QString wanted = qt(text).replace("\r\n", "\n");
  if (box.toPlainText() != wanted) box.setPlainText(wanted);
}

bool sourceFromRight(session::Session& s) {
  return setting(s, "RightToLeftFrom");
}
bool targetFromRight(session::Session& s) {
  return setting(s, "RightToLeftTo");
}

void setDirection(QWidget& box, bool fromRight) {
  const Qt::LayoutDirection direction = fromRight ? Qt::RightToLeft : Qt::LeftToRight;
  box.setLayoutDirection(direction);
  // A text of several lines asks its document, not the box.
  if (auto* memo = qobject_cast<QPlainTextEdit*>(&box)) {
    QTextOption option = memo->document()->defaultTextOption();
    option.setTextDirection(fromRight ? Qt::RightToLeft : Qt::LayoutDirectionAuto);
    option.setAlignment(fromRight ? Qt::AlignRight : Qt::AlignLeft);
    memo->document()->setDefaultTextOption(option);
  }
}

void name(QWidget& control, const char* objectName, const QString& accessibleName) {
  control.setObjectName(objectName);
  control.setAccessibleName(spoken(accessibleName));
}

QString spoken(const QString& caption) {
  QString text = caption;
  text.remove('&');
  while (text.endsWith(':') || text.endsWith(' ')) text.chop(1);
  return text;
}

}  // namespace desktop
