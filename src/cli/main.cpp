#include <clocale>
#include <filesystem>
#include <iostream>
#include <string>
#include <vector>

#include "cli/application.h"

int main(int argc, char** argv) {
  try {
    std::setlocale(LC_ALL, "C.UTF-8");
    const auto program = std::filesystem::read_symlink("/proc/self/exe").parent_path().string();
    return cli::runCommandLine(std::vector<std::string>(argv + 1, argv + argc), program);
  } catch (const std::exception& failure) {
    std::cerr << failure.what() << std::endl;
    return 1;
  }
}
