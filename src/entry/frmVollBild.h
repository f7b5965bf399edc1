#pragma once

#include <string>

#include "platform/desk.h"
#include "platform/images.h"
#include "shell/session/session.h"

namespace entry {

/// A picture on the full screen. Whoever shows it sets `Bild` and the screen's size in pixels, and redraws
/// Image1 after each operation.
struct frmVollBild : platform::Form {
  explicit frmVollBild(session::Session& s) : Form("frmVollBild"), session(s) {}

  struct Place {
    int left = 0, top = 0, width = 0, height = 0;
  };

  session::Session& session;
  std::string Bild;  ///< file name, as the entry holds it
  int screenWidth = 0, screenHeight = 0;
  platform::Picture Picture2;
  Place Image1;  ///< where Picture2 is drawn on the screen
  bool visible = false;
};

namespace key {
inline constexpr int escape = 27, left = 37, right = 39;
}

/// Shows the picture as large as the screen allows. Tells where the entry has none, or it can not be read.
bool BildAnzeigen(frmVollBild& form);
/// Escape closes; the arrows turn the picture a quarter, left against the clock. Other keys do nothing.
bool Form_KeyDown(frmVollBild& form, int keyCode);

/// Shows a picture, by its file name, on the full screen until it is closed.
bool showFullScreen(session::Session& s, const std::string& name);

/// Turns `source` about its centre into `target`, whose size the caller sets: each target point takes the
/// source point that lies `angle` radians further from the centre's x axis towards its y axis (down), so
/// that the picture turns against the clock. What no source point falls on becomes white. Quarter turns are
/// exact.
void bmp_rotate(const platform::Picture& source, platform::Picture& target, double angle);

}  // namespace entry
