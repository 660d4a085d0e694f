// The pages and windows of the wizard, worked by a person: step 1's drops
// and selection, step 2's boxes and step 3's panel, the two list dialogs,
// and the progress window beside the preview loop.

#include <gmock/gmock.h>

#include <QAbstractItemView>
#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QItemSelectionModel>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTemporaryDir>
#include <QTest>

#include "platform/posix/native_path.h"
#include "qt_test_support.h"

namespace tessaly::qt {
namespace {

class FilePageTest : public QtWizardTest {
 protected:
  void SetUp() override {
    Start();
    form->lblStep[1].Click();
    Settle();
    list = Find<QListView>(window(), "lstFiles");
  }
  QStringList Rows() const {
    QStringList rows;
    for (int i = 0; i < list->model()->rowCount(); ++i) rows << list->model()->index(i, 0).data().toString();
    return rows;
  }
  QListView* list = nullptr;
};

TEST_F(FilePageTest, DroppedPathsArriveInModelFormFolderIncluded) {
  ASSERT_TRUE(DropFiles(list->viewport(), {"/srv/photos/b.jpg", "/srv/photos/", "/srv/a b\\c.jpg"}));
  // A native backslash is an ordinary character of the name; the folder
  // comes without its closing slash.
  EXPECT_EQ(Rows(), (QStringList{"\\srv\\a b/c.jpg", "\\srv\\photos", "\\srv\\photos\\b.jpg"}));
  // Text without files adds nothing, but the count is shown again.
  EXPECT_TRUE(DropText(list->viewport(), "just some words"));
  EXPECT_EQ(Rows().size(), 3);
  EXPECT_EQ(Find<QLabel>(window(), "lStat")->text(), "3 files.");
}

TEST_F(FilePageTest, EveryDropTargetOfThePageTakesFiles) {
  int expected = 0;
  for (const char* name : {"Frame2", "Label11", "lblText1", "pStep1"}) {
    const QString path = QStringLiteral("/d/%1.txt").arg(QLatin1String(name));
    // Near a corner: the frame's and the page's centres lie on their
    // controls.
    QWidget* target = Find<QWidget>(window(), name);
    const QPoint corner(target->width() - 3, target->height() - 3);
    EXPECT_TRUE(DropFiles(target, {path}, &corner)) << name;
    EXPECT_EQ(list->model()->rowCount(), ++expected) << name;
  }
}

TEST_F(FilePageTest, RemoveTakesExactlyTheRowsSelectedInTheView) {
  ASSERT_TRUE(DropFiles(list->viewport(), {"/d/e", "/d/d", "/d/c", "/d/b", "/d/a"}));
  // A click, then control-clicks at the far end and in the middle.
  for (int row : {0, 4, 2}) {
    const QRect cell = list->visualRect(list->model()->index(row, 0));
    QTest::mouseClick(list->viewport(), Qt::LeftButton,
                      row == 0 ? Qt::NoModifier : Qt::ControlModifier, cell.center());
  }
  Click(Find<QPushButton>(window(), "cmdRemove"));
  EXPECT_EQ(Rows(), (QStringList{"\\d\\b", "\\d\\d"}));
  EXPECT_EQ(Find<QLabel>(window(), "lStat")->text(), "2 files.");
  EXPECT_TRUE(list->selectionModel()->selectedRows().isEmpty());
  Click(Find<QPushButton>(window(), "cmdClear"));
  EXPECT_EQ(Find<QLabel>(window(), "lStat")->text(), "0 files.");
}

TEST_F(FilePageTest, AddFilesTakesEveryFileChosenInTheDialog) {
  QTemporaryDir folder;
  for (const char* name : {"b.txt", "a.txt", "c"}) {
    QFile file(QDir(folder.path()).filePath(name));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  }
  WhenModalOpens([&](QWidget* modal) {
    auto* dialog = qobject_cast<QFileDialog*>(modal);
    ASSERT_NE(dialog, nullptr);
    dialog->setDirectory(folder.path());
    // Typed into the name box: selectFile leaves the box alone once it has
    // the focus, which it takes at some moment after opening.
    Find<QLineEdit>(dialog, "fileNameEdit")->setText("\"b.txt\" \"a.txt\"");
    QMetaObject::invokeMethod(dialog, "accept");
  });
  Click(Find<QPushButton>(window(), "cmdAddFiles"));
  const QString model = QString::fromStdString(ToModelPath(folder.path().toStdString()));
  EXPECT_EQ(Rows(), (QStringList{model + "\\a.txt", model + "\\b.txt"}));
}

TEST_F(FilePageTest, OneChosenFileIsAnsweredAsTheDesktopDialogDoes) {
  const OpenFileAnswer answer = ShapeOpenFileAnswer({"/d/photo.jpeg"});
  EXPECT_EQ(answer.buffer.substr(0, 14), std::string("\\d\\photo.jpeg\0", 14));
  EXPECT_EQ(answer.extensionOffset, 9);
}

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
