#pragma once

#include <filesystem>
#include <fstream>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "base/error.h"
#include "platform/images.h"
#include "platform/scanner.h"
#include "platform/sound.h"
#include "support/pictures.h"
#include "support/temp_dir.h"

namespace test {

/// Reads and writes pictures as "picture WIDTH HEIGHT COLOUR" whatever the extension: one colour, plain text.
class FakeImages : public platform::Images {
 public:
  static std::string bytes(int width, int height, std::uint32_t colour) {
    return "picture " + std::to_string(width) + " " + std::to_string(height) + " " + std::to_string(colour);
  }
  static platform::Picture plain(int width, int height, std::uint32_t colour) {
    return {width, height, std::vector<std::uint32_t>(static_cast<std::size_t>(width * height), colour)};
  }
  platform::Picture load(const std::string& path) override {
    ++loads;
    if (!std::filesystem::exists(path)) throw base::Error(53, "missing: " + path);
    std::ifstream file(path);
    std::string word;
    int width = 0, height = 0;
    std::uint32_t colour = 0;
    if (!(file >> word >> width >> height >> colour) || word != "picture")
      throw base::Error(platform::picture_error::damaged, "damaged: " + path);
    return plain(width, height, colour);
  }
  void save(const platform::Picture& picture, const std::string& path) override {
    if (failWith != 0) throw base::Error(failWith, "can not write: " + path);
    std::ofstream file(path);
    file << bytes(picture.width, picture.height, picture.argb.at(0));
    if (!file.flush()) throw base::Error(70, "can not write: " + path);
  }
  int loads = 0, failWith = 0;
};

class FakeScanner : public platform::Scanner {
 public:
  platform::Picture acquire() override {
    if (!connected) throw base::Error(platform::noScanner, "none");
    return FakeImages::plain(3, 2, red);
  }
  bool connected = true;
};

class FakePictureClipboard : public platform::PictureClipboard {
 public:
  std::optional<platform::Picture> picture() override { return held; }
  void setPicture(const platform::Picture& given) override { held = given; }
  std::optional<platform::Picture> held;
};

/// Notes the commands; saves a file that holds the word "sound".
class FakeSound : public platform::Sound {
 public:
  std::string send(const std::string& command) override {
    commands.push_back(command);
    if (!failAt.empty() && command.starts_with(failAt)) throw base::Error(failWith, "can not: " + command);
    if (command.starts_with("save recwave ")) std::ofstream(folder + "/" + command.substr(13)) << "sound";
    return "";
  }
  void setFolder(const std::string& path) override { folder = path; }
  platform::SoundCapabilities capabilities() override {
    if (!present) throw base::Error(platform::sound_error::noDevice, "none");
    platform::SoundCapabilities found{"Loudspeaker", {}};
    found.formats[11] = true;
    return found;
  }
  std::vector<std::string> commands;
  std::string folder, failAt;
  int failWith = 0;
  bool present = true;
};

}  // namespace test
