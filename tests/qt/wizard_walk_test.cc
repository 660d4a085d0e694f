// A person's whole way through the wizard window, on real files.

#include <gmock/gmock.h>

#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QFile>
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

}  // namespace
}  // namespace tessaly::qt
