// The progress window beside the preview loop.

#include <gmock/gmock.h>

#include <QPushButton>
#include <QTest>

#include "qt_test_support.h"

namespace tessaly::qt {
namespace {

class ProgressWindowTest : public QtWizardTest {
 protected:
  // Lists `count` files and enters step 3, whose preview shows the window.
  void PreviewOf(int count) {
    Start();
    DropData drop;
    for (int i = 0; i < count; ++i) drop.files.push_back("c:\\p\\" + std::to_string(i) + ".jpg");
    form->AddDroppedFiles(drop);
    form->lblStep[3].Click();
    Settle();
  }
};

TEST_F(ProgressWindowTest, StandsCentredOnTheWizardWithoutHoldingIt) {
  bool looked = false;
  ui.onPendingEvents = [&] {
    ProgressWindow* progress = ui.progressWindow();
    if (looked || progress == nullptr || progress->percentText() != "50%") return;
    looked = true;
      EXPECT_TRUE(progress->windowFlags().testFlag(Qt::Tool));  // no task-bar entry
    EXPECT_FALSE(progress->isModal());
    EXPECT_EQ(progress->parentWidget(), ui.wizardWindow());
    const QPoint offset = progress->frameGeometry().center() - ui.wizardWindow()->frameGeometry().center();
    EXPECT_LE(offset.manhattanLength(), 4);
    // The wizard stays live: its buttons take clicks while the loop runs.
    EXPECT_TRUE(ui.wizardWindow()->isEnabled());
    SaveScreenshot(progress, "progress_window");
  };
  PreviewOf(4);
  EXPECT_TRUE(looked);
}

TEST_F(ProgressWindowTest, CancelDuringTheLoopEndsTheProgramAtOnce) {
  bool ended = false;
  int runsAfterCancel = 0;
  ui.onPendingEvents = [&] {
    if (ended) {
      ++runsAfterCancel;
      return;
    }
    ProgressWindow* progress = ui.progressWindow();
    if (progress != nullptr && progress->percentText() == "25%") {
      QTest::mouseClick(Find<QPushButton>(window(), "cmdCancel"), Qt::LeftButton);
    }
  };
  Start();
  form->programEnded.Connect([&ended] { ended = true; });
  DropData drop;
  for (int i = 0; i < 8; ++i) drop.files.push_back("c:\\p\\" + std::to_string(i) + ".jpg");
  form->AddDroppedFiles(drop);
  form->lblStep[3].Click();
  Settle();
  EXPECT_TRUE(ended);
  EXPECT_EQ(runsAfterCancel, 0);  // no further file was looked at
  EXPECT_FALSE(ui.progressTexts.contains("37.5%"));
  EXPECT_EQ(ui.progressWindow(), nullptr);
  EXPECT_EQ(ui.wizardWindow(), nullptr);  // the window went with its form
}

}  // namespace
}  // namespace tessaly::qt
