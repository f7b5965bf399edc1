#pragma once

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QFileDialog>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QTabWidget>
#include <QTableView>
#include <QTest>
#include <QTimer>
#include <cstdlib>
#include <deque>
#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <utility>

#include "desktop/application.h"
#include "desktop/shell/main_window.h"
#include "support/temp_dir.h"

/// The program with its windows on a platform without a display, and a user who clicks and types in them.
/// What the user does in a modal window is laid down before the click that opens it. A modal window that
/// nothing was laid down for ends the test by an exception from the click that opened it.
class User {
 public:
  using Deeds = std::function<void(QWidget&)>;

  explicit User(bool english = false) : english_(english) {
    toolkit();
    setenv("APPDATA", home.path().c_str(), 1);
    app = std::make_unique<desktop::Application>(VOCARIUM_BINARY_DIR, english_);
    QObject::connect(&clock_, &QTimer::timeout, [this] { serveModal(); });
    clock_.start(2);
    app->showFrame();
  }
  ~User() { clock_.stop(); }
  User(const User&) = delete;
  User& operator=(const User&) = delete;

  /// Ends the program and starts it again with what it left on disk.
  void restart() {
    app.reset();
    app = std::make_unique<desktop::Application>(VOCARIUM_BINARY_DIR, english_);
    app->showFrame();
    rethrow();
  }

  /// The one toolkit of the process; it lives until the end.
  static void toolkit() {
    static int count = 1;
    static char name[] = "vocarium";
    static char* arguments[] = {name, nullptr};
    if (qEnvironmentVariableIsEmpty("VOCARIUM_SHOW_TESTS")) qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_LOGGING_RULES", "qt.qpa.*=false;qt.multimedia.*=false");
    static auto* toolkit = new QApplication(count, arguments);
    toolkit->setQuitOnLastWindowClosed(false);
  }

  /// Does `deeds` in the next modal window, which must bear this name.
  void in(std::string window, Deeds deeds) { plans_.emplace_back(std::move(window), std::move(deeds)); }
  /// Presses a button of the next message box ("Yes", "No"; the only one where empty), whose text holds
  /// `part`.
  void answer(const char* button, const std::string& part = "") {
    in("MessageBox", [this, button, part](QWidget& box) {
      const QString text = box.property("text").toString();
      told.push_back(text.toStdString());
      if (!text.contains(QString::fromStdString(part)))
        throw std::runtime_error("asked: " + text.toStdString() + "\nexpected: " + part);
      if (button == nullptr) return void(QTest::keyClick(&box, Qt::Key_Escape));
      for (QAbstractButton* each : box.findChildren<QAbstractButton*>())
        if (*button == '\0' || each->objectName() == button) return each->click();
      throw std::runtime_error(std::string("The box has no button ") + button);
    });
  }
  void chooseFile(const std::string& path) {
    in("FileDialog", [path](QWidget& dialog) {
      auto& chooser = dynamic_cast<QFileDialog&>(dialog);
      auto* box = chooser.findChild<QLineEdit*>("fileNameEdit");
      box->setText(QString::fromStdString(path));
      QTest::keyClick(box, Qt::Key_Return);
    });
  }

  /// A control by its documented name below a window; throws when there is none.
  template <class Control>
  static Control& find(QWidget& window, const char* name) {
    auto* found = window.findChild<Control*>(name);
    if (found == nullptr)
      throw std::runtime_error(window.objectName().toStdString() + " has no control " + name);
    return *found;
  }
  template <class Control>
  Control& find(const char* name) {
    return find<Control>(*app->window, name);
  }

