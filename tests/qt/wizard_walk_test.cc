// A person's whole way through the wizard window, on real files.

#include <gmock/gmock.h>

#include <QCheckBox>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QListView>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QStackedWidget>
#include <QTemporaryDir>
#include <QTextBlock>
#include <cstdlib>

#include "platform/memory/fixed_clock.h"
#include "platform/memory/fixed_locale.h"
#include "platform/memory/fixed_network_status.h"
#include "platform/memory/memory_short_paths.h"
#include "platform/memory/recording_shell.h"
#include "platform/memory/scripted_random.h"
#include "platform/posix/posix_file_system.h"
#include "platform/posix/posix_program.h"
#include "platform/posix/sqlite_registry.h"
#include "qt_test_support.h"
#include "wizard/start_up.h"

namespace tessaly::qt {
namespace {

// The colour the log draws the line holding `text` in, from its first
// character.
QColor LineColour(QPlainTextEdit* log, const QString& text) {
  for (QTextBlock block = log->document()->begin(); block.isValid(); block = block.next()) {
    if (!block.text().contains(text)) continue;
    return block.begin().fragment().charFormat().foreground().color();
  }
  ADD_FAILURE() << "no line holds " << text.toStdString();
  return {};
}

class WizardWalkTest : public ::testing::Test {
 protected:
  WizardWalkTest() {
    // The registry's hives live in the test's own folder.
    setenv("TESSALY_REGISTRY_DIR", QDir(folder.path()).filePath("registry").toUtf8().constData(), 1);
    QDir(folder.path()).mkpath("registry");
    QDir(folder.path()).mkpath("photos");
    registry = std::make_unique<SqliteRegistry>();
    store = std::make_unique<SettingsStore>(*registry);
  }
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

  fTessaly& Start() {
    form = std::make_unique<fTessaly>(WizardServices{fileSystem, *store, ui, clock, locale, random,
                                                     program, shell, network, shortPaths});
    StartWizard(*form, ui);
    Settle();
    return *form;
  }

