#include <QApplication>
#include <QCommandLineParser>
#include <QLocale>
#include <QTimer>
#include <clocale>
#include <filesystem>
#include <iostream>
#include <memory>

#include "desktop/application.h"
#include "desktop/shell/splash.h"

namespace {

/// English where the start asks for it, or the desktop's language is neither asked against nor German.
bool wantsEnglish(const QString& language) {
  if (!language.isEmpty()) return language.startsWith("en", Qt::CaseInsensitive);
  return QLocale::system().language() == QLocale::English && QLocale::system().name() != "C";
}

int run(QApplication& toolkit) {
  QCommandLineParser arguments;
  arguments.setApplicationDescription("Vocarium, the program for people who make dictionaries.");
  arguments.addHelpOption();
  arguments.addOption({"language", "Language of the windows: de or en.", "language"});
  arguments.process(toolkit);
  const QString language = arguments.value("language");
  if (!language.isEmpty() && language != "de" && language != "en") {
    std::cerr << "--language is de or en." << std::endl;
    return 2;
  }
  const auto program = std::filesystem::read_symlink("/proc/self/exe").parent_path().string();
  desktop::Application application(program, wantsEnglish(language));
  desktop::Splash splash(application);
  splash.show();
  QTimer::singleShot(frame::splashMilliseconds, &splash, [&] {
    application.showFrame();
    splash.close();
  });
  return QApplication::exec();
}

}  // namespace

int main(int argc, char** argv) {
  QApplication toolkit(argc, argv);
  // The toolkit takes over the desktop's locale; numbers in the data are written without it.
  std::setlocale(LC_ALL, "C.UTF-8");
  QApplication::setApplicationName("Vocarium");
  QApplication::setQuitOnLastWindowClosed(false);
  try {
    return run(toolkit);
  } catch (const std::exception& failure) {
    std::cerr << failure.what() << std::endl;
    return 1;
  }
}