  void click(QWidget& window, const char* button) {
    auto& found = find<QAbstractButton>(window, button);
    if (!found.isEnabled()) throw std::runtime_error(std::string(button) + " is not enabled");
    if (!found.isVisibleTo(&window)) throw std::runtime_error(std::string(button) + " is not shown");
    found.click();
    rethrow();
  }
  void choose(const char* menuItem) {
    auto* action = app->window->findChild<QAction*>(menuItem);
    if (action == nullptr || !action->isEnabled())
      throw std::runtime_error(std::string(menuItem) + " can not be chosen");
    action->trigger();
    rethrow();
  }
  /// Empties a box and types.
  void type(QWidget& window, const char* box, const std::string& text) {
    auto& found = find<QWidget>(window, box);
    found.setFocus();
    QTest::keyClick(&found, Qt::Key_A, Qt::ControlModifier);
    if (text.empty()) QTest::keyClick(&found, Qt::Key_Delete);
    // The test library's keys are Latin; other text comes the way of an input method.
    QInputMethodEvent typed;
    typed.setCommitString(QString::fromStdString(text));
    if (!text.empty()) QApplication::sendEvent(&found, &typed);
    rethrow();
  }
  void press(QWidget& window, const char* box, Qt::Key key) {
    QTest::keyClick(&find<QWidget>(window, box), key);
    rethrow();
  }
  void tab(QWidget& window, const char* tabs, int index) {
    find<QTabWidget>(window, tabs).setCurrentIndex(index);
    rethrow();
  }
  static void cell(QWidget& window, const char* grid, int row, int column, const std::string& text) {
    QAbstractItemModel& model = *find<QTableView>(window, grid).model();
    model.setData(model.index(row, column), QString::fromStdString(text), Qt::EditRole);
  }
  static std::string textAt(QWidget& window, const char* grid, int row, int column) {
    const QAbstractItemModel& model = *find<QTableView>(window, grid).model();
    return model.index(row, column).data().toString().toStdString();
  }
  void pickRow(QWidget& window, const char* grid, int row) {
    auto& found = find<QTableView>(window, grid);
    found.setCurrentIndex(found.model()->index(row, 0));
    rethrow();
  }

  /// Waits for what a timer or a queued call brings.
  void settle() {
    QApplication::processEvents();
    rethrow();
  }
  bool hasPlans() const { return !plans_.empty(); }

  /// The error log; empty when nothing was reported.
  std::string log() const {
    const session::Session& s = app->session;
    const auto path = s.files.paths.real(s.folders.AppConfigPath + "/Vocarium_Error_Log.TXT");
    return std::filesystem::exists(path) ? test::TempDir::read(path) : "";
  }

  test::TempDir home;
  std::unique_ptr<desktop::Application> app;
  std::vector<std::string> told;  ///< texts of the boxes

 private:
  void serveModal() {
    QWidget* modal = QApplication::activeModalWidget();
    if (modal == nullptr || modal == serving_ || !modal->isVisible()) return;
    QWidget* const before = std::exchange(serving_, modal);
    try {
      if (plans_.empty() || plans_.front().first != modal->objectName().toStdString())
        throw std::runtime_error("window that was not expected: " + modal->objectName().toStdString() + " " +
                                 modal->property("text").toString().toStdString());
      const Deeds deeds = plans_.front().second;
      plans_.pop_front();
      // A timer does not fire while its own slot runs: what the deeds open needs another one.
      QTimer nested;
      QObject::connect(&nested, &QTimer::timeout, [this] { serveModal(); });
      nested.start(2);
      deeds(*modal);
    } catch (...) {
      // An exception must not pass through the toolkit: it is thrown again behind the click.
      if (!failure_) failure_ = std::current_exception();
      closeAll(modal);
    }
    serving_ = before;
  }
  static void closeAll(QWidget* modal) {
    if (auto* dialog = qobject_cast<QDialog*>(modal)) dialog->done(0);
  }
  void rethrow() {
    if (failure_ && serving_ == nullptr) std::rethrow_exception(std::exchange(failure_, nullptr));
    if (failure_) std::rethrow_exception(failure_);
  }

  bool english_;
  QTimer clock_;
  QWidget* serving_ = nullptr;
  std::exception_ptr failure_;
  std::deque<std::pair<std::string, Deeds>> plans_;
};
