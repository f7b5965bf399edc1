#include "platform/media/qt_sound_device.h"

#include <QAudioDevice>
#include <QAudioSink>
#include <QAudioSource>
#include <QBuffer>
#include <QMediaDevices>
#include <utility>

#include "base/error.h"

namespace platform::media {
namespace {

QAudioFormat audioFormat(const WaveFormat& format) {
  QAudioFormat audio;
  audio.setSampleRate(format.samplesPerSecond);
  audio.setChannelCount(format.channels);
  audio.setSampleFormat(format.bits == 8 ? QAudioFormat::UInt8 : QAudioFormat::Int16);
  return audio;
}

void require(const QAudioDevice& device, const QAudioFormat& format, const char* purpose) {
  if (device.isNull())
    throw base::Error(sound_error::noDevice, std::string("There is no device for ") + purpose);
  if (!device.isFormatSupported(format))
    throw base::Error(sound_error::noDevice, "The device refuses this format for " + std::string(purpose) +
                                                 ": " + device.description().toStdString());
}

void requireRunning(QAudio::Error error, const char* purpose) {
  if (error == QAudio::OpenError || error == QAudio::FatalError || error == QAudio::IOError)
    throw base::Error(sound_error::noDevice, std::string("The device can not be opened for ") + purpose);
}

/// Hands on what is written to it.
class Taker : public QIODevice {
 public:
  explicit Taker(SoundDevice::Take take) : take_(std::move(take)) { open(QIODevice::WriteOnly); }

 protected:
  qint64 readData(char*, qint64) override { return -1; }
  qint64 writeData(const char* bytes, qint64 count) override {
    take_({bytes, static_cast<std::size_t>(count)});
    return count;
  }

 private:
  SoundDevice::Take take_;
};

}  // namespace

class QtSoundDevice::Impl {
 public:
  // Each source and sink goes before what it reads or writes.
  std::unique_ptr<Taker> taker;
  std::unique_ptr<QAudioSource> source;
  QBuffer played;
  std::unique_ptr<QAudioSink> sink;
};

QtSoundDevice::QtSoundDevice() : impl_(std::make_unique<Impl>()) {}
QtSoundDevice::~QtSoundDevice() = default;

void QtSoundDevice::startRecording(const WaveFormat& format, Take take) {
  const QAudioDevice device = QMediaDevices::defaultAudioInput();
  const QAudioFormat audio = audioFormat(format);
  require(device, audio, "recording");
  impl_->source.reset();
  impl_->taker = std::make_unique<Taker>(std::move(take));
  impl_->source = std::make_unique<QAudioSource>(device, audio);
  impl_->source->start(impl_->taker.get());
  requireRunning(impl_->source->error(), "recording");
}

void QtSoundDevice::stopRecording() {
  if (impl_->source) impl_->source->stop();
  impl_->source.reset();
  impl_->taker.reset();
}

void QtSoundDevice::play(const WaveSound& sound) {
  const QAudioDevice device = QMediaDevices::defaultAudioOutput();
  WaveFormat format = sound.format;
  format.bits = 16;
  const QAudioFormat audio = audioFormat(format);
  require(device, audio, "playing");
  impl_->sink.reset();
  impl_->played.close();
  impl_->played.setData(reinterpret_cast<const char*>(sound.samples.data()),
                        static_cast<int>(sound.samples.size() * sizeof(short)));
  impl_->played.open(QIODevice::ReadOnly);
  impl_->sink = std::make_unique<QAudioSink>(device, audio);
  impl_->sink->start(&impl_->played);
  requireRunning(impl_->sink->error(), "playing");
}

SoundCapabilities QtSoundDevice::capabilities() {
  const QAudioDevice device = QMediaDevices::defaultAudioOutput();
  if (device.isNull()) throw base::Error(sound_error::noDevice, "There is no device for playing");
  SoundCapabilities found{device.description().toStdString(), {}};
  std::size_t n = 0;
  for (const int rate : {11025, 22050, 44100})
    for (const int bits : {8, 16})
      for (const int channels : {1, 2})
        found.formats[n++] = device.isFormatSupported(audioFormat({rate, bits, channels}));
  return found;
}

bool QtSoundDevice::present() const {
  return !QMediaDevices::defaultAudioOutput().isNull();
}

}  // namespace platform::media
