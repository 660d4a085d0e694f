// The pages and windows of the wizard, worked by a person: step 1's drops,
// selection and file dialog, step 2's boxes, a list dialog, and Cancel
// during the preview loop.

#include <gmock/gmock.h>

#include <QCheckBox>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QItemSelectionModel>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPlainTextEdit>
#include <QPushButton>
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

// A greyed box is drawn partly checked; a click ticks it.
TEST_F(QtWizardTest, BoxesFollowTheirControlsBothWays) {
  Start();
  Click(Find<QLabel>(window(), "lblStep2"));
  auto* underscores = Find<QCheckBox>(window(), "chkRemoveu");
  auto* spaces = Find<QCheckBox>(window(), "chkAllowSpaces");
  Click(underscores);
  Click(spaces);
  EXPECT_EQ(spaces->checkState(), Qt::Unchecked);
  EXPECT_EQ(underscores->checkState(), Qt::PartiallyChecked);
  EXPECT_THAT(Find<QPlainTextEdit>(window(), "txtExample")->toPlainText().toStdString(),
              ::testing::HasSubstr("My_file_data"));
  Click(underscores);
  EXPECT_EQ(underscores->checkState(), Qt::Checked);
  EXPECT_EQ(spaces->checkState(), Qt::Checked);
}

TEST_F(QtWizardTest, UnwantedFormattingShowsItsRowsAndSavesOnClose) {
  Start();
  Click(Find<QLabel>(window(), "lblStep2"));
  const auto clickRow = [](QListView* list, int row) {
    QTest::mouseClick(list->viewport(), Qt::LeftButton, Qt::NoModifier,
                      list->visualRect(list->model()->index(row, 0)).center());
    Settle();
  };
  bool worked = false;
  WhenModalOpens([&](QWidget* dialog) {
    auto* list = Find<QListView>(dialog, "lstRemove");
    TypeOver(Find<QLineEdit>(dialog, "txtAdd"), "Copy ");
    Click(Find<QPushButton>(dialog, "cmdAdd"));
    EXPECT_EQ(list->model()->index(0, 0).data(Qt::CheckStateRole).toInt(), Qt::Checked);
    // The edit box takes the clicked row's text, selected with the focus.
    clickRow(list, 1);
    auto* edit = Find<QLineEdit>(dialog, "txtEdit");
    QTest::mouseClick(edit, Qt::LeftButton);
    Settle();
    EXPECT_EQ(edit->selectedText(), "Copy Of");
    dialog->close();  // the close box saves as Finished does
    worked = true;
  });
  Click(Find<QPushButton>(window(), "cmdUnwantedFormat"));
  EXPECT_TRUE(worked);
  EXPECT_THAT(store.GetProgramSetting("Settings", "FormattingList").AsText(),
              ::testing::StartsWith("Copy %%1|Copy Of%%0|"));
}

TEST_F(QtWizardTest, CancelDuringTheLoopEndsTheProgramAtOnce) {
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
