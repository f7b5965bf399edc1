#include "entry/frmSoundInfo.h"

#include "entry/media_files.h"
#include "platform/sound.h"
#include "shell/session/errors.h"

namespace entry {
namespace {

constexpr std::array<const char*, 12> formatTexts{
    "11.025 kHz, Mono, 8 bit",    "11.025 kHz, Stereo, 8 bit",  "11.025 kHz, Mono, 16 bit",
    "11.025 kHz, Stereo, 16 bit", "22.05  kHz, Mono, 8 bit",    "22.05  kHz, Stereo, 8 bit",
    "22.05  kHz, Mono, 16 bit",   "22.05  kHz, Stereo, 16 bit", "44.1   kHz, Mono, 8 bit",
    "44.1   kHz, Stereo, 8 bit",  "44.1   kHz, Mono, 16 bit",   "44.1   kHz, Stereo, 16 bit"};

}  // namespace

bool Form_Load(frmSoundInfo& form) {
  session::Session& s = form.session;
  for (std::size_t i = 0; i < formatTexts.size(); ++i) form.formats[i] = {formatTexts[i], false};
  form.device.clear();
  return session::guard(s, form.formName, [&] {
    const platform::SoundCapabilities found =
        onMediaFile(s, FileUse::read, "", [&] { return port(s, s.desk.media.sound).capabilities(); });
    form.device = found.name;
    for (std::size_t i = 0; i < found.formats.size(); ++i) form.formats[i].supported = found.formats[i];
  });
}

}  // namespace entry
