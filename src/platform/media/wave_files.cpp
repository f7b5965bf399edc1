#include "platform/media/wave_files.h"

#include <sndfile.h>
#include <unistd.h>

#include <QFileInfo>
#include <QSaveFile>
#include <cerrno>
#include <cstdint>
#include <memory>

#include "base/error.h"
#include "platform/sound.h"

namespace platform::media {
namespace {

struct Close {
  void operator()(SNDFILE* file) const { sf_close(file); }
};
using SoundFile = std::unique_ptr<SNDFILE, Close>;

constexpr std::size_t mostSamples = std::size_t{512} * 1024 * 1024;

bool writeSamples(int descriptor, const WaveFormat& format, const std::string& pcm) {
  SF_INFO info{};
  info.samplerate = format.samplesPerSecond;
  info.channels = format.channels;
  info.format = SF_FORMAT_WAV | (format.bits == 8 ? SF_FORMAT_PCM_U8 : SF_FORMAT_PCM_16);
  SoundFile file(sf_open_fd(descriptor, SFM_WRITE, &info, SF_FALSE));
  if (file == nullptr) return false;
  const auto bytes = static_cast<sf_count_t>(pcm.size());
  // Eight bits go as they are; sixteen in the order that the file wants.
  const bool whole = format.bits == 8 ? sf_write_raw(file.get(), pcm.data(), bytes) == bytes
                                      : sf_write_short(file.get(), reinterpret_cast<const short*>(pcm.data()),
                                                       bytes / 2) == bytes / 2;
  return sf_close(file.release()) == 0 && whole;
}

}  // namespace

void writeWave(const std::string& path, const WaveFormat& format, const std::string& pcm) {
  QSaveFile file(QString::fromStdString(path));
  if (!file.open(QIODevice::WriteOnly)) throw base::Error(70, "The file can not be written: " + path);
  if (!writeSamples(file.handle(), format, pcm) || !file.commit())
    throw base::Error(61, "The disk is full or fails: " + path);
}

WaveSound readWave(const std::string& path) {
  const QFileInfo found(QString::fromStdString(path));
  if (!found.isFile()) throw base::Error(53, "The file does not exist: " + path);
  if (!found.isReadable()) throw base::Error(70, "The file can not be read: " + path);
  const base::Error damaged(sound_error::badFile, "The file is damaged or holds no sound: " + path);
  SF_INFO info{};
  const SoundFile file(sf_open(path.c_str(), SFM_READ, &info));
  if (file == nullptr || info.channels < 1 || info.samplerate < 1) throw damaged;

  WaveSound sound;
  const bool eightBits = (info.format & SF_FORMAT_SUBMASK) == SF_FORMAT_PCM_U8;
  sound.format = {info.samplerate, eightBits ? 8 : 16, info.channels};
  // In pieces, since the length that a header tells may be wrong.
  std::vector<short> piece(static_cast<std::size_t>(info.channels) * 65536);
  for (sf_count_t count = 1; count > 0 && sound.samples.size() < mostSamples;) {
    count = sf_read_short(file.get(), piece.data(), static_cast<sf_count_t>(piece.size()));
    sound.samples.insert(sound.samples.end(), piece.begin(), piece.begin() + count);
  }
  if (sf_error(file.get()) != SF_ERR_NO_ERROR || sound.samples.empty()) throw damaged;
  return sound;
}

}  // namespace platform::media
