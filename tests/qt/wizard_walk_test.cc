// A person's whole way through the wizard window, on real files.

#include <gmock/gmock.h>

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QDir>
#include <QKeySequence>
#include <QMap>
#include <QFile>
#include <QLabel>
#include <QListView>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QStackedWidget>
#include <QTemporaryDir>
#include <QRadioButton>
#include <QTest>
#include <QTextBlock>

#include "platform/posix/posix_file_system.h"
#include "desktop_identity.h"
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

// A desktop the wizard must look right on.
struct Appearance {
  const char* name;  // behind the screenshots' names
  bool dark;
  double fontScale;
  QColor completed;  // a renamed file's line in the log
};

const char* DesktopName(const Appearance& appearance) {
  return appearance.name[0] == '\0' ? "plain" : appearance.name + 1;
}
void PrintTo(const Appearance& appearance, std::ostream* out) { *out << DesktopName(appearance); }

QPalette DarkPalette() {
  QPalette dark(QColor(53, 53, 53), QColor(45, 45, 45));
  dark.setColor(QPalette::Base, QColor(30, 30, 30));
  for (auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
    dark.setColor(role, QColor(225, 225, 225));
  }
  return dark;
}

// Every caption on show fits the room it is given: labels, boxes, options
// and buttons; a wrapped label is high enough for its lines.
void ExpectNothingClipped(QWidget* window) {
  for (QWidget* widget : window->findChildren<QWidget*>()) {
    if (!widget->isVisible()) continue;
    const QString name = widget->objectName() + " \"" + widget->property("text").toString() + "\"";
    if (auto* label = qobject_cast<QLabel*>(widget)) {
      if (label->wordWrap()) {
        EXPECT_LE(label->heightForWidth(label->width()), label->height()) << name.toStdString();
        continue;
      }
      EXPECT_LE(label->sizeHint().width(), label->width()) << name.toStdString();
      EXPECT_LE(label->sizeHint().height(), label->height()) << name.toStdString();
    } else if (qobject_cast<QCheckBox*>(widget) || qobject_cast<QRadioButton*>(widget)) {
      EXPECT_LE(widget->sizeHint().width(), widget->width()) << name.toStdString();
    } else if (auto* button = qobject_cast<QPushButton*>(widget)) {
      const QString shown = QString(button->text()).remove(QLatin1Char('&'));
      EXPECT_LT(button->fontMetrics().horizontalAdvance(shown), button->width()) << name.toStdString();
    }
  }
}

// ... and does so as well when the window is made as small as it lets.
void ExpectNothingClippedNarrowToo(QWidget* window) {
  ExpectNothingClipped(window);
  const QSize size = window->size();
  window->resize(1, 1);
  Settle();
  EXPECT_EQ(window->size(), window->minimumSize());
  ExpectNothingClipped(window);
  window->resize(size);
  Settle();
}

// Every button, box, option and caption of a box on show has a mnemonic,
// and no two share one.
void ExpectOwnMnemonics(QWidget* window) {
  QStringList captions;
  for (auto* button : window->findChildren<QAbstractButton*>()) {
    if (button->isVisible() && button->text() != "...") captions << button->text();
  }
  for (auto* label : window->findChildren<QLabel*>()) {
    if (label->isVisible() && label->buddy() != nullptr) captions << label->text();
  }
  QMap<QKeySequence, QString> taken;
  for (const QString& caption : captions) {
    const QKeySequence key = QKeySequence::mnemonic(caption);
    EXPECT_FALSE(key.isEmpty()) << caption.toStdString();
    if (key.isEmpty()) continue;
    EXPECT_FALSE(taken.contains(key)) << caption.toStdString() << " and "
                                      << taken.value(key).toStdString();
    taken.insert(key, caption);
  }
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
  fTessaly& Start() {
    world.Start();
    Settle();
    return *form;
  }

  QTemporaryDir folder;
  PosixFileSystem fileSystem;
  BasicMemoryWorld<WatchingUi> world{fileSystem};
  WatchingUi& ui = world.ui;
  std::unique_ptr<fTessaly>& form = world.form;
};

// The walk on the desktop of each appearance, with the palette and font
// the desktop gives every window.
class WalkOnEveryDesktopTest : public WizardWalkTest,
                               public ::testing::WithParamInterface<Appearance> {
 protected:
  WalkOnEveryDesktopTest() {
    QApplication::setPalette(GetParam().dark ? DarkPalette() : normalPalette);
    QFont font = normalFont;
    font.setPointSizeF(font.pointSizeF() * GetParam().fontScale);
    QApplication::setFont(font);
  }
  ~WalkOnEveryDesktopTest() override {
    delete ui.wizardWindow();
    Settle();
    QApplication::setPalette(normalPalette);
    QApplication::setFont(normalFont);
  }

  // Screenshots of each appearance, and at each scale, side by side.
  void Screenshot(QWidget* widget, const QString& name) {
    const QString scale = widget->devicePixelRatio() > 1 ? QStringLiteral("_x2") : QString();
    SaveScreenshot(widget, name + QLatin1String(GetParam().name) + scale);
  }
  // What a page on show must be on every desktop.
  void ExpectPageLooksRight(QWidget* window, const QString& name) {
    ExpectNothingClippedNarrowToo(window);
    ExpectOwnMnemonics(window);
    Screenshot(window, name);
  }

  const QPalette normalPalette = QApplication::palette();
  const QFont normalFont = QApplication::font();
};

