#pragma once

#include <QWidget>

#include "browse/frmWoerter.h"
#include "desktop/kit/face.h"

class QScrollArea;
class QStackedWidget;
class QTabWidget;
class QTextBrowser;

namespace desktop {

class Application;
class EntryPage;

/// The selected entry: as the written page, or in labels and grids on tabs, as the dictionary wants it.
class DisplayPanel : public QWidget {
 public:
  DisplayPanel(Application& app, Face& face, browse::frmWoerter& form);

 private:
  struct Tab {
    Grid* grid = nullptr;
    browse::Grid browse::EntryDisplay::*rows = nullptr;
    int caption = 0;
    int index = 0;
  };
  QWidget* buildGrids();
  void addTab(QTabWidget& tabs, const char* objectName, int caption, browse::Grid browse::EntryDisplay::*rows,
              bool (*clicked)(browse::frmWoerter&, std::size_t));
  void draw();
  void drawGrids();

  Application& app_;
  Face& face_;
  browse::frmWoerter& form_;
  QStackedWidget* views_ = nullptr;
  EntryPage* page_ = nullptr;  ///< WebBrowser1
  QTabWidget* tabs_ = nullptr;
  std::vector<Tab> grids_;
  QLabel *headword_ = nullptr, *pronunciation_ = nullptr, *created_ = nullptr, *dictionary_ = nullptr;
  QPlainTextEdit* note_ = nullptr;
};

}  // namespace desktop
