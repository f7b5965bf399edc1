#include "entry/sound.h"

#include "base/text.h"
#include "catalogue/dialog.h"
#include "catalogue/label.h"
#include "entry/media_files.h"
#include "platform/sound.h"
#include "shell/session/errors.h"
#include "shell/session/messages.h"
#include "store/rows.h"

namespace entry {
namespace {

constexpr int progressStep = 2;

platform::Sound& soundPort(const session::Session& s) {
  return port(s, s.desk.media.sound);
}

void showStopped(frmEintrag& form) {
  form.sound.Timer2 = form.sound.progressShown = false;
  form.sound.recordEnabled = true;
}

void setQuality(session::Session& s, platform::Sound& sound) {
  auto row = s.files.CurrentDB.OpenRecordset("Sprache", engine::RecordsetKind::snapshot);
  const auto chosen = [&](const char* column) { return !row.EndOfFile() && store::truth(row[column]); };
  sound.send(std::string("set recwave bitspersample ") + (chosen("bit8") ? "8" : "16"));
  sound.send(std::string("set recwave samplespersec ") + (chosen("khz11")   ? "11025"
                                                          : chosen("khz44") ? "44100"
                                                                            : "22050"));
  sound.send(std::string("set recwave channels ") + (chosen("ZweiKanal") ? "2" : "1"));
}

void record(frmEintrag& form) {
  session::Session& s = form.session;
  platform::Sound& sound = soundPort(s);
  requireWritable(s);
  dropRecording(form);
  const std::int64_t id = s.entry.CurrentEntryId;
  try {
    sound.send("open new type waveaudio alias recwave");
    form.sound.recordedId = id;
    setQuality(s, sound);
    sound.send("record recwave");
    storeMediaName(s, "klang", std::nullopt, id);
  } catch (const base::Error& error) {
    dropRecording(form);
    if (error.number() == platform::sound_error::noDevice)
      throw base::Error(error.number(), session::dialogText(s, dialog::no_recording_device));
    throw worded(s, error, FileUse::written, "");
  }
  form.sound.progress = 0;
  form.sound.progressShown = form.sound.Timer2 = form.sound.stopEnabled = true;
  form.sound.recordEnabled = form.playEnabled = false;
  form.record.Klang.clear();
  session::ShowStatus(s, session::labelText(s, label::recording), false);
}

void stop(frmEintrag& form) {
  session::Session& s = form.session;
  platform::Sound& sound = soundPort(s);
  const std::int64_t id = form.sound.recordedId;
  showStopped(form);
  sound.send("stop recwave");
  session::ShowStatus(s, session::labelText(s, label::recorded), false);

  const std::string folder = s.files.paths.real(writtenMediaFolder(s)).string();
  const std::string name = mediaFileName(s, id, ".wav");
  sound.setFolder(folder);
  changeTogether(s, [&] {
    storeMediaName(s, "klang", name, id);
    onMediaFile(s, FileUse::written, folder + "/" + name, [&] { sound.send("save recwave " + name); });
  });
  dropRecording(form);
  if (id == form.record.ID_Woerterbuch) {
    form.record.Klang = name;
    form.playEnabled = true;
  }
}

}  // namespace

bool SSCommand9(frmEintrag& form, int index) {
  session::Session& s = form.session;
  const bool enabled = index == recordButton ? form.sound.recordEnabled
                       : index == stopButton ? form.sound.stopEnabled
                                             : form.playEnabled;
  if (!enabled) return false;
  if (index == playButton) return playSound(s, form.record.Klang, form.formName);
  return session::guard(s, form.formName, [&] { index == recordButton ? record(form) : stop(form); });
}

void Timer2_Timer(frmEintrag& form) {
  if (form.sound.Timer2) form.sound.progress = (form.sound.progress + progressStep) % 100;
}

void dropRecording(frmEintrag& form) {
  session::Session& s = form.session;
  if (form.sound.recordedId != 0) {
    try {
      soundPort(s).send("close recwave");
    } catch (...) {
      session::LogError(s, session::currentError(), form.formName);
    }
  }
  form.sound = {};
}

bool playSound(session::Session& s, const std::string& name, const std::string& formName) {
  return session::guard(s, formName, [&] {
    const std::string path = mediaPath(s, name);
    onMediaFile(s, FileUse::read, path, [&] { soundPort(s).send("play " + path); });
  });
}

}  // namespace entry
