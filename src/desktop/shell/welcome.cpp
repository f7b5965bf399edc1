#include "desktop/shell/welcome.h"

#include <QCommandLinkButton>
#include <QFileInfo>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "catalogue/label.h"
#include "catalogue/menu.h"
#include "desktop/application.h"
#include "desktop/kit/text.h"
#include "shell/session/settings.h"
#include "shell/session/start.h"
#include "shell/session/texts.h"

namespace desktop {

Welcome::Welcome(Application& app) : app_(app) {
  setObjectName("Welcome");
  auto* middle = new QVBoxLayout;
  auto* logo = new QLabel(this);
  logo->setPixmap(QPixmap(qt(session::shippedPath(app.session, "Images/VC_logo.jpg"))));
  middle->addWidget(logo);
  const auto add = [&](const QString& caption, const QString& hint, const char* objectName,
                       bool (*command)(frame::frmMDI&)) {
    auto* button = new QCommandLinkButton(caption, hint, this);
    button->setObjectName(objectName);
    QObject::connect(button, &QCommandLinkButton::clicked, this,
                     [this, command] { app_.gate.run("frmMDI", [&] { command(app_.frame); }); });
    middle->addWidget(button);
  };
  const auto text = [this](int key) { return qt(session::labelText(app_.session, key)); };
  add(text(label::wizard_title), text(label::welcome_new), "WelcomeNew", frame::mnuNew);
  add(text(label::welcome_open_title), text(label::welcome_open), "WelcomeOpen", frame::mnuOpen);
  middle->addSpacing(12);
  middle->addWidget(new QLabel(qt(session::menuText(app_.session, menu::mnuFilearray)), this));
  recent_ = new QVBoxLayout;
  recent_->setSpacing(0);
  middle->addLayout(recent_);
  auto* row = new QHBoxLayout;
  row->addStretch(1);
  row->addLayout(middle);
  row->addStretch(1);
  auto* column = new QVBoxLayout(this);
  column->addStretch(1);
  column->addLayout(row);
  column->addStretch(2);
}

void Welcome::draw() {
  const auto& files = app_.session.shell.mnuFilearray;
  if (files == shown_ && recent_->count() > 0) return;
  shown_ = files;
  while (QLayoutItem* item = recent_->takeAt(0)) {
    delete item->widget();
    delete item;
  }
  for (std::size_t n = 0; n < files.size(); ++n) {
    const std::string path = session::trimmedValue(session::pathOfCaption(files[n]));
    auto* button = new QPushButton(qt(app_.session.files.paths.real(path).string()), this);
    button->setFlat(true);
    button->setStyleSheet("text-align: left");
    QObject::connect(button, &QPushButton::clicked, this, [this, n] {
      app_.gate.run("frmMDI", [&] { frame::mnuFilearray(app_.frame, static_cast<int>(n) + 1); });
    });
    recent_->addWidget(button);
  }
  if (files.empty()) recent_->addWidget(new QLabel("–", this));
}

}  // namespace desktop
