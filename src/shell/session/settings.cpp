#include "shell/session/settings.h"

#include <algorithm>
#include <fstream>
#include <sstream>
#include <vector>

#include "base/text.h"
#include "shell/session/routines.h"
#include "shell/session/start.h"

namespace session {
namespace {

constexpr std::size_t bufferLength = 128;

std::vector<std::string> readLines(const Session& s) {
  std::vector<std::string> lines;
  std::ifstream in(s.files.paths.real(settingsPath(s)), std::ios::binary);
  for (std::string line; std::getline(in, line);) {
    if (!line.empty() && line.back() == '\r') line.pop_back();
    lines.push_back(std::move(line));
  }
  return lines;
}

bool isSection(std::string_view line) {
  return line.size() >= 2 && line.front() == '[' && line.back() == ']';
}

bool isSectionNamed(const std::string& line, std::string_view section) {
  const std::string trimmed = base::trim(line);
  return isSection(trimmed) && base::equalsIgnoreCase(trimmed.substr(1, trimmed.size() - 2), section);
}

struct Place {
  std::size_t section;  ///< line of the section, the number of lines where there is none
  std::size_t key;      ///< line of the key, likewise
};

Place find(const std::vector<std::string>& lines, std::string_view section, std::string_view key) {
  Place place{lines.size(), lines.size()};
  const auto head =
      std::ranges::find_if(lines, [&](const auto& line) { return isSectionNamed(line, section); });
  if (head == lines.end()) return place;
  place.section = static_cast<std::size_t>(head - lines.begin());
  for (std::size_t i = place.section + 1; i < lines.size() && !isSection(base::trim(lines[i])); ++i) {
    const std::size_t equals = lines[i].find('=');
    if (equals == std::string::npos || !base::equalsIgnoreCase(base::trim(lines[i].substr(0, equals)), key))
      continue;
    place.key = i;
    break;
  }
  return place;
}

void appendSection(std::string& text, const std::string& section, const std::string& key,
                   const std::string& value) {
  text += "[" + section + "]\r\n" + key + "=" + value + "\r\n";
}

std::string folderSections(const Session& s) {
  const Folders environment = foldersFromEnvironment(s.folders.ProgramPath);
  std::string text;
  appendSection(text, "Corvanta", "AppPath", environment.AppPath);
  appendSection(text, "AppDataPath", "AppDataPath", environment.AppDataPath);
  appendSection(text, "AppConfigPath", "AppConfigPath", environment.AppConfigPath);
  appendSection(text, "Options", "SystemDB", environment.AppConfigPath + "/SYS.MDA");
  return text;
}

}  // namespace

std::string settingsPath(const Session& s) {
  return s.folders.AppConfigPath + "/Vocarium2023.ini";
}

std::string ReadIniValue(const Session& s, std::string_view section, std::string_view key) {
  const std::vector<std::string> lines = readLines(s);
  const Place place = find(lines, section, key);
  std::string value;
  if (place.key < lines.size())
    value = base::left(base::trim(lines[place.key].substr(lines[place.key].find('=') + 1)), bufferLength - 1);
  const std::size_t length = base::length(value);
  if (length > 1) return value;
  return value + std::string(bufferLength - length, '\0');
}

bool isPresent(std::string_view value) {
  return base::upper(value) > " ";
}

std::string trimmedValue(std::string_view value) {
  return base::trim(value.substr(0, value.find('\0')));
}

void WriteFirstIni(const Session& s) {
  std::string text = folderSections(s);
  for (int n = 1; n <= recentFileLimit; ++n)
    appendSection(text, "File" + std::to_string(n), std::to_string(n), "");
  writeWhole(s.files.paths.real(settingsPath(s)), text);
}

void WriteIniFile(const Session& s) {
  std::string text = folderSections(s);
  appendSection(text, "LastDB", "LastDB", s.files.CurrentDBPath);
  for (std::size_t i = 0; i < s.shell.mnuFilearray.size(); ++i)
    appendSection(text, "File" + std::to_string(i + 1), std::to_string(i + 1),
                  pathOfCaption(s.shell.mnuFilearray[i]));
  writeWhole(s.files.paths.real(settingsPath(s)), text);
}

void WriteIniValue(const Session& s, std::string_view section, std::string_view key, std::string_view value) {
  std::vector<std::string> lines = readLines(s);
  const Place place = find(lines, section, key);
  const std::string line = std::string(key) + "=" + std::string(value);
  if (place.key < lines.size()) {
    lines[place.key] = line;
  } else {
    if (place.section == lines.size()) lines.push_back("[" + std::string(section) + "]");
    lines.insert(lines.begin() + static_cast<std::ptrdiff_t>(place.section) + 1, line);
  }
  std::string text;
  for (const std::string& each : lines) text += each + "\r\n";
  writeWhole(s.files.paths.real(settingsPath(s)), text);
}

void GenerateFileMenu(Session& s) {
  s.shell.mnuFilearray.clear();
  for (int i = 1; i <= recentFileLimit; ++i) {
    const std::string value = base::upper(ReadIniValue(s, "File" + std::to_string(i), std::to_string(i)));
    if (isPresent(value)) s.shell.mnuFilearray.push_back("&" + std::to_string(i) + " " + value);
  }
}

void UpdateMenu(Session& s) {
  std::vector<std::string>& list = s.shell.mnuFilearray;
  const std::string& path = s.files.CurrentDBPath;
  if (std::ranges::any_of(list, [&](const auto& caption) { return pathOfCaption(caption) == path; })) return;
  if (list.size() < recentFileLimit) {
    list.push_back("&" + std::to_string(list.size() + 1) + " " + path);
    return;
  }
  for (std::size_t i = list.size() - 1; i > 0; --i)
    list[i] = "&" + std::to_string(i + 1) + " " + pathOfCaption(list[i - 1]);
  list.front() = "&1 " + path;
}

std::string pathOfCaption(std::string_view caption) {
  return base::mid(caption, 4);
}

}  // namespace session
