#pragma once

#include <QLayout>
#include <memory>
#include <vector>

namespace desktop {

/// Puts its items side by side and goes on in the next row where the width ends.
class Flow : public QLayout {
 public:
  explicit Flow(QWidget* parent);
  ~Flow() override;
  Flow(const Flow&) = delete;
  Flow& operator=(const Flow&) = delete;

  void addItem(QLayoutItem* item) override;
  int count() const override { return static_cast<int>(items_.size()); }
  QLayoutItem* itemAt(int index) const override;
  QLayoutItem* takeAt(int index) override;
  bool hasHeightForWidth() const override { return true; }
  int heightForWidth(int width) const override { return place(QRect(0, 0, width, 0), false); }
  QSize sizeHint() const override;
  QSize minimumSize() const override;
  void setGeometry(const QRect& room) override;

 private:
  /// The height that the items take in `room`, where they are moved to if `moving`.
  int place(const QRect& room, bool moving) const;

  std::vector<std::unique_ptr<QLayoutItem>> items_;
};

}  // namespace desktop
