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

TEST_F(SettingsPageTest, ShowsTheFilledPlacementsAndTheBuiltInExample) {
  auto* first = Find<QComboBox>(window(), "cboBatch0");
  EXPECT_EQ(first->currentText(), "Document Name");
  EXPECT_EQ(first->count(), 20);
  EXPECT_EQ(Find<QComboBox>(window(), "cboBatch6")->itemText(0), "(Advanced)");
  EXPECT_EQ(Find<QComboBox>(window(), "cboBatch6")->currentText(), "");
  EXPECT_TRUE(Find<QPushButton>(window(), "cmdReplaceAdv")->isHidden());
  EXPECT_FALSE(Find<QPushButton>(window(), "cmdUnwantedFormat")->isHidden());
  EXPECT_EQ(example->toPlainText(),
            "myfile_(1).tmd.jpg.jpeg\nCopy of MYFILE -    SPACE - 04 - Oddy.jpg\n"
            "MyFile - My file data HeadEr .mp3");
  SaveScreenshot(window(), "step2_fresh");
}

TEST_F(SettingsPageTest, TypingNoneLetterByLetterEmptiesTheBox) {
  auto* second = Find<QComboBox>(window(), "cboBatch1");
  TypeOver(second, "(none");
  EXPECT_EQ(second->currentText(), "(none");
  EXPECT_THAT(example->toPlainText().toStdString(), ::testing::HasSubstr("(none"));
  QTest::keyClicks(second->lineEdit(), ")");
  Settle();
  EXPECT_EQ(second->currentText(), "");
  EXPECT_EQ(example->toPlainText().split('\n').first(), "myfile_(1).tmd.jpg");
}

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

TEST_F(SettingsPageTest, ChoosingAdvancedFillsBothBoxesAndOpensTheDialog) {
  auto* with = Find<QComboBox>(window(), "cboBatch7");
  QString openTitle;
  QString replaceWhileOpen;
  bool dotsWhileOpen = false;
  WhenModalOpens([&](QWidget* modal) {
    openTitle = modal->windowTitle();
    replaceWhileOpen = Find<QComboBox>(window(), "cboBatch6")->currentText();
    dotsWhileOpen = !Find<QPushButton>(window(), "cmdReplaceAdv2")->isHidden();
    Click(Find<QPushButton>(modal, "cmdAccept"));
  });
  with->showPopup();
  QAbstractItemView* items = with->view();
  QTest::mouseClick(items->viewport(), Qt::LeftButton, Qt::NoModifier,
                    items->visualRect(items->model()->index(0, 0)).center());
  Settle();
  EXPECT_EQ(openTitle, "Advanced Replace");
  EXPECT_EQ(replaceWhileOpen, "(Advanced)");
  EXPECT_TRUE(dotsWhileOpen);
  EXPECT_EQ(with->currentText(), "(Advanced)");
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
  EXPECT_TRUE(Find<QPushButton>(window(), "cmdNext")->isHidden() == false);
  SaveScreenshot(window(), "step3_include_path");
}

TEST_F(SettingsPageTest, MoveToNewFolderWithoutAFolderFallsBackWhenTheBrowserIsCancelled) {
  files.AddFile("c:\\p\\a.jpg");
  DropData drop;
  drop.files = {"c:\\p\\a.jpg"};
  form->AddDroppedFiles(drop);
  Click(Find<QPushButton>(window(), "cmdNext"));
  auto* other = Find<QRadioButton>(window(), "optMoveNewFolder");
  QString browserTitle;
  WhenModalOpens([&](QWidget* modal) {
    browserTitle = modal->windowTitle();
    qobject_cast<QDialog*>(modal)->reject();
  });
  Click(other);
  EXPECT_EQ(browserTitle, "Select folder to move files to...");
  EXPECT_FALSE(other->isChecked());
  EXPECT_TRUE(Find<QRadioButton>(window(), "optMoveSameFolder")->isChecked());
  EXPECT_TRUE(Find<QPlainTextEdit>(window(), "tOutput")->toPlainText().contains("c:\\p\\a.jpg"));
}

}  // namespace
}  // namespace tessaly::qt
