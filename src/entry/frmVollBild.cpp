#include "entry/frmVollBild.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <utility>

#include "base/text.h"
#include "catalogue/dialog.h"
#include "entry/pictures.h"
#include "shell/session/errors.h"
#include "shell/session/messages.h"

namespace entry {
namespace {

using platform::Picture;

constexpr std::uint32_t white = 0xFFFFFFFF;

/// Fills the screen as far as the ratio of the sides allows, in the middle of it.
void place(frmVollBild& form) {
  const Picture& picture = form.Picture2;
  const double across = static_cast<double>(form.screenWidth) / picture.width;
  const double down = static_cast<double>(form.screenHeight) / picture.height;
  const double scale = std::min(across, down);
  frmVollBild::Place& image = form.Image1;
  image.width = std::max(1, static_cast<int>(std::lround(picture.width * scale)));
  image.height = std::max(1, static_cast<int>(std::lround(picture.height * scale)));
  image.left = (form.screenWidth - image.width) / 2;
  image.top = (form.screenHeight - image.height) / 2;
}

/// The number of quarter turns, 0 to 3, or -1 for any other angle.
int quarterTurns(double angle) {
  const double quarters = angle / (std::numbers::pi / 2);
  constexpr double precision = 1e-9;
  if (std::abs(quarters - std::round(quarters)) > precision) return -1;
  return static_cast<int>(((std::llround(quarters) % 4) + 4) % 4);
}

/// Copies in squares that stay in the processor's cache for rows and columns alike.
template <class SourcePoint>
void copyTurned(Picture& target, SourcePoint&& sourcePoint) {
  constexpr int square = 64;
  for (int top = 0; top < target.height; top += square)
    for (int left = 0; left < target.width; left += square)
      for (int y = top; y < std::min(top + square, target.height); ++y)
        for (int x = left; x < std::min(left + square, target.width); ++x)
          target.at(x, y) = sourcePoint(x, y);
}

void rotateByQuarters(const Picture& source, Picture& target, int turns) {
  const int right = source.width - 1, bottom = source.height - 1;
  if (turns == 1) copyTurned(target, [&](int x, int y) { return source.at(right - y, x); });
  if (turns == 2) copyTurned(target, [&](int x, int y) { return source.at(right - x, bottom - y); });
  if (turns == 3) copyTurned(target, [&](int x, int y) { return source.at(y, bottom - x); });
}

void rotateFreely(const Picture& source, Picture& target, double angle) {
  const double cosine = std::cos(angle), sine = std::sin(angle);
  for (int row = 0; row < target.height; ++row) {
    for (int column = 0; column < target.width; ++column) {
      const double x = column + 0.5 - target.width / 2.0, y = row + 0.5 - target.height / 2.0;
      const auto fromX = static_cast<int>(std::floor(x * cosine - y * sine + source.width / 2.0));
      const auto fromY = static_cast<int>(std::floor(x * sine + y * cosine + source.height / 2.0));
      const bool inside = fromX >= 0 && fromX < source.width && fromY >= 0 && fromY < source.height;
      target.at(column, row) = inside ? source.at(fromX, fromY) : white;
    }
  }
}

void turn(frmVollBild& form, double angle) {
  const session::Busy busy(form.session, "");
  Picture turned{form.Picture2.height, form.Picture2.width, {}};
  bmp_rotate(form.Picture2, turned, angle);
  form.Picture2 = std::move(turned);
  place(form);
}

}  // namespace

void bmp_rotate(const Picture& source, Picture& target, double angle) {
  target.argb.assign(static_cast<std::size_t>(target.width) * static_cast<std::size_t>(target.height), white);
  const int turns = quarterTurns(angle);
  const bool upright = turns % 2 == 0;
  const bool fits = target.width == (upright ? source.width : source.height) &&
                    target.height == (upright ? source.height : source.width);
  if (turns < 0 || !fits)
    rotateFreely(source, target, angle);
  else if (turns == 0)
    target.argb = source.argb;
  else
    rotateByQuarters(source, target, turns);
}

bool BildAnzeigen(frmVollBild& form) {
  session::Session& s = form.session;
  form.visible = false;
  form.Picture2 = {};
  return session::guard(s, form.formName, [&] {
    if (base::trim(form.Bild).empty()) {
      session::showMessage(s, dialog::entry_has_no_picture, platform::box::information);
      return false;
    }
    const session::Busy busy(s, "");
    form.Picture2 = loadPicture(s, form.Bild);
    place(form);
    form.visible = true;
    return true;
  });
}

bool showFullScreen(session::Session& s, const std::string& name) {
  return session::guard(s, "frmVollBild", [&] {
    frmVollBild form(s);
    form.Bild = name;
    s.desk.boxes.showModal(form);
  });
}

bool Form_KeyDown(frmVollBild& form, int keyCode) {
  return session::guard(form.session, form.formName, [&] {
    if (keyCode == key::escape) form.visible = false;
    if (form.Picture2.empty()) return;
    constexpr double quarterTurn = std::numbers::pi / 2;
    if (keyCode == key::left) turn(form, quarterTurn);
    if (keyCode == key::right) turn(form, -quarterTurn);
  });
}

}  // namespace entry
