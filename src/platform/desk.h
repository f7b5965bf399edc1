#pragma once

#include <string>
#include <string_view>
#include <vector>

/// What the desktop gives to the operations, as small ports. The windows, the command line and the tests
/// each implement them; operations see nothing else of the world outside.
namespace platform {

/// Flag sums of message boxes, and the answers.
namespace box {
inline constexpr int ok = 0, yesNo = 36, exclamation = 48, information = 64, yesNoCancel = 35;
inline constexpr int answerOk = 1, answerCancel = 2, answerYes = 6, answerNo = 7;
}  // namespace box

/// The documented error of a cancelled file dialog.
inline constexpr int cancelled = 32755;

struct FileDialog {
  std::string folder;     ///< where it starts
  std::string fileName;   ///< prefilled
  std::string extension;  ///< default extension, without a point
  std::string title;
  std::string filter;  ///< "label|pattern|label|pattern"
  int flags = 0;
};
struct FileChoice {
  std::string path;       ///< real spelling, absolute
  bool readOnly = false;  ///< the read-only box was ticked
};

/// A modal form: a struct with state and free operations in its subsystem. A desk that shows it knows
/// the form by its name.
struct Form {
  explicit Form(std::string_view documentedName) : formName(documentedName) {}
  virtual ~Form() = default;
  Form(const Form&) = delete;
  Form& operator=(const Form&) = delete;
  const std::string formName;
};

/// Questions and answers. Before a box is shown, gathered writes are committed (the session sees to it).
class Boxes {
 public:
  virtual ~Boxes() = default;
  /// Shows a box with a flag sum of `box`; returns the answer.
  virtual int message(const std::string& text, int flags, const std::string& title) = 0;
  /// Asks for a line of text; empty when cancelled.
  virtual std::string input(const std::string& prompt, const std::string& title) = 0;
  /// Throw Error 32755 when cancelled.
  virtual FileChoice openFile(const FileDialog& dialog) = 0;
  virtual FileChoice saveFile(const FileDialog& dialog) = 0;
  /// Runs the form until it is closed.
  virtual void showModal(Form& form) = 0;
};

/// What the frame shows while operations run. Nothing here throws.
class Screen {
 public:
  virtual ~Screen() = default;
  virtual void setBusyPointer(bool busy) = 0;
  virtual void setStatus(const std::string& label) = 0;     ///< painted at once
  virtual void setCaption(const std::string& caption) = 0;  ///< of the frame
  virtual void showProgress(const std::string& caption) = 0;
  virtual void setProgress(double percent, const std::string& label) = 0;
  virtual void hideProgress() = 0;
  /// Serves the message loop once. Operations come here through session::turnLoop, which commits first
  /// and lets a call a row through every 50 ms.
  virtual void turnLoop() = 0;
};

/// The rest of the desktop.
class Outside {
 public:
  virtual ~Outside() = default;
  virtual void setClipboard(const std::string& text) = 0;
  /// Opens a file, folder or address with the desktop's association; throws 53 when nothing takes it.
  virtual void open(const std::string& target) = 0;
  /// Starts a command line without waiting for it; throws 53.
  virtual void start(const std::string& commandLine) = 0;
  virtual bool soundDevicePresent() = 0;
  virtual std::vector<std::string> fontNames() = 0;
  /// The desktop's default printer as "name,driver,port"; empty when there is none.
  virtual std::string defaultPrinter() = 0;
};

class Images;
class PictureClipboard;
class Scanner;
class Sound;

/// The error of an operation on pictures or sound that this desk has no port for.
inline constexpr int noMedia = 492;

/// Devices and files of pictures and sound; null where a desk has none. Owned by whoever owns the desk.
struct Media {
  Images* images = nullptr;
  PictureClipboard* clipboard = nullptr;
  Scanner* scanner = nullptr;
  Sound* sound = nullptr;
};

struct Desk {
  Boxes& boxes;
  Screen& screen;
  Outside& outside;
  Media media{};
};

}  // namespace platform
