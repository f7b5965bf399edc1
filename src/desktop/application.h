#pragma once

#include <QTranslator>
#include <memory>
#include <string>

#include "desktop/kit/gate.h"
#include "desktop/ports/desk.h"
#include "shell/frame/frmMDI.h"
#include "shell/session/session.h"

namespace desktop {

class MainWindow;

/// The process with windows: the ports, the session, the frame's form and its window. A test makes one
/// of its own.
class Application {
 public:
  /// Starts up to the loaded frame, in German or English, without showing anything. Throws 32755 when that
  /// failed; the user was told why.
  Application(const std::string& programPath, bool english);
  ~Application();
  Application(const Application&) = delete;
  Application& operator=(const Application&) = delete;

  /// Shows the frame and reopens the last dictionary.
  void showFrame();

  Desk desk;
  session::Session session;
  frame::frmMDI frame;
  Gate gate;
  std::unique_ptr<MainWindow> window;

 private:
  QTranslator toolkitTexts_;  ///< of the toolkit's own dialogs and menus
};

}  // namespace desktop
