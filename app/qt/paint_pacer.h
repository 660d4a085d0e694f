#ifndef TESSALY_APP_QT_PAINT_PACER_H_
#define TESSALY_APP_QT_PAINT_PACER_H_

#include <QElapsedTimer>
#include <QTimer>
#include <functional>

class QWidget;

namespace tessaly::qt {

// Paints a widget at most once every few tens of milliseconds while its
// model keeps changing. A long loop changes the progress bar and the log
// after every file and lets events run each time; painting after each
// change would cost more than the loop, and no one reads that fast. What
// the widget holds is kept whole at every change; only its painting waits.
class PaintPacer {
 public:
  static constexpr int kPaintEveryMs = 40;

  // `onResume`, when given, runs as the held painting resumes.
  explicit PaintPacer(QWidget* widget, std::function<void()> onResume = {});

  // Call on a change: the change paints now when the last paint is long
  // enough ago, else painting waits until it is. Returns whether it waits.
  bool Hold();
  bool holding() const { return resume_.isActive(); }

 private:
  QWidget* widget_;
  std::function<void()> onResume_;
  QElapsedTimer sincePaint_;
  QTimer resume_;
};

}  // namespace tessaly::qt

#endif  // TESSALY_APP_QT_PAINT_PACER_H_
