#pragma once

#include <QBoxLayout>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <functional>
#include <string>
#include <vector>

#include "desktop/kit/gate.h"
#include "desktop/kit/grid.h"
#include "desktop/kit/text.h"
#include "shell/session/texts.h"

namespace desktop {

/// The controls of one window. Each is made with its documented name, its caption (a key of the labels) and
/// the place in the form that it shows; draw() brings all of them up to date with the form. What the user
/// does goes through the gate. The form outlives the face; the window owns the controls.
class Face {
 public:
  using Operation = std::function<void()>;
  using TextOperation = std::function<void(const std::string&)>;
  using Condition = std::function<bool()>;

  Face(Gate& gate, QWidget& window, std::string formName);
  ~Face();
  Face(const Face&) = delete;
  Face& operator=(const Face&) = delete;

  Gate& gate() { return gate_; }
  session::Session& session() { return gate_.session(); }
  QString caption(int label) const;
  /// Runs a command of this window.
  void run(const Operation& operation) { gate_.run(formName_, operation); }
  void draw();
  /// Anything else that follows the form.
  void onDraw(Operation step) { steps_.push_back(std::move(step)); }

  // Controls. A text that `changed` gets was typed; without `changed` it is stored into `text`.
  QLabel& label(int caption);
  /// A label whose text follows the form.
  QLabel& shown(const char* objectName, std::function<std::string()> text);
  QLineEdit& line(const char* objectName, int caption, std::string& text, TextOperation changed = {});
  QPlainTextEdit& memo(const char* objectName, int caption, std::string& text, TextOperation changed = {});
  QCheckBox& check(const char* objectName, int caption, bool& on, Operation changed = {});
  QPushButton& button(const char* objectName, int caption, Operation operation, Condition enabled = {});
  /// One of a group of which one is chosen. The group is the parent's, as the toolkit has it.
  QRadioButton& radio(const char* objectName, int caption, Condition on, Operation chosen);
  /// A combo to choose from; `chosen` gets the text.
  QComboBox& combo(const char* objectName, int caption, std::function<std::vector<std::string>()> items,
                   std::function<std::string()> current, TextOperation chosen);
  /// A list of texts. A row counts from 0.
  QListWidget& list(const char* objectName, int caption, std::function<std::vector<std::string>()> items,
                    std::function<int()> current, std::function<void(int)> selected);
  Grid& grid(const char* objectName, int caption);

  /// Puts a caption before a control in one row, with the caption's accelerator on the control.
  QHBoxLayout* labelled(int caption, QWidget& control);
  /// The caption above the control.
  QVBoxLayout* below(int caption, QWidget& control);

 private:
  Gate& gate_;
  QWidget& window_;
  std::string formName_;
  std::vector<Operation> steps_;
  int id_;
};

}  // namespace desktop
