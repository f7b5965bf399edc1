#pragma once

#include <QFont>
#include <QString>
#include <string>

#include "shell/session/session.h"

class QLineEdit;
class QPlainTextEdit;
class QWidget;

/// Texts and fonts between the program and the toolkit.
namespace desktop {

inline QString qt(const std::string& text) {
  return QString::fromStdString(text);
}

/// A font by the name that a dictionary stores; where the system lacks it, one that covers the same
/// scripts: the phonetic characters for phonetic fonts, otherwise the widest that there is.
QFont fontNamed(const std::string& name, bool phonetic = false);

/// Sets a text where it differs, so that the box keeps cursor and undo otherwise.
void showText(QLineEdit& box, const std::string& text);
void showText(QPlainTextEdit& box, const std::string& text);

/// Whether the texts of the source or the target language run from right to left, as the dictionary sets it.
bool sourceFromRight(session::Session& s);
bool targetFromRight(session::Session& s);
/// Has a box read and write its texts from right to left, or from left to right.
void setDirection(QWidget& box, bool fromRight);

/// A control's documented name and what a screen reader says.
void name(QWidget& control, const char* objectName, const QString& accessibleName);

/// A caption without its accelerator and its closing colon, as accessible name.
QString spoken(const QString& caption);

}  // namespace desktop
