#include <clocale>
#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <string>
#include <vector>

#include "cli/application.h"

int main(int argc, char** argv) {
  try {
    std::setlocale(LC_ALL, "C.UTF-8");
    // Readers of pictures would tell on the console what the command tells as well.
    setenv("QT_LOGGING_RULES", "qt.gui.imageio=false", 0);
    const auto program = std::filesystem::read_symlink("/proc/self/exe").parent_path().string();
    return cli::runCommandLine(std::vector<std::string>(argv + 1, argv + argc), program);
  } catch (const std::exception& failure) {
    std::cerr << failure.what() << std::endl;
    return 1;
  }
}
