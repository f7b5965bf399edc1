#include "platform/media/sound_commands.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <utility>

#include "base/error.h"
#include "base/text.h"

namespace platform::media {
namespace {

struct Setting {
  std::string_view name;
  int WaveFormat::*field;
  std::array<int, 3> allowed;  ///< the last twice where there are two
};
constexpr std::array<Setting, 3> settings{
    {{"bitspersample", &WaveFormat::bits, {8, 16, 16}},
     {"samplespersec", &WaveFormat::samplesPerSecond, {11025, 22050, 44100}},
     {"channels", &WaveFormat::channels, {1, 2, 2}}}};

[[noreturn]] void refuse(const std::string& command) {
  throw base::Error(sound_error::badCommand, "This sound command can not be carried out: " + command);
}

/// What stands behind the first `words` words, with its own blanks.
std::string behind(const std::string& command, std::size_t words) {
  std::size_t at = 0;
  for (; words > 0; --words) at = command.find(' ', at) + 1;
  return command.substr(at);
}

}  // namespace

SoundCommands::~SoundCommands() {
  if (recording_ && recording_->running) device_.stopRecording();
}

std::string SoundCommands::send(const std::string& command) {
  const std::vector<std::string> words = base::split(command, " ");
  const std::string& verb = words.front();
  if (verb == "play" && words.size() > 1) {
    device_.play(readWave((std::filesystem::path(folder_) / behind(command, 1)).string()));
    return "";
  }
  if (verb == "open" && !recording_) {
    open(words);
    return "";
  }
  if (words.size() < 2 || !recording_ || words[1] != recording_->alias) refuse(command);
  if (verb == "set" && words.size() == 4 && !recording_->running)
    set(words);
  else if (verb == "record" && words.size() == 2 && !recording_->running)
    record();
  else if (verb == "stop" && words.size() == 2)
    stop();
  else if (verb == "save" && words.size() > 2)
    writeWave((std::filesystem::path(folder_) / behind(command, 2)).string(), recording_->format,
              recording_->pcm);
  else if (verb == "close" && words.size() == 2) {
    stop();
    recording_.reset();
  } else if (verb == "status" && words.size() == 3 && words[2] == "mode")
    return recording_->running ? "recording" : "stopped";
  else
    refuse(command);
  return "";
}

void SoundCommands::open(const std::vector<std::string>& words) {
  const std::vector<std::string> expected{"open", "new", "type", "waveaudio", "alias"};
  if (words.size() != 6 || !std::equal(expected.begin(), expected.end(), words.begin())) refuse("open");
  recording_ = Recording{words[5], {}, {}, false};
}

void SoundCommands::set(const std::vector<std::string>& words) {
  for (const Setting& setting : settings) {
    if (words[2] != setting.name) continue;
    for (const int value : setting.allowed) {
      if (words[3] != std::to_string(value)) continue;
      recording_->format.*setting.field = value;
      return;
    }
  }
  refuse("set " + words[2] + " " + words[3]);
}

void SoundCommands::record() {
  recording_->pcm.clear();
  const std::size_t most = static_cast<std::size_t>(recording_->format.bytesPerSecond()) * longestRecording;
  device_.startRecording(recording_->format, [this, most](std::string_view pcm) {
    const std::size_t room = most - recording_->pcm.size();
    recording_->pcm.append(pcm.substr(0, room));
  });
  recording_->running = true;
}

void SoundCommands::stop() {
  if (std::exchange(recording_->running, false)) device_.stopRecording();
}

}  // namespace platform::media
