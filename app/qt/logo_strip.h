#ifndef TESSALY_APP_QT_LOGO_STRIP_H_
#define TESSALY_APP_QT_LOGO_STRIP_H_

#include <QWidget>

#include <vector>

#include "wizard/layout/layout.h"

namespace tessaly::qt {

// `pLogo`: the strip down the left of the wizard, a painted picture with
// the step labels on it. The label of the step on show is bold; a click on
// a label is the label's click in the model.
class LogoStrip : public QWidget {
 public:
  LogoStrip(const std::vector<layout::Item>& steps, QWidget* parent);

 protected:
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace tessaly::qt

#endif  // TESSALY_APP_QT_LOGO_STRIP_H_
