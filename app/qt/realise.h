#ifndef TESSALY_APP_QT_REALISE_H_
#define TESSALY_APP_QT_REALISE_H_

#include <QFont>
#include <QString>
#include <functional>
#include <utility>
#include <vector>

#include "files/drop_data.h"
#include "wizard/layout/layout.h"

class QBoxLayout;
class QGridLayout;
class QLabel;
class QLayout;
class QWidget;

namespace tessaly::qt {

// Dialog units of `font` in pixels, as Windows reckons them: a quarter of
// the average width of the letters across, an eighth of the height down.
class DialogUnits {
 public:
  explicit DialogUnits(const QFont& font);
  int Across(int units) const;
  int Down(int units) const;

 private:
  int letterWidth_;
  int height_;
};

// Makes Qt widgets of a layout description (wizard/layout/layout.h), each
// bound to its model and named as its item. Captions find their buddies
// once everything they may point at is made: call Finish() at the end.
class Realiser {
 public:
  // `drop` takes the files dropped on the items that take drops.
  Realiser(const QWidget* reference, std::function<void(const DropData&)> drop = {});

  // Sets a layout on `host` holding the children of the container `box`.
  void Fill(QWidget* host, const layout::Item& box);
  // A layout of `box`'s children, for the caller to place; its widgets
  // are made in `host`.
  QLayout* MakeLayout(const layout::Item& box, QWidget* host);
  // The widget of a control, text or windowed container.
  QWidget* MakeWidget(const layout::Item& item, QWidget* parent);
  // Makes `target` take dropped files for `drop`.
  void TakeDrops(QWidget* target) const;
  void Finish();

  const DialogUnits& units() const { return units_; }

 private:
  QWidget* MakeControl(const layout::Item& item, QWidget* parent);
  QWidget* MakeText(const layout::Item& item, QWidget* parent);
  void Add(QLayout* layout, const layout::Item& box, const layout::Item& child, QWidget* host);
  void Shape(const layout::Item& box, QLayout* layout) const;

  DialogUnits units_;
  std::function<void(const DropData&)> drop_;
  std::vector<std::pair<QLabel*, QString>> buddies_;  // captions and where they lead
};

}  // namespace tessaly::qt

#endif  // TESSALY_APP_QT_REALISE_H_