INSTANTIATE_TEST_SUITE_P(
    Desktops, WalkOnEveryDesktopTest,
    ::testing::Values(Appearance{"", false, 1.0, QColor(0, 0, 255)},
                      Appearance{"_dark", true, 1.0, QColor(128, 128, 255)},
                      Appearance{"_large_font", false, 1.5, QColor(0, 0, 255)}),
    [](const ::testing::TestParamInfo<Appearance>& info) {
      return std::string(DesktopName(info.param));
    });

TEST_P(WalkOnEveryDesktopTest, PersonRenamesDroppedFilesAndReadsTheColouredLog) {
  SetDesktopIdentity();
  Start();
  QWidget* window = ui.wizardWindow();
  ASSERT_NE(window, nullptr);
  EXPECT_EQ(window->windowTitle(), "Tessaly - v1.0.14");
  auto* next = Find<QPushButton>(window, "cmdNext");
  EXPECT_TRUE(Find<QLabel>(window, "lblStep0")->font().bold());
  EXPECT_FALSE(window->windowIcon().isNull());
  ExpectPageLooksRight(window, "step0_welcome");

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
  ExpectPageLooksRight(window, "step1_files");

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
  EXPECT_EQ(example->toPlainText(), "001.TXT\n002.TXT\n003.TXT");
  ExpectPageLooksRight(window, "step2_settings");
  // Tab reads the placements row by row, then the options, then the buttons.
  QStringList chain;
  for (QWidget* at = first->nextInFocusChain(); at != first; at = at->nextInFocusChain()) {
    if (at->isVisible() && (at->focusPolicy() & Qt::TabFocus) && !at->objectName().isEmpty()) {
      chain << at->objectName();
    }
  }
  EXPECT_EQ(chain.mid(0, 8), (QStringList{"cboBatch1", "cboBatch2", "cboBatch3", "cboBatch4",
                                          "cboBatch5", "cboBatch6", "cboBatch7",
                                          "chkShortExtension"}));
  EXPECT_LT(chain.indexOf("chkIncludePaths"), chain.indexOf("cmdNext"));
  // The list dialog on the same desktop; Escape closes it as its close box does.
  WhenModalOpens([&](QWidget* dialog) {
    ExpectNothingClipped(dialog);
    ExpectOwnMnemonics(dialog);
    Screenshot(dialog, "dialog_unwanted_formatting_fresh");
    QTest::keyClick(dialog, Qt::Key_Escape);
  });
  Click(Find<QPushButton>(window, "cmdUnwantedFormat"));
  EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
  // Each option says what it does in one line.
  for (auto* option : window->findChildren<QCheckBox*>()) {
    if (!option->isVisible()) continue;
    EXPECT_FALSE(option->toolTip().isEmpty()) << option->objectName().toStdString();
    EXPECT_FALSE(option->toolTip().contains('\n')) << option->objectName().toStdString();
  }

  // The progress window beside the preview, on the same desktop.
  bool progressSeen = false;
  ui.onPendingEvents = [&] {
    ProgressWindow* progress = ui.progressWindow();
    if (progressSeen || progress == nullptr || progress->percentText() != "33.33%") return;
    progressSeen = true;
    ExpectNothingClipped(progress);
    Screenshot(progress, "progress_window_preview");
  };
  // Return that no control takes is the page's Next, also in a box being
  // typed in.
  QLineEdit* typing = Find<QComboBox>(window, "cboBatch0")->lineEdit();
  typing->setFocus();
  QTest::keyClick(typing, Qt::Key_Return);
  Settle();
  EXPECT_EQ(pages->currentIndex(), 3);
  EXPECT_TRUE(progressSeen);
  EXPECT_EQ(next->text(), "Fi&nish >");
  auto* preview = Find<QPlainTextEdit>(window, "tOutput");
  const QStringList lines = preview->toPlainText().split('\n');
  ASSERT_GE(lines.size(), 4);
  // Without "Include Path" the folder is left as it is.
  EXPECT_THAT(lines[1].toStdString(), ::testing::EndsWith("/photos/001.TXT"));
  EXPECT_TRUE(lines[1].startsWith("    "));
  EXPECT_EQ(ui.progressTitles, QStringList{"Generating Renamed Files Preview..."});
  ExpectPageLooksRight(window, "step3_review");

  Click(next);
  EXPECT_EQ(pages->currentIndex(), 4);
  EXPECT_TRUE(next->isHidden());
  EXPECT_EQ(Find<QPushButton>(window, "cmdCancel")->text(), "&Finished");
  EXPECT_EQ(FilesOnDisk(), (QStringList{"001.TXT", "002.TXT", "003.TXT"}));
  auto* log = Find<QPlainTextEdit>(window, "tLog");
  EXPECT_EQ(log->lineWrapMode(), QPlainTextEdit::NoWrap);
  EXPECT_EQ(LineColour(log, "Apple.txt > "), GetParam().completed);
  EXPECT_EQ(LineColour(log, "3 total files."), QApplication::palette().color(QPalette::Text));
  ExpectPageLooksRight(window, "step4_log");

  bool ended = false;
  form->programEnded.Connect([&ended] { ended = true; });
  QTest::keyClick(log, Qt::Key_Escape);  // does what "Finished" does
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
