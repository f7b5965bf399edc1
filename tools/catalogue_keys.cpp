// catalogue-keys FOLDER LIST HEADER: writes the keys of one list of the text catalogue as constants. A header
// whose keys are the same is left untouched: a reworded text then rebuilds nothing.
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <sstream>

#include "catalogue.h"

namespace {

// The texts themselves stay out: a reworded one must not change the header.
std::string header(const std::string& folder, const catalogue::Kind& kind) {
  const auto texts = catalogue::read(folder, kind.name);
  std::ostringstream out;
  out << "#pragma once\n\n/// Positions in " << kind.table << ". Made from data/catalogue/" << kind.name
      << ".tsv by the build: add a text there, not here.\nnamespace " << kind.name << " {\n";
  for (std::size_t n = 0; n < texts.size(); ++n)
    if (!texts[n].key.empty()) out << "inline constexpr int " << texts[n].key << " = " << n << ";\n";
  out << "}  // namespace " << kind.name << "\n";
  return out.str();
}

std::string content(const std::filesystem::path& file) {
  std::ifstream in(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), {}};
}

}  // namespace

int main(int argc, char** argv) try {
  const auto kind =
      std::find_if(std::begin(catalogue::kinds), std::end(catalogue::kinds),
                   [&](const catalogue::Kind& k) { return argc == 4 && argv[2] == std::string(k.name); });
  if (kind == std::end(catalogue::kinds)) {
    std::cerr << "usage: catalogue-keys FOLDER menu|label|dialog|print HEADER\n";
    return 2;
  }
  const std::string text = header(argv[1], *kind);
  const std::filesystem::path target = argv[3];
  if (content(target) == text) return 0;
  std::filesystem::create_directories(target.parent_path());
  std::ofstream out(target, std::ios::binary | std::ios::trunc);
  out << text << std::flush;
  if (!out) {
    std::cerr << argv[3] << ": can not be written\n";
    return 1;
  }
  return 0;
} catch (const std::exception& error) {
  std::cerr << error.what() << "\n";
  return 1;
}
