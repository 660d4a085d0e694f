// The wizard window worked by a person: one whole way through on real
// files, the overwrite question, and what only the window can get wrong:
// drops, selection, the file dialog, boxes, a list dialog, and Cancel
// during the preview loop.

#include <gmock/gmock.h>

#include <QAbstractItemView>
#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QItemSelectionModel>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QStackedWidget>
#include <QTemporaryDir>
#include <QTest>
#include <QTextBlock>

#include "platform/posix/native_path.h"
#include "platform/posix/posix_file_system.h"
#include "qt_test_support.h"

namespace tessaly::qt {
namespace {

// The colour the log draws the line holding `text` in, from its first
// character: its own, or the palette's text colour.
QColor LineColour(QPlainTextEdit* log, const QString& text) {
  for (QTextBlock block = log->document()->begin(); block.isValid(); block = block.next()) {
    if (!block.text().contains(text)) continue;
    const QTextCharFormat format = block.begin().fragment().charFormat();
    return format.hasProperty(QTextFormat::ForegroundBrush) ? format.foreground().color()
                                                            : log->palette().color(QPalette::Text);
  }
  ADD_FAILURE() << "no line holds " << text.toStdString();
  return {};
}

// The wizard window over a real folder of files.
class WizardWalkTest : public ::testing::Test {
 protected:
  WizardWalkTest() { QDir(folder.path()).mkpath("photos"); }
  ~WizardWalkTest() override {
    delete ui.wizardWindow();
    Settle();
  }

  QString MakeFile(const QString& name) {
    const QString path = QDir(folder.path()).filePath("photos/" + name);
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(name.toUtf8());
    return path;
  }
  QStringList FilesOnDisk() const {
    return QDir(QDir(folder.path()).filePath("photos")).entryList(QDir::Files, QDir::Name);
  }

