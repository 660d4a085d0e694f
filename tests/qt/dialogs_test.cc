// The two list dialogs, opened from step 2 and worked by a person.

#include <gmock/gmock.h>

#include <QAbstractItemView>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QTest>

#include "qt_test_support.h"

namespace tessaly::qt {
namespace {

class DialogsTest : public QtWizardTest {
 protected:
  void SetUp() override {
    Start();
    Click(Find<QLabel>(window(), "lblStep2"));
  }
  std::string Stored(const char* name) {
    return store.GetProgramSetting("Settings", name, SettingValue::FromText("(none)")).AsText();
  }
  static QStringList Rows(QListView* list) {
    QStringList rows;
    for (int i = 0; i < list->model()->rowCount(); ++i) {
      const QModelIndex row = list->model()->index(i, 0);
      rows << row.data().toString() +
                  (row.data(Qt::CheckStateRole).toInt() == Qt::Checked ? " [x]" : " [ ]");
    }
    return rows;
  }
  static void ClickRow(QListView* list, int row) {
    QTest::mouseClick(list->viewport(), Qt::LeftButton, Qt::NoModifier,
                      list->visualRect(list->model()->index(row, 0)).center());
    Settle();
  }
};

TEST_F(DialogsTest, AdvancedReplaceAddsRowsOnTopAndStoresTheirMarks) {
  bool worked = false;
  WhenModalOpens([&](QWidget* dialog) {
    EXPECT_EQ(dialog->windowTitle(), "Advanced Replace");
    EXPECT_EQ(Find<QComboBox>(window(), "cboBatch6")->currentText(), "(Advanced)");
    EXPECT_FALSE(Find<QPushButton>(window(), "cmdReplaceAdv2")->isHidden());
    auto* list = Find<QListView>(dialog, "lstReplace");
    TypeOver(Find<QComboBox>(dialog, "cboBatch0"), "Copy of ");
    Click(Find<QPushButton>(dialog, "cmdAdd"));
    TypeOver(Find<QComboBox>(dialog, "cboBatch0"), "_");
    TypeOver(Find<QComboBox>(dialog, "cboBatch1"), " ");
    Click(Find<QPushButton>(dialog, "cmdAdd"));
    EXPECT_EQ(Rows(list), (QStringList{"_ >>   [x]", "Copy of  >>  [x]"}));
    // The mark of the second row goes off with the keyboard's space.
    ClickRow(list, 1);
    QTest::keyClick(list, Qt::Key_Space);
    Settle();
    EXPECT_EQ(Rows(list), (QStringList{"_ >>   [x]", "Copy of  >>  [ ]"}));
    SaveScreenshot(dialog, "dialog_advanced_replace");
    Click(Find<QPushButton>(dialog, "cmdAccept"));
    worked = true;
  });
  // Picking "(Advanced)" in the With box fills both boxes and opens the dialog.
  auto* with = Find<QComboBox>(window(), "cboBatch7");
  with->showPopup();
  QAbstractItemView* items = with->view();
  QTest::mouseClick(items->viewport(), Qt::LeftButton, Qt::NoModifier,
                    items->visualRect(items->model()->index(0, 0)).center());
  Settle();
  EXPECT_TRUE(worked);
  EXPECT_EQ(with->currentText(), "(Advanced)");
  EXPECT_EQ(Stored("ReplaceList"), "_ >>  %%1|Copy of  >> %%0|");
}

TEST_F(DialogsTest, UnwantedFormattingEditsItsRowsAndSavesOnFinished) {
  bool worked = false;
  WhenModalOpens([&](QWidget* dialog) {
    auto* list = Find<QListView>(dialog, "lstRemove");
    ASSERT_EQ(list->model()->rowCount(), 7);
    EXPECT_EQ(Rows(list).first(), "Copy Of [ ]");

    ClickRow(list, 2);
    auto* edit = Find<QLineEdit>(dialog, "txtEdit");
    EXPECT_EQ(edit->text(), "Shortcut To");
    TypeOver(edit, "Shortcut to");
    Click(Find<QPushButton>(dialog, "cmdUpdate"));
    TypeOver(Find<QLineEdit>(dialog, "txtAdd"), "Copy ");
    Click(Find<QPushButton>(dialog, "cmdAdd"));
    EXPECT_EQ(Rows(list).mid(0, 4),
              (QStringList{"Copy  [x]", "Copy Of [ ]", "Copy (##) Of [ ]", "Shortcut to [ ]"}));
    SaveScreenshot(dialog, "dialog_unwanted_formatting");
    // The edit box takes the row's text selected with the focus.
    ClickRow(list, 1);
    QTest::mouseClick(edit, Qt::LeftButton);
    Settle();
    EXPECT_EQ(edit->selectedText(), "Copy Of");
    dialog->close();  // the close box saves as Finished does
    worked = true;
  });
  Click(Find<QPushButton>(window(), "cmdUnwantedFormat"));
  EXPECT_TRUE(worked);
  EXPECT_THAT(Stored("FormattingList"),
              ::testing::StartsWith("Copy %%1|Copy Of%%0|Copy (##) Of%%0|Shortcut to%%0|"));
}

}  // namespace
}  // namespace tessaly::qt
