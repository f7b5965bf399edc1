// catalogue-keys FOLDER HEADER: writes the keys of the text catalogue as constants.
#include <filesystem>
#include <fstream>
#include <iostream>
#include <sstream>

#include "catalogue.h"

namespace {

/// The English text as a comment: on one line and in quotes, so that it can neither end nor continue the
/// comment.
std::string comment(const std::string& text) {
  std::string line = "\"";
  for (const char c : text) line += c == '\n' ? std::string("\\n") : std::string(1, c);
  return line + "\"";
}

std::string header(const std::string& folder) {
  std::ostringstream out;
  out << "#pragma once\n\n"
         "/// Positions in the text catalogue. Made from data/catalogue by the build: add a text there, not "
         "here.\n\n";
  for (const catalogue::Kind& kind : catalogue::kinds) {
    const auto texts = catalogue::read(folder, kind.name);
    out << "/// Positions in " << kind.table << ".\nnamespace " << kind.name << " {\n";
    for (std::size_t n = 0; n < texts.size(); ++n)
      if (!texts[n].key.empty())
        out << "inline constexpr int " << texts[n].key << " = " << n << ";  ///< "
            << comment(texts[n].english) << "\n";
    out << "}  // namespace " << kind.name << "\n\n";
  }
  return out.str();
}

}  // namespace

int main(int argc, char** argv) try {
  if (argc != 3) {
    std::cerr << "usage: catalogue-keys FOLDER HEADER\n";
    return 2;
  }
  const std::string text = header(argv[1]);
  const std::filesystem::path target = argv[2];
  std::filesystem::create_directories(target.parent_path());
  std::ofstream out(target, std::ios::binary | std::ios::trunc);
  out << text << std::flush;
  if (!out) {
    std::cerr << argv[2] << ": can not be written\n";
    return 1;
  }
  return 0;
} catch (const std::exception& error) {
  std::cerr << error.what() << "\n";
  return 1;
}
