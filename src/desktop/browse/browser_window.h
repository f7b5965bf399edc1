#pragma once

#include <QWidget>
#include <memory>
#include <vector>

#include "browse/frmWoerter.h"
#include "desktop/kit/face.h"
#include "shell/frame/frmMDI.h"

class QListWidget;
class QPushButton;
class QTextBrowser;
class QToolButton;

namespace desktop {

class Application;

/// An entry browser in the frame: letters, page of the word list, and the selected entry beside it.
class BrowserWindow : public QWidget {
 public:
  BrowserWindow(Application& app, browse::frmWoerter& form);
  ~BrowserWindow() override;

  browse::frmWoerter& form() { return form_; }

 protected:
  bool eventFilter(QObject* object, QEvent* event) override;
  void closeEvent(QCloseEvent* event) override;

 private:
  QWidget* buildLetters();
  QWidget* buildList();
  QWidget* buildDisplay();
  void draw();
  void drawList();
  void drawLetters();
  void listKey(int key);
  void command(bool (*run)(browse::frmWoerter&));

  Application& app_;
  browse::frmWoerter& form_;
  Face face_;
  std::vector<QToolButton*> letters_;
  QToolButton* allLetters_ = nullptr;
  QListWidget* words_ = nullptr;  ///< List2
  QLineEdit* box_ = nullptr;      ///< Text3
  QToolButton *back_ = nullptr, *forward_ = nullptr;
  QLabel* page_ = nullptr;
};

}  // namespace desktop
