#include <gtest/gtest.h>

#include <QCoreApplication>
#include <filesystem>

#include "base/error.h"
#include "platform/media/qt_sound_device.h"
#include "platform/media/sound_commands.h"
#include "support/temp_dir.h"

namespace {

using namespace platform::media;
using platform::sound_error::badCommand;

/// A device that a test feeds.
class FedDevice : public SoundDevice {
 public:
  void startRecording(const WaveFormat& format, Take take) override {
    if (!connected) throw base::Error(platform::sound_error::noDevice, "none");
    recorded = format;
    feed = std::move(take);
  }
  void stopRecording() override {
    if (!last.empty()) feed(last);
    feed = {};
    ++stops;
  }
  void play(const WaveSound& sound) override { played = sound; }
  platform::SoundCapabilities capabilities() override { return {"fed", {}}; }

  WaveFormat recorded;
  Take feed;
  std::string last;  ///< what arrives with the stop
  WaveSound played;
  int stops = 0;
  bool connected = true;
};

struct SoundCommandsTest : testing::Test {
  test::TempDir dir;
  FedDevice device;
  SoundCommands sound{device};

  void SetUp() override { sound.setFolder(dir.path().string()); }
  void send(std::initializer_list<const char*> commands) {
    for (const char* command : commands) EXPECT_EQ(sound.send(command), "") << command;
  }
  int refusal(const std::string& command) {
    try {
      sound.send(command);
    } catch (const base::Error& error) {
      return error.number();
    }
    return 0;
  }
};

std::string sixteenBits(const std::vector<short>& samples) {
  return {reinterpret_cast<const char*>(samples.data()), samples.size() * sizeof(short)};
}

TEST_F(SoundCommandsTest, RecordsSavesAndPlaysAtAllSettings) {
  for (const char* rate : {"11025", "22050", "44100"}) {
    for (const char* bits : {"8", "16"}) {
      for (const char* channels : {"1", "2"}) {
        const std::string name = std::string(rate) + "-" + bits + "-" + channels + ".wav";
        sound.send("open new type waveaudio alias recwave");
        sound.send(std::string("set recwave bitspersample ") + bits);
        sound.send(std::string("set recwave samplespersec ") + rate);
        sound.send(std::string("set recwave channels ") + channels);
        sound.send("record recwave");
        EXPECT_EQ(sound.send("status recwave mode"), "recording");
        const bool eight = std::string(bits) == "8";
        device.feed(eight ? std::string("\x80\x00\xFF\x81", 4) : sixteenBits({0, -32768, 32767, 256}));
        device.last = eight ? std::string("\x7F\x80", 2) : sixteenBits({-256, 0});
        sound.send("stop recwave");
        EXPECT_EQ(sound.send("status recwave mode"), "stopped");
        sound.send("save recwave " + name);
        sound.send("close recwave");

        const WaveSound read = readWave(dir / name);
        EXPECT_EQ(std::to_string(read.format.samplesPerSecond), rate);
        EXPECT_EQ(std::to_string(read.format.bits), bits);
        EXPECT_EQ(std::to_string(read.format.channels), channels);
        const std::vector<short> expected = eight ? std::vector<short>{0, -32768, 32512, 256, -256, 0}
                                                  : std::vector<short>{0, -32768, 32767, 256, -256, 0};
        EXPECT_EQ(read.samples, expected) << name;
        sound.send("play " + (dir / name));
        EXPECT_EQ(device.played.samples, expected);
      }
    }
  }
}

TEST_F(SoundCommandsTest, KeepsTheOldFileWhereTheNewOneCanNotBeWritten) {
  send({"open new type waveaudio alias recwave", "record recwave"});
  device.feed("abc");
  send({"stop recwave", "save recwave a b  c.wav", "stop recwave"});
  EXPECT_EQ(readWave(dir / "a b  c.wav").samples.size(), 3U);
  sound.setFolder(dir / "missing");
  EXPECT_EQ(refusal("save recwave x.wav"), 70);
  sound.setFolder(dir.path().string());
  send({"save recwave x.wav", "close recwave"});
  EXPECT_EQ(readWave(dir / "x.wav").samples.size(), 3U);
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(dir.path()), {}), 2) << "no remains";
}

TEST_F(SoundCommandsTest, RefusesWhatIsNoCommandOrOutOfOrder) {
  for (const char* command : {"", "play", "record recwave", "stop recwave", "close recwave",
                              "save recwave a.wav", "open new type cdaudio alias x", "open a.wav", "sing"})
    EXPECT_EQ(refusal(command), badCommand) << command;
  send({"open new type waveaudio alias recwave"});
  for (const char* command :
       {"open new type waveaudio alias recwave", "set recwave channels 3", "set recwave samplespersec 8000",
        "set recwave volume 1", "set other channels 1", "set recwave channels", "save recwave",
        "record other", "status recwave"})
    EXPECT_EQ(refusal(command), badCommand) << command;
  send({"record recwave"});
  EXPECT_EQ(refusal("record recwave"), badCommand);
  EXPECT_EQ(refusal("set recwave channels 2"), badCommand);
  send({"close recwave"});
  EXPECT_EQ(device.stops, 1);
}

TEST_F(SoundCommandsTest, TellsWhatIsMissingOrDamaged) {
  device.connected = false;
  send({"open new type waveaudio alias recwave"});
  EXPECT_EQ(refusal("record recwave"), platform::sound_error::noDevice);
  EXPECT_EQ(sound.send("status recwave mode"), "stopped");
  send({"close recwave"});

  EXPECT_EQ(refusal("play " + (dir / "missing.wav")), 53);
  EXPECT_EQ(refusal("play " + dir.write("fake.wav", "no sound")), platform::sound_error::badFile);
  writeWave(dir / "good.wav", {44100, 16, 2}, std::string(4000, 'x'));
  const std::string bytes = test::TempDir::read(dir / "good.wav");
  for (const std::size_t length : {std::size_t{0}, std::size_t{20}, std::size_t{44}})
    EXPECT_EQ(refusal("play " + dir.write("cut.wav", bytes.substr(0, length))),
              platform::sound_error::badFile)
        << length;
  // What is left of a file that breaks off is played.
  send({("play " + dir.write("half.wav", bytes.substr(0, 2044))).c_str()});
  EXPECT_EQ(device.played.samples.size(), 1000U);
}

TEST_F(SoundCommandsTest, EndsARecordingThatIsForgotten) {
  send({"open new type waveaudio alias recwave", "record recwave"});
  const std::string second(11025, '\x80');
  for (int n = 0; n < longestRecording + 5; ++n) device.feed(second);
  send({"stop recwave", "save recwave long.wav"});
  EXPECT_EQ(readWave(dir / "long.wav").samples.size(), second.size() * longestRecording);
}

TEST(QtSound, TellsThatThereIsNoDevice) {
  int argc = 1;
  char name[] = "test";
  char* argv[] = {name, nullptr};
  const QCoreApplication application(argc, argv);
  QtSoundDevice device;
  SoundCommands sound(device);
  if (device.present()) {
    EXPECT_FALSE(sound.capabilities().name.empty());
    return;
  }
  EXPECT_THROW(sound.capabilities(), base::Error);
  const test::TempDir dir;
  writeWave(dir / "a.wav", {11025, 8, 1}, "abc");
  EXPECT_THROW(sound.send("play " + (dir / "a.wav")), base::Error);
}

}  // namespace
