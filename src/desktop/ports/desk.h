#pragma once

#include <QPointer>
#include <functional>
#include <map>
#include <memory>
#include <string>

#include "platform/desk.h"
#include "platform/media/desktop_media.h"

class QEvent;
class QLabel;
class QMainWindow;
class QProgressBar;
class QWidget;

namespace desktop {

/// The desktop behind the ports: boxes, file dialogs, modal windows, pointer, status bar, progress,
/// clipboard, associations, devices of pictures and sound. `frame` is set once the frame's window stands; boxes
/// before it have no parent.
class Desk : public platform::Boxes, public platform::Screen, public platform::Outside {
 public:
  Desk();
  ~Desk() override;
  Desk(const Desk&) = delete;
  Desk& operator=(const Desk&) = delete;
  platform::Desk desk() { return {*this, *this, *this, media_.ports()}; }

  QPointer<QMainWindow> frame;
  QPointer<QLabel> status;
  /// Captions of the boxes' buttons, filled once the text catalogue is read.
  QString yes = "Yes", no = "No", cancel = "Cancel", ok = "OK", readOnly = "Read-only";
  /// Runs a modal form's window; throws 5 for a form that has none.
  std::function<void(platform::Form&)> modal;
  /// Shows a page of the help; false for any other target, which the desktop opens.
  std::function<bool(const std::string& page)> help;
  /// The frame was asked to close while a command ran.
  bool closeWanted = false;

  int message(const std::string& text, int flags, const std::string& title) override;
  std::string input(const std::string& prompt, const std::string& title) override;
  platform::FileChoice openFile(const platform::FileDialog& dialog) override;
  platform::FileChoice saveFile(const platform::FileDialog& dialog) override;
  void showModal(platform::Form& form) override;

  void setBusyPointer(bool busy) override;
  void setStatus(const std::string& label) override;
  void setCaption(const std::string& caption) override;
  void showProgress(const std::string& caption) override;
  void setProgress(double percent, const std::string& label) override;
  void hideProgress() override;
  void turnLoop() override;

  void setClipboard(const std::string& text) override;
  void open(const std::string& target) override;
  void start(const std::string& commandLine) override;
  bool soundDevicePresent() override;
  std::vector<std::string> fontNames() override;
  std::string defaultPrinter() override;

 private:
  platform::FileChoice askFile(const platform::FileDialog& dialog, bool save);
  QWidget* parent() const;

  platform::media::DesktopMedia media_;
  std::unique_ptr<QWidget> progress_;
  bool busy_ = false;
};

}  // namespace desktop
