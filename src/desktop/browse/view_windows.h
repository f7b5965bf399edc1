#pragma once

#include <QWidget>

#include "browse/frmTreeView.h"
#include "browse/frmView.h"
#include "desktop/kit/face.h"

namespace desktop {

class Application;

/// A view that stays open inside the frame. It dies with its form.
class ViewWindow : public QWidget {
 public:
  ViewWindow(Application& app, platform::Form& form);

  const platform::Form& form() const { return form_; }
  /// The user has closed it; the frame takes it away.
  bool isClosing() const { return closing_; }

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  void build(browse::frmView& form);
  void build(browse::frmTreeView& form);

  platform::Form& form_;
  Face face_;
  bool closing_ = false;
};

}  // namespace desktop
