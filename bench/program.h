#pragma once

#include <string>

#include "cli/console_desk.h"
#include "shell/frame/frmMDI.h"

/// The program as a shell command runs it, and the dictionaries that benchmarks make with it. Anything that
/// fails ends the process.
namespace bench {

/// The program in a home of its own below a folder.
struct Program {
  explicit Program(const std::string& folder);
  void open(const std::string& path);
  /// Closes the dictionary; a changed one is compacted.
  void close();

  cli::Console console;
  session::Session session;
  frame::frmMDI frame;
};

/// Makes a dictionary by the wizard; it is open then.
void makeDictionary(Program& program, const std::string& path);
/// Imports a list that writeWordList wrote into the open dictionary.
void importList(Program& program, const std::string& list);
/// The dictionary below the folder that holds the first `count` of the made words, imported and closed. It is
/// made where it is not there yet, by a process of its own: its memory is not what is measured.
std::string importedDictionary(const std::string& folder, std::size_t count);

}  // namespace bench
