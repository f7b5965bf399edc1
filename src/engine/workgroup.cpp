#include "engine/workgroup.h"

#include <sodium.h>

#include <array>
#include <filesystem>
#include <fstream>

#include "base/text.h"
#include "engine/workspace.h"

namespace engine {

namespace {

constexpr const char* firstLine = "Vocarium workgroup 1";
// A few milliseconds: it is checked at every start.
constexpr unsigned long long effort = 2;
constexpr std::size_t memory = std::size_t{4} << 20;

[[noreturn]] void refuse(const std::string& path, const std::string& user) {
  throw Error(errors::badLogin,
              "The workgroup file " + path + " does not know the user \"" + user + "\" with this password.");
}

void startCryptography() {
  if (sodium_init() < 0) throw Error(errors::permissionDenied, "The cryptographic library does not start.");
}

}  // namespace

void checkLogin(const std::string& path, const std::string& user, const std::string& password) {
  startCryptography();
  std::ifstream file(path);
  if (!file) throw Error(errors::badPath, "The workgroup file " + path + " can not be read.");
  std::string line;
  if (!std::getline(file, line) || line != firstLine) {
    throw Error(errors::notADictionary, path + " is not a workgroup file.");
  }
  while (std::getline(file, line)) {
    const auto tab = line.rfind('\t');
    if (tab == std::string::npos || !base::equalsIgnoreCase(line.substr(0, tab), user)) continue;
    const std::string hash = line.substr(tab + 1);
    if (crypto_pwhash_str_verify(hash.c_str(), password.data(), password.size()) == 0) return;
  }
  refuse(path, user);
}

void createWorkgroupFile(const std::string& path, const std::string& user, const std::string& password) {
  startCryptography();
  if (user.empty() || user.find_first_of("\t\n") != std::string::npos) {
    throw Error(errors::invalidArgument, "\"" + user + "\" can not be the name of a user.");
  }
  std::array<char, crypto_pwhash_STRBYTES> hash{};
  if (crypto_pwhash_str(hash.data(), password.data(), password.size(), effort, memory) != 0) {
    throw Error(errors::permissionDenied, "There is not enough memory to hash the password.");
  }
  const std::string temporary = path + ".new";
  {
    std::ofstream file(temporary, std::ios::trunc);
    file << firstLine << '\n' << user << '\t' << hash.data() << '\n';
    file.close();
    if (!file) throw Error(errors::badPath, "The workgroup file " + path + " can not be written.");
  }
  std::error_code problem;
  std::filesystem::rename(temporary, path, problem);
  if (problem) throw Error(errors::badPath, "The workgroup file " + path + " can not be written.");
}

}  // namespace engine
