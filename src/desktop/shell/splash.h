#pragma once

#include <QPixmap>
#include <QWidget>

namespace desktop {

class Application;

/// frmStart: the picture that stands for a second while the program comes up.
class Splash : public QWidget {
 public:
  explicit Splash(Application& app);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QPixmap picture_, logo_;
  QString subtitle_, copyright_;
};

}  // namespace desktop