  QTemporaryDir folder;
  PosixFileSystem fileSystem;
  BasicMemoryWorld<WatchingUi> world{fileSystem};
  WatchingUi& ui = world.ui;
  std::unique_ptr<fTessaly>& form = world.form;
};

TEST_F(WizardWalkTest, PersonRenamesDroppedFilesAndReadsTheColouredLog) {
  world.Start();
  Settle();
  QWidget* window = ui.wizardWindow();
  ASSERT_NE(window, nullptr);
  auto* next = Find<QPushButton>(window, "cmdNext");
  // Return on the focused Next goes on, as in a dialog.
  next->setFocus();
  QTest::keyClick(next, Qt::Key_Return);
  Settle();
  auto* pages = ui.wizardWindow()->pages();
  EXPECT_EQ(pages->currentIndex(), 1);

  // Dropped in any order, listed sorted.
  auto* list = Find<QListView>(window, "lstFiles");
  ASSERT_TRUE(DropFiles(list->viewport(), {MakeFile("pear.txt"), MakeFile("Apple.txt"),
                                           MakeFile("fig.txt")}));
  ASSERT_EQ(list->model()->rowCount(), 3);
  EXPECT_THAT(list->model()->index(0, 0).data().toString().toStdString(),
              ::testing::EndsWith("/photos/Apple.txt"));
  EXPECT_EQ(Find<QLabel>(window, "lStat")->text(), "3 files.");

  Click(next);
  auto* example = Find<QPlainTextEdit>(window, "txtExample");
  TypeOver(Find<QWidget>(window, "cboBatch0"), "3 Digit Serial Number");
  Click(Find<QCheckBox>(window, "chkUpperCase"));
  EXPECT_EQ(example->toPlainText(), "001.TXT\n002.TXT\n003.TXT");
  // Return that no control takes is the page's Next, also in a box being
  // typed in.
  QLineEdit* typing = Find<QComboBox>(window, "cboBatch0")->lineEdit();
  typing->setFocus();
  QTest::keyClick(typing, Qt::Key_Return);
  Settle();
  EXPECT_EQ(pages->currentIndex(), 3);
  EXPECT_EQ(ui.progressTitles, QStringList{"Generating Renamed Files Preview..."});
  const QStringList lines = Find<QPlainTextEdit>(window, "tOutput")->toPlainText().split('\n');
  ASSERT_GE(lines.size(), 4);
  EXPECT_THAT(lines[1].toStdString(), ::testing::EndsWith("/photos/001.TXT"));

  Click(next);
  EXPECT_EQ(pages->currentIndex(), 4);
  EXPECT_EQ(FilesOnDisk(), (QStringList{"001.TXT", "002.TXT", "003.TXT"}));
  auto* log = Find<QPlainTextEdit>(window, "tLog");
  EXPECT_EQ(LineColour(log, "Apple.txt > "), QColor(0, 0, 255));
  EXPECT_EQ(LineColour(log, "3 total files."), QApplication::palette().color(QPalette::Text));
  bool ended = false;
  form->programEnded.Connect([&ended] { ended = true; });
  QTest::keyClick(log, Qt::Key_Escape);  // does what "Finished" does
  EXPECT_TRUE(ended);
}

TEST_F(WizardWalkTest, NoToTheOverwriteQuestionKeepsTheTakenFile) {
  world.Start();
  Settle();
  QWidget* window = ui.wizardWindow();
  form->lblStep[1].Click();
  Settle();
  // The name holds an escape, which must show, not act.
  MakeFile("ta\x1bken.txt");
  ASSERT_TRUE(DropFiles(Find<QListView>(window, "lstFiles")->viewport(), {MakeFile("new.txt")}));
  Click(Find<QLabel>(window, "lblStep2"));
  form->cboBatch[0].SetText("ta\x1bken");
  Click(Find<QLabel>(window, "lblStep3"));

  QString asked;
  WhenModalOpens([&](QWidget* modal) {
    auto* box = qobject_cast<QMessageBox*>(modal);
    ASSERT_NE(box, nullptr);
    asked = box->windowTitle() + ": " + box->text();
    Click(box->button(QMessageBox::No));
  });
  Click(Find<QPushButton>(window, "cmdNext"));
  EXPECT_EQ(asked, "Confirm Overwrite: The file 'ta\\x1bken.txt' already exists. "
                   "Would you like to overwrite this file?");
  // The file waits under its temporary name, and the line says so in black.
  EXPECT_EQ(FilesOnDisk(), (QStringList{"ta\x1bken.txt", "ta\x1bken.txt.temp"}));
  auto* log = Find<QPlainTextEdit>(window, "tLog");
  EXPECT_EQ(LineColour(log, "(Completed - Error Removing Temp"), QColor(0, 0, 0));
  EXPECT_TRUE(log->toPlainText().contains(u"ta\u241bken.txt"));
}

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

TEST_F(FilePageTest, EveryDropTargetOfThePageTakesFiles) {
  int expected = 0;
  for (const char* name : {"Frame2", "Label11", "lblText1", "pStep1"}) {
    // Near a corner: the frame's and the page's centres lie on their
    // controls.
    QWidget* target = Find<QWidget>(window(), name);
    const QPoint corner(target->width() - 3, target->height() - 3);
    EXPECT_TRUE(DropFiles(target, {QStringLiteral("/d/%1").arg(name)}, &corner)) << name;
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

// The note on included paths lies over the destination options.
TEST_F(QtWizardTest, IncludePathCoversTheDestinationWithItsNote) {
  Start();
  Click(Find<QLabel>(window(), "lblStep3"));
  QWidget* same = Find<QWidget>(window(), "optMoveSameFolder");
  const QPoint centre = same->mapTo(window(), same->rect().center());
  EXPECT_EQ(window()->childAt(centre), same);
  Click(Find<QLabel>(window(), "lblStep2"));
  Click(Find<QCheckBox>(window(), "chkIncludePaths"));
  Click(Find<QPushButton>(window(), "cmdNext"));
  EXPECT_EQ(window()->childAt(centre)->objectName(), "lInfoPath");
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

TEST_F(QtWizardTest, PickingAdvancedInTheWithBoxOpensItsDialog) {
  Start();
  Click(Find<QLabel>(window(), "lblStep2"));
  QString opened;
  WhenModalOpens([&](QWidget* dialog) {
    opened = dialog->windowTitle();
    Click(Find<QPushButton>(dialog, "cmdAccept"));
  });
  auto* with = Find<QComboBox>(window(), "cboBatch7");
  with->showPopup();
  QAbstractItemView* items = with->view();
  QTest::mouseClick(items->viewport(), Qt::LeftButton, Qt::NoModifier,
                    items->visualRect(items->model()->index(0, 0)).center());
  Settle();
  EXPECT_EQ(opened, "Advanced Replace");
  EXPECT_EQ(Find<QComboBox>(window(), "cboBatch6")->currentText(), "(Advanced)");
}

// Lists `count` files and enters step 3, whose preview loop shows the
// progress window.
void PreviewOf(fTessaly& form, int count) {
  DropData drop;
  for (int i = 0; i < count; ++i) drop.files.push_back("c:\\p\\" + std::to_string(i) + ".jpg");
  form.AddDroppedFiles(drop);
  form.lblStep[3].Click();
  Settle();
}

TEST_F(QtWizardTest, ProgressStandsCentredOnTheWizardWithoutHoldingIt) {
  bool looked = false;
  ui.onPendingEvents = [&] {
    ProgressWindow* progress = ui.progressWindow();
    if (looked || progress == nullptr || progress->percentText() != "50%") return;
    looked = true;
    EXPECT_TRUE(progress->windowFlags().testFlag(Qt::Tool));  // no task-bar entry
    EXPECT_FALSE(progress->isModal());
    const QPoint offset = progress->frameGeometry().center() - window()->frameGeometry().center();
    EXPECT_LE(offset.manhattanLength(), 4);
    EXPECT_TRUE(window()->isEnabled());  // its buttons take clicks while the loop runs
  };
  PreviewOf(Start(), 4);
  EXPECT_TRUE(looked);
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
  Start().programEnded.Connect([&ended] { ended = true; });
  PreviewOf(*form, 8);
  EXPECT_TRUE(ended);
  EXPECT_EQ(runsAfterCancel, 0);  // no further file was looked at
  EXPECT_FALSE(ui.progressTexts.contains("37.5%"));
  EXPECT_EQ(ui.progressWindow(), nullptr);
  EXPECT_EQ(ui.wizardWindow(), nullptr);  // the window went with its form
}

}  // namespace
}  // namespace tessaly::qt
