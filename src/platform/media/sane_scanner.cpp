#include "platform/media/sane_scanner.h"

#include <sane/sane.h>

#include <algorithm>
#include <cstring>

#include "base/error.h"

namespace platform::media {
namespace {

constexpr int usualResolution = 150;  // dots an inch: a postcard is then 885 by 620 pixels

void check(SANE_Status status, const char* step) {
  if (status != SANE_STATUS_GOOD)
    throw base::Error(noScanner, std::string(step) + ": " + sane_strstatus(status));
}

class Library {
 public:
  Library() { check(sane_init(nullptr, nullptr), "No scanner can be used"); }
  ~Library() { sane_exit(); }
  Library(const Library&) = delete;
  Library& operator=(const Library&) = delete;
};

class Device {
 public:
  explicit Device(const char* name) { check(sane_open(name, &handle_), "The scanner can not be opened"); }
  ~Device() {
    sane_cancel(handle_);
    sane_close(handle_);
  }
  Device(const Device&) = delete;
  Device& operator=(const Device&) = delete;
  SANE_Handle get() const { return handle_; }

 private:
  SANE_Handle handle_ = nullptr;
};

const char* firstDevice() {
  const SANE_Device** devices = nullptr;
  constexpr SANE_Bool thisComputer = SANE_TRUE;
  check(sane_get_devices(&devices, thisComputer), "The scanners can not be listed");
  if (devices == nullptr || devices[0] == nullptr) throw base::Error(noScanner, "There is no scanner.");
  return devices[0]->name;
}

/// The number of an option that can be set, 0 where there is none.
SANE_Int optionNumber(SANE_Handle scanner, const char* name) {
  SANE_Int count = 0;
  if (sane_control_option(scanner, 0, SANE_ACTION_GET_VALUE, &count, nullptr) != SANE_STATUS_GOOD) return 0;
  for (SANE_Int n = 1; n < count; ++n) {
    const SANE_Option_Descriptor* const option = sane_get_option_descriptor(scanner, n);
    if (option != nullptr && option->name != nullptr && std::strcmp(option->name, name) == 0)
      return SANE_OPTION_IS_ACTIVE(option->cap) && SANE_OPTION_IS_SETTABLE(option->cap) ? n : 0;
  }
  return 0;
}

/// What can not be chosen stays as the scanner has it.
void chooseColour(SANE_Handle scanner) {
  const SANE_Int number = optionNumber(scanner, "mode");
  const SANE_Option_Descriptor* const option =
      number == 0 ? nullptr : sane_get_option_descriptor(scanner, number);
  if (option == nullptr || option->constraint_type != SANE_CONSTRAINT_STRING_LIST) return;
  for (const SANE_String_Const* value = option->constraint.string_list; *value != nullptr; ++value) {
    if (std::strncmp(*value, "Color", 5) != 0) continue;
    std::string chosen(*value);
    chosen.resize(static_cast<std::size_t>(option->size), '\0');
    sane_control_option(scanner, number, SANE_ACTION_SET_VALUE, chosen.data(), nullptr);
    return;
  }
}

void chooseResolution(SANE_Handle scanner) {
  const SANE_Int number = optionNumber(scanner, "resolution");
  const SANE_Option_Descriptor* const option =
      number == 0 ? nullptr : sane_get_option_descriptor(scanner, number);
  if (option == nullptr || (option->type != SANE_TYPE_INT && option->type != SANE_TYPE_FIXED)) return;
  SANE_Word value = option->type == SANE_TYPE_INT ? usualResolution : SANE_FIX(usualResolution);
  sane_control_option(scanner, number, SANE_ACTION_SET_VALUE, &value, nullptr);
}

ScannedFrame::Colour colourOf(SANE_Frame format) {
  using Colour = ScannedFrame::Colour;
  switch (format) {
    case SANE_FRAME_RGB:
      return Colour::rgb;
    case SANE_FRAME_RED:
      return Colour::red;
    case SANE_FRAME_GREEN:
      return Colour::green;
    case SANE_FRAME_BLUE:
      return Colour::blue;
    default:
      return Colour::grey;
  }
}

/// Reads one frame to its end; `last` tells whether more follow.
ScannedFrame readFrame(SANE_Handle scanner, bool& last) {
  check(sane_start(scanner), "The scanner does not start");
  SANE_Parameters told{};
  check(sane_get_parameters(scanner, &told), "The scanner does not tell its picture's size");
  last = told.last_frame != SANE_FALSE;
  ScannedFrame frame{colourOf(told.format),
                     told.pixels_per_line,
                     told.depth,
                     static_cast<std::size_t>(std::max(0, told.bytes_per_line)),
                     {}};
  constexpr std::size_t mostBytes = static_cast<std::size_t>(mostPixels) * 3;
  std::array<SANE_Byte, 65536> piece;
  for (;;) {
    SANE_Int count = 0;
    const SANE_Status status = sane_read(scanner, piece.data(), static_cast<SANE_Int>(piece.size()), &count);
    if (status == SANE_STATUS_EOF) return frame;
    check(status, "The scanner broke off");
    frame.bytes.append(reinterpret_cast<const char*>(piece.data()), static_cast<std::size_t>(count));
    if (frame.bytes.size() > mostBytes)
      throw base::Error(picture_error::tooLarge, "The scanned picture is too large.");
  }
}

}  // namespace

Picture SaneScanner::acquire() {
  const Library library;
  const Device device(firstDevice());
  chooseColour(device.get());
  chooseResolution(device.get());
  std::vector<ScannedFrame> frames;
  constexpr std::size_t mostFrames = 3;
  for (bool last = false; !last && frames.size() < mostFrames;)
    frames.push_back(readFrame(device.get(), last));
  return pictureOfFrames(frames);
}

}  // namespace platform::media