  QTemporaryDir folder;
  PosixFileSystem fileSystem;
  std::unique_ptr<SqliteRegistry> registry;
  std::unique_ptr<SettingsStore> store;
  WatchingUi ui;
  FixedClock clock{CivilDateTime{{2026, 11, 18}, 14, 2, 9}};
  FixedLocale locale;
  ScriptedRandom random;
  PosixProgram program{""};
  RecordingShell shell;
  FixedNetworkStatus network;
  MemoryShortPaths shortPaths;
  std::unique_ptr<fTessaly> form;
};

TEST_F(WizardWalkTest, PersonRenamesDroppedFilesAndReadsTheColouredLog) {
  Start();
  QWidget* window = ui.wizardWindow();
  ASSERT_NE(window, nullptr);
  EXPECT_TRUE(window->isVisible());
  EXPECT_EQ(window->windowTitle(), "Tessaly - v1.0.14");
  auto* next = Find<QPushButton>(window, "cmdNext");
  auto* back = Find<QPushButton>(window, "cmdBack");
  EXPECT_EQ(next->text(), "Next >");
  EXPECT_FALSE(back->isEnabled());
  EXPECT_TRUE(Find<QLabel>(window, "lblStep0")->font().bold());
  EXPECT_THAT(Find<QLabel>(window, "lWelcome")->text().toStdString(),
              ::testing::StartsWith("Welcome to the Tessaly wizard."));
  SaveScreenshot(window, "step0_welcome");

  Click(next);
  auto* pages = ui.wizardWindow()->pages();
  EXPECT_EQ(pages->currentIndex(), 1);
  EXPECT_TRUE(Find<QLabel>(window, "lblStep1")->font().bold());
  EXPECT_FALSE(Find<QLabel>(window, "lblStep0")->font().bold());
  EXPECT_THAT(Find<QLabel>(window, "lblText1")->text().toStdString(),
              ::testing::HasSubstr("   2. Drag and drop files onto this window."));

  // Dropped in any order, listed sorted.
  auto* list = Find<QListView>(window, "lstFiles");
  ASSERT_TRUE(DropFiles(list->viewport(), {MakeFile("pear.txt"), MakeFile("Apple.txt"),
                                           MakeFile("fig.txt")}));
  ASSERT_EQ(list->model()->rowCount(), 3);
  EXPECT_THAT(list->model()->index(0, 0).data().toString().toStdString(),
              ::testing::EndsWith("\\photos\\Apple.txt"));
  EXPECT_THAT(list->model()->index(2, 0).data().toString().toStdString(),
              ::testing::EndsWith("\\photos\\pear.txt"));
  EXPECT_EQ(Find<QLabel>(window, "lStat")->text(), "3 files.");
  SaveScreenshot(window, "step1_files");

  Click(next);
  EXPECT_EQ(pages->currentIndex(), 2);
  auto* example = Find<QPlainTextEdit>(window, "txtExample");
  // Half-typed, the placement is free text; whole, it is a serial number.
  auto* first = Find<QWidget>(window, "cboBatch0");
  TypeOver(first, "3 Digit");
  EXPECT_THAT(example->toPlainText().toStdString(), ::testing::HasSubstr("3 Digit.txt"));
  TypeOver(first, "3 Digit Serial Number");
  EXPECT_EQ(example->toPlainText(), "001.txt\n002.txt\n003.txt");
  auto* upper = Find<QCheckBox>(window, "chkUpperCase");
  Click(upper);
  EXPECT_TRUE(upper->isChecked());
  EXPECT_EQ(example->toPlainText(), "001.TXT\n002.TXT\n003.TXT");
  SaveScreenshot(window, "step2_settings");

  Click(next);
  EXPECT_EQ(pages->currentIndex(), 3);
  EXPECT_EQ(next->text(), "Finish >");
  EXPECT_TRUE(next->isEnabled());
  auto* preview = Find<QPlainTextEdit>(window, "tOutput");
  EXPECT_TRUE(preview->isVisible());
  const QStringList lines = preview->toPlainText().split('\n');
  ASSERT_GE(lines.size(), 4);
  EXPECT_EQ(lines[0], "Rename Files Preview:");
  // UPPERCASE takes the folder part too; the disk finds it all the same.
  EXPECT_THAT(lines[1].toStdString(), ::testing::EndsWith("\\PHOTOS\\001.TXT"));
  EXPECT_TRUE(lines[1].startsWith("    "));
  EXPECT_EQ(ui.progressTitles, QStringList{"Generating Renamed Files Preview..."});
  SaveScreenshot(window, "step3_review");

  Click(next);
  EXPECT_EQ(pages->currentIndex(), 4);
  EXPECT_TRUE(next->isHidden());
  EXPECT_TRUE(back->isHidden());
  EXPECT_EQ(Find<QPushButton>(window, "cmdCancel")->text(), "Finished");
  EXPECT_EQ(FilesOnDisk(), (QStringList{"001.TXT", "002.TXT", "003.TXT"}));
  auto* log = Find<QPlainTextEdit>(window, "tLog");
  EXPECT_EQ(log->lineWrapMode(), QPlainTextEdit::NoWrap);
  EXPECT_EQ(LineColour(log, "Apple.txt > "), QColor(0, 0, 255));
  EXPECT_EQ(LineColour(log, "3 total files."), QColor(0, 0, 0));
  EXPECT_THAT(log->toPlainText().toStdString(),
              ::testing::HasSubstr("3 files where renamed successfully."));
  SaveScreenshot(window, "step4_log");

  bool ended = false;
  form->programEnded.Connect([&ended] { ended = true; });
  Click(Find<QPushButton>(window, "cmdCancel"));
  EXPECT_TRUE(ended);
}

TEST_F(WizardWalkTest, NoToTheOverwriteQuestionKeepsTheTakenFile) {
  Start();
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
  QString title;
  WhenModalOpens([&](QWidget* modal) {
    auto* box = qobject_cast<QMessageBox*>(modal);
    ASSERT_NE(box, nullptr);
    asked = box->text();
    title = box->windowTitle();
    EXPECT_NE(box->button(QMessageBox::Cancel), nullptr);
    SaveScreenshot(box, "confirm_overwrite");
    Click(box->button(QMessageBox::No));
  });
  Click(Find<QPushButton>(window, "cmdNext"));
  EXPECT_EQ(title, "Confirm Overwrite");
  EXPECT_EQ(asked,
            "The file 'ta\\x1bken.txt' already exists. Would you like to overwrite this file?");
  // The file waits under its temporary name, and the line says so in black.
  EXPECT_EQ(FilesOnDisk(), (QStringList{"ta\x1bken.txt", "ta\x1bken.txt.temp"}));
  QFile taken(QDir(folder.path()).filePath("photos/ta\x1bken.txt"));
  ASSERT_TRUE(taken.open(QIODevice::ReadOnly));
  EXPECT_EQ(taken.readAll(), "ta\x1bken.txt");
  EXPECT_EQ(LineColour(Find<QPlainTextEdit>(window, "tLog"), "(Completed - Error Removing Temp"),
            QColor(0, 0, 0));
  EXPECT_TRUE(Find<QPlainTextEdit>(window, "tLog")->toPlainText().contains(u"ta\u241bken.txt"));
}

}  // namespace
}  // namespace tessaly::qt
