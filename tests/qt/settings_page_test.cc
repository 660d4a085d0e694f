// Step 2 and step 3 in the window: placements, options, the example, the
// destination panel.

#include <gmock/gmock.h>

#include <QAbstractItemView>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QDialog>
#include <QLineEdit>
#include <QTest>

#include "qt_test_support.h"

namespace tessaly::qt {
namespace {

class SettingsPageTest : public QtWizardTest {
 protected:
  void SetUp() override {
    Start();
    Click(Find<QLabel>(window(), "lblStep2"));
    example = Find<QPlainTextEdit>(window(), "txtExample");
  }
  QPlainTextEdit* example = nullptr;
};

TEST_F(SettingsPageTest, GreyedBoxIsDrawnPartlyCheckedAndAClickTicksIt) {
  auto* underscores = Find<QCheckBox>(window(), "chkRemoveu");
  auto* spaces = Find<QCheckBox>(window(), "chkAllowSpaces");
  EXPECT_EQ(spaces->checkState(), Qt::Checked);
  Click(underscores);
  EXPECT_EQ(underscores->checkState(), Qt::Checked);
  Click(spaces);
  EXPECT_EQ(spaces->checkState(), Qt::Unchecked);
  EXPECT_EQ(underscores->checkState(), Qt::PartiallyChecked);
  EXPECT_THAT(example->toPlainText().toStdString(), ::testing::HasSubstr("My_file_data"));
  Click(underscores);
  EXPECT_EQ(underscores->checkState(), Qt::Checked);
  EXPECT_EQ(spaces->checkState(), Qt::Checked);
}

TEST_F(SettingsPageTest, IncludePathCoversTheDestinationWithItsNote) {
  Click(Find<QCheckBox>(window(), "chkIncludePaths"));
  EXPECT_THAT(example->toPlainText().toStdString(),
              ::testing::StartsWith("c:\\graphics\\common\\myfile_"));
  Click(Find<QPushButton>(window(), "cmdNext"));
  auto* panel = Find<QWidget>(window(), "pFolderPath");
  EXPECT_TRUE(panel->isVisible());
  EXPECT_THAT(Find<QLabel>(panel, "lInfoPath")->text().toStdString(),
              ::testing::StartsWith("You currently have selected to include the path"));
  // The panel lies over the options: a click there reaches the panel.
  auto* same = Find<QRadioButton>(window(), "optMoveSameFolder");
  const QPoint centre = same->mapTo(window(), same->rect().center());
  EXPECT_EQ(window()->childAt(centre)->objectName(), "lInfoPath");
  SaveScreenshot(window(), "step3_include_path");
}

}  // namespace
}  // namespace tessaly::qt
