#include "entry/sound.h"

#include "catalogue/dialog.h"
#include "catalogue/label.h"
#include "entry/frmSoundInfo.h"
#include "media.h"

namespace {

struct Sounds : MediaTest {
  bool press(int button) { return entry::SSCommand9(form, button); }
  void recordOnce() {
    ASSERT_TRUE(press(entry::recordButton));
    ASSERT_TRUE(press(entry::stopButton));
    sound.commands.clear();
  }
};

using Commands = std::vector<std::string>;

TEST_F(Sounds, AreRecordedByTheCommandsOfTheSettings) {
  ASSERT_TRUE(press(entry::recordButton));
  EXPECT_EQ(sound.commands,
            (Commands{"open new type waveaudio alias recwave", "set recwave bitspersample 16",
                      "set recwave samplespersec 22050", "set recwave channels 1", "record recwave"}));
  EXPECT_TRUE(form.sound.Timer2 && form.sound.progressShown && form.sound.stopEnabled);
  EXPECT_FALSE(form.playEnabled || form.sound.recordEnabled);
  EXPECT_EQ(script.statuses.back(), session::labelText(s, label::recording));
  for (int tick = 0; tick < 60; ++tick) entry::Timer2_Timer(form);
  EXPECT_GT(form.sound.progress, 0);
  EXPECT_LT(form.sound.progress, 100);

  sound.commands.clear();
  ASSERT_TRUE(press(entry::stopButton));
  EXPECT_EQ(sound.commands, (Commands{"stop recwave", "save recwave " + file(".wav"), "close recwave"}));
  EXPECT_EQ(row("Klang"), file(".wav"));
  EXPECT_EQ(form.record.Klang, file(".wav"));
  EXPECT_EQ(read(file(".wav")), "sound");
  EXPECT_TRUE(form.playEnabled && form.sound.recordEnabled);
  EXPECT_FALSE(form.sound.stopEnabled || form.sound.Timer2 || form.sound.progressShown);
  EXPECT_EQ(script.statuses.back(), session::labelText(s, label::recorded));

  sound.commands.clear();
  ASSERT_TRUE(press(entry::playButton));
  EXPECT_EQ(sound.commands, Commands{"play " + media + file(".wav")});
}

TEST_F(Sounds, FollowEverySetting) {
  const auto commands = [&](const std::string& set) {
    db().Execute("UPDATE Sprache SET " + set);
    recordOnce();
    EXPECT_TRUE(press(entry::recordButton));
    const Commands sent = sound.commands;
    EXPECT_TRUE(press(entry::stopButton));
    return sent.at(1) + "|" + sent.at(2) + "|" + sent.at(3);
  };
  EXPECT_EQ(commands("khz11 = 1, khz22 = 0, bit8 = 1, bit16 = 0, EinKanal = 0, ZweiKanal = 1"),
            "set recwave bitspersample 8|set recwave samplespersec 11025|set recwave channels 2");
  EXPECT_EQ(commands("khz11 = 0, khz44 = 1, bit8 = 0, bit16 = 1"),
            "set recwave bitspersample 16|set recwave samplespersec 44100|set recwave channels 2");
}

TEST_F(Sounds, AreGoneWhileANewOneIsRecorded) {
  recordOnce();
  ASSERT_TRUE(press(entry::recordButton));
  EXPECT_EQ(row("Klang"), "NULL");
  EXPECT_FALSE(press(entry::recordButton)) << "one recording at a time";
  EXPECT_FALSE(press(entry::playButton));
  // The visit ends without a stop.
  sound.commands.clear();
  visit(3, id);
  EXPECT_EQ(sound.commands, Commands{"close recwave"});
  EXPECT_EQ(row("Klang"), "NULL");
  EXPECT_TRUE(form.sound.recordEnabled);
}

TEST_F(Sounds, GoToTheEntryTheyWereBegunFor) {
  const std::int64_t other = addMain("Baum");
  visit(3, id);
  ASSERT_TRUE(press(entry::recordButton));
  ASSERT_TRUE(entry::moveNavigator(form, entry::Step::first));
  ASSERT_EQ(s.entry.CurrentEntryId, other);
  ASSERT_TRUE(press(entry::stopButton));
  EXPECT_EQ(row("Klang"), file(".wav"));
  EXPECT_EQ(ofEntry("Klang", other), "NULL");
  EXPECT_FALSE(form.playEnabled);
}

TEST_F(Sounds, TellWhatFails) {
  recordOnce();
  sound.failAt = "record";
  sound.failWith = platform::sound_error::noDevice;
  EXPECT_FALSE(press(entry::recordButton));
  expectTold(dialog::no_recording_device);
  EXPECT_EQ(sound.commands.back(), "close recwave");
  EXPECT_EQ(row("Klang"), file(".wav")) << "the old sound stays";
  EXPECT_TRUE(form.playEnabled && form.sound.recordEnabled);

  sound.failAt = "save";
  sound.failWith = 70;
  ASSERT_TRUE(press(entry::recordButton));
  sound.commands.clear();
  EXPECT_FALSE(press(entry::stopButton));
  expectTold(dialog::media_not_writable, media);
  EXPECT_EQ(row("Klang"), "NULL");
  EXPECT_EQ(sound.commands.back(), "save recwave " + file(".wav")) << "still open";
  sound.failAt.clear();
  EXPECT_TRUE(press(entry::stopButton)) << "a second try saves it";
  EXPECT_EQ(row("Klang"), file(".wav"));

  sound.failAt = "play";
  sound.failWith = 53;
  EXPECT_FALSE(press(entry::playButton));
  expectTold(dialog::file_missing, file(".wav"));
  sound.failWith = platform::sound_error::noDevice;
  EXPECT_FALSE(press(entry::playButton));
  expectTold(dialog::no_sound_device);

  s.files.ReadOnlyMode = true;
  sound.commands.clear();
  EXPECT_FALSE(press(entry::recordButton));
  expectTold(dialog::dictionary_is_read_only);
  EXPECT_TRUE(sound.commands.empty());
}

TEST_F(Sounds, ListWhatTheDeviceCanDo) {
  entry::frmSoundInfo info(s);
  ASSERT_TRUE(entry::Form_Load(info));
  EXPECT_EQ(info.device, "Loudspeaker");
  EXPECT_EQ(info.formats[11].text, "44.1   kHz, Stereo, 16 bit");
  EXPECT_TRUE(info.formats[11].supported);
  EXPECT_FALSE(info.formats[0].supported);
  sound.present = false;
  EXPECT_FALSE(entry::Form_Load(info));
  expectTold(dialog::no_sound_device);
}

}  // namespace
