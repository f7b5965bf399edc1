#pragma once

#include <QDialog>
#include <functional>
#include <string>

#include "desktop/kit/face.h"

class QDialogButtonBox;
class QVBoxLayout;

namespace desktop {

/// Keeps the size and place of a window over restarts, by its form's name.
void restorePlace(session::Session& s, QWidget& window, const std::string& formName);
void keepPlace(session::Session& s, const QWidget& window, const std::string& formName);

/// A modal window over a form. It runs until `finish` or, where the form itself knows, until `isOpen` says
/// no behind a command.
class Dialog : public QDialog {
 public:
  Dialog(Gate& gate, QWidget* parent, const std::string& formName);
  /// `title` is a key of the labels.
  void showTitle(int title);

  Face face;
  std::function<void()> start;   ///< the first command of the visit, once the window is there
  std::function<bool()> isOpen;  ///< empty: until `finish`
  std::function<void()> close;   ///< what Escape and the close box do; empty: finish
  bool keepsPlace = true;        ///< opens again where it was and as large
  std::string helpTopic;  ///< of F1 and the help button: the form's name; empty: no button, the contents page

  /// Shows the window and returns when the visit is over.
  void run();
  void finish() { finished_ = true; }
  /// A row of buttons at the lower edge, the last ones at the right; the first is the help button where there
  /// is a topic.
  QPushButton& helpButton();
  /// A button that finishes the visit.
  QPushButton& closeButton();
  QHBoxLayout* buttonRow(std::initializer_list<QWidget*> left, std::initializer_list<QWidget*> right);

 protected:
  void reject() override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void leaveWhenOver();
  bool finished_ = false;
};

}  // namespace desktop
