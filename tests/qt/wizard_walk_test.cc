// The wizard window worked by a person: one whole way through on real
// files and back by Undo, the overwrite question, and what only the window
// can get wrong: drops, selection, the file dialog, boxes, the list
// dialogs, the progress window and Cancel during the preview loop.

#include <gmock/gmock.h>

#include <QTest>
#include <QtWidgets>
#include <functional>

#include "memory_world.h"
#include "platform/memory/memory_file_system.h"
#include "platform/posix/native_path.h"
#include "platform/posix/posix_file_system.h"
#include "controls/readable_colour.h"
#include "qt_ui.h"
#include "readable_colour.h"
#include "rich_text_view.h"
#include "wizard/layout/windows.h"

namespace tessaly::qt {
namespace {

// A QtUi that runs a test's hook each time a loop lets events run, which is
// when a person sees what the windows show.
class WatchingUi : public QtUi {
 public:
  void LetPendingEventsRun() override {
    if (onPendingEvents) onPendingEvents();
    QtUi::LetPendingEventsRun();
  }
  std::function<void()> onPendingEvents;
};

// Lets queued refreshes and posted events run.
void Settle() {
  for (int i = 0; i < 3; ++i) QCoreApplication::processEvents();
}

void Click(QWidget* widget, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
  ASSERT_NE(widget, nullptr);
  // A check box or option takes clicks on its mark and caption only, and
  // may be wider than both.
  const bool markAtLeft = qobject_cast<QCheckBox*>(widget) || qobject_cast<QRadioButton*>(widget);
  const QPoint at = markAtLeft ? QPoint(8, widget->height() / 2) : widget->rect().center();
  QTest::mouseClick(widget, Qt::LeftButton, modifiers, at);
  Settle();
}

void ClickRow(QAbstractItemView* view, int row, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
  QTest::mouseClick(view->viewport(), Qt::LeftButton, modifiers,
                    view->visualRect(view->model()->index(row, 0)).center());
  Settle();
}

QStringList Rows(QAbstractItemView* view) {
  QStringList rows;
  for (int i = 0; i < view->model()->rowCount(); ++i) rows << view->model()->index(i, 0).data().toString();
  return rows;
}

// Selects everything in a combo box's or line edit's text and types `text`
// key by key.
void TypeOver(QWidget* box, const QString& text) {
  QLineEdit* edit = qobject_cast<QLineEdit*>(box);
  if (auto* combo = qobject_cast<QComboBox*>(box)) edit = combo->lineEdit();
  ASSERT_NE(edit, nullptr);
  edit->setFocus();
  QTest::keyClick(edit, Qt::Key_A, Qt::ControlModifier);
  QTest::keyClick(edit, Qt::Key_Delete);
  QTest::keyClicks(edit, text);
  Settle();
}

// Drags a text/uri-list of `nativePaths` onto `target` and drops it at
// `where` (the centre when null). True when the target took the drop.
bool DropFiles(QWidget* target, const QStringList& nativePaths, const QPoint* where = nullptr) {
  QMimeData data;
  QList<QUrl> urls;
  for (const QString& path : nativePaths) urls << QUrl::fromLocalFile(path);
  data.setUrls(urls);
  const QPoint at = where != nullptr ? *where : target->rect().center();
  QDragEnterEvent enter(at, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
  QDragMoveEvent move(at, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
  QDropEvent drop(QPointF(at), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
  for (QDropEvent* event : std::initializer_list<QDropEvent*>{&enter, &move, &drop}) {
    QCoreApplication::sendEvent(target, event);
    if (!event->isAccepted()) return false;
  }
  Settle();
  return true;
}

// How long a modal window may take to open, and to close once answered,
// before the test gives up on it: far beyond any wait on a busy machine.
constexpr int kModalPatienceMs = 10'000;

// Runs `action` on the next modal window once it is open (a dialog or a
// message box opened by the step that follows). Fails the test if none opens
// within the patience, or if the window is still open that long after
// `action`, and then closes it so that a lost answer ends its loop instead
// of hanging.
void WhenModalOpens(std::function<void(QWidget*)> action) {
  // Polls, since the modal loop starts only after the call that opens it.
  auto* timer = new QTimer;
  timer->setInterval(10);
  QElapsedTimer waited;
  waited.start();
  QObject::connect(timer, &QTimer::timeout, [timer, action, waited] {
    QWidget* modal = QApplication::activeModalWidget();
    const bool open = modal != nullptr && modal->isVisible();
    if (!open && !waited.hasExpired(kModalPatienceMs)) return;
    timer->stop();
    timer->deleteLater();
    if (!open) {
      ADD_FAILURE() << "no modal window opened within " << kModalPatienceMs << " ms";
      return;
    }
    const QPointer<QWidget> answered(modal);
    action(modal);
    QTimer::singleShot(kModalPatienceMs, [answered] {
      if (answered.isNull() || !answered->isVisible()) return;
      ADD_FAILURE() << "modal window \"" << answered->windowTitle().toStdString()
                    << "\" still open " << kModalPatienceMs << " ms after it was answered";
      if (auto* dialog = qobject_cast<QDialog*>(answered.data())) {
        dialog->reject();
      } else {
        answered->close();
      }
    });
  });
  timer->start();
}

// The names in the items under `roots` that no widget in `window` carries.
QStringList Missing(QWidget* window, const std::vector<const layout::Item*>& roots) {
  QStringList missing;
  for (const layout::Item* root : roots) {
    layout::ForEach(*root, [&](const layout::Item& item) {
      const QString name = QString::fromStdString(item.name);
      if (!name.isEmpty() && window->objectName() != name && window->findChild<QWidget*>(name) == nullptr) {
        missing << name;
      }
    });
  }
  return missing;
}

QStringList Missing(QWidget* window, const layout::Dialog& dialog) { return Missing(window, {&dialog.body}); }

// What a screen reader hears of each control under `root` that Tab
// reaches: "name: role". An editable drop-down is heard by its line, which
// holds its focus.
QStringList Heard(QWidget* root) {
  QStringList heard;
  std::function<void(QAccessibleInterface*)> walk = [&](QAccessibleInterface* node) {
    auto* widget = qobject_cast<QWidget*>(node->object());
    if (widget != nullptr && widget->window() == root->window() &&
        (widget->focusPolicy() & Qt::TabFocus) != 0 && widget->focusProxy() == nullptr) {
      auto* box = qobject_cast<QComboBox*>(widget);
      QAccessibleInterface* read =
          box != nullptr && box->lineEdit() != nullptr ? QAccessible::queryAccessibleInterface(box->lineEdit()) : node;
      heard << QStringLiteral("%1: %2").arg(read->text(QAccessible::Name)).arg(int(read->role()));
    }
    for (int i = 0; i < node->childCount(); ++i) walk(node->child(i));
  };
  walk(QAccessible::queryAccessibleInterface(root));
  return heard;
}

// The controls of `heard` without a name of words or with no role of a
// control.
std::vector<std::string> Unheard(const QStringList& heard) {
  std::vector<std::string> unheard;
  const QRegularExpression named("[A-Za-z]");
  for (const QString& control : heard) {
    const QString name = control.section(": ", 0, -2);
    const auto role = static_cast<QAccessible::Role>(control.section(": ", -1).toInt());
    if (!name.contains(named) || role == QAccessible::Client || role == QAccessible::NoRole) {
      unheard.push_back(control.toStdString());
    }
  }
  return unheard;
}

// The colour the log draws `text` in: its own, or the palette's text colour.
QColor ColourOf(QPlainTextEdit* log, const QString& text) {
  const QTextCursor found = log->document()->find(text);
  EXPECT_FALSE(found.isNull()) << "the log holds no " << text.toStdString();
  const QTextCharFormat format = found.charFormat();
  return format.hasProperty(QTextFormat::ForegroundBrush) ? format.foreground().color()
                                                          : log->palette().color(QPalette::Text);
}

// The wizard in a world of memory backends, on 18 November 2026 at
// 14:02:09, drawn by the Qt views; over the real disk when a test asks.
class QtWizardTest : public ::testing::Test {
 protected:
  explicit QtWizardTest(bool realDisk = false)
      : world(realDisk ? static_cast<FileSystem&>(disk) : files) {}
  ~QtWizardTest() override {
    delete ui.wizardWindow();  // the windows go before the form they draw
    Settle();
  }
  // Starts the wizard, on step `step` when one is given.
  fTessaly& Start(int step = 0) {
    world.Start();
    if (step != 0) form->lblStep[step].Click();
    Settle();
    return *form;
  }
  QWidget* window() const { return ui.wizardWindow(); }
  // The widget named `name` in the wizard window or `root`; fails the test
  // if there is none.
  template <typename T = QWidget>
  T* Find(const char* name, QWidget* root = nullptr) const {
    T* found = (root != nullptr ? root : window())->findChild<T*>(QString::fromLatin1(name));
    EXPECT_NE(found, nullptr) << "no widget " << name;
    return found;
  }

  MemoryFileSystem files;
  PosixFileSystem disk;
  BasicMemoryWorld<WatchingUi> world;
  WatchingUi& ui = world.ui;
  std::unique_ptr<fTessaly>& form = world.form;
};

// The wizard window over a real folder of files.
class WizardWalkTest : public QtWizardTest {
 protected:
  WizardWalkTest() : QtWizardTest(true) { QDir(folder.path()).mkpath("photos"); }
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
};

TEST_F(WizardWalkTest, PersonRenamesDroppedFilesAndReadsTheColouredLog) {
  Start();
  auto* next = Find<QPushButton>("cmdNext");
  // Return on the focused Next goes on, as in a dialog.
  next->setFocus();
  QTest::keyClick(next, Qt::Key_Return);
  Settle();
  auto* pages = ui.wizardWindow()->pages();
  EXPECT_EQ(pages->currentIndex(), 1);

  // Dropped in any order, listed sorted.
  auto* list = Find<QListView>("lstFiles");
  ASSERT_TRUE(DropFiles(list->viewport(), {MakeFile("pear.txt"), MakeFile("Apple.txt"),
                                           MakeFile("fig.txt")}));
  ASSERT_EQ(list->model()->rowCount(), 3);
  EXPECT_THAT(Rows(list)[0].toStdString(), ::testing::EndsWith("/photos/Apple.txt"));

  Click(next);
  TypeOver(Find("cboBatch0"), "3 Digit Serial Number");
  Click(Find("chkUpperCase"));
  EXPECT_EQ(Find<QPlainTextEdit>("txtExample")->toPlainText(), "001.TXT\n002.TXT\n003.TXT");
  // Return that no control takes is the page's Next, also in a box being
  // typed in.
  QLineEdit* typing = Find<QComboBox>("cboBatch0")->lineEdit();
  typing->setFocus();
  QSet<QString> titles;
  ui.onPendingEvents = [&] {
    if (ui.progressWindow() != nullptr) titles << ui.progressWindow()->windowTitle();
  };
  QTest::keyClick(typing, Qt::Key_Return);
  Settle();
  EXPECT_EQ(pages->currentIndex(), 3);
  EXPECT_EQ(titles, QSet<QString>{"Generating Renamed Files Preview..."});
  EXPECT_THAT(Find<QPlainTextEdit>("tOutput")->toPlainText().toStdString(),
              ::testing::HasSubstr("/photos/001.TXT\n"));

  const QRect finish = next->geometry();
  Click(next);
  EXPECT_EQ(pages->currentIndex(), 4);
  EXPECT_EQ(FilesOnDisk(), (QStringList{"001.TXT", "002.TXT", "003.TXT"}));
  auto* log = Find<QPlainTextEdit>("tLog");
  EXPECT_EQ(ColourOf(log, "Apple.txt > "), QColor(0, 0, 255));
  EXPECT_EQ(ColourOf(log, "3 total files."), QApplication::palette().color(QPalette::Text));
  // Undo, beside "Finished", takes the run back once, in a log of its own.
  // A double click on "Finish >" does not reach it.
  auto* undo = Find<QPushButton>("cmdUndo");
  EXPECT_FALSE(undo->geometry().intersects(finish));
  Click(undo);
  EXPECT_EQ(FilesOnDisk(), (QStringList{"Apple.txt", "fig.txt", "pear.txt"}));
  EXPECT_EQ(ColourOf(log, "Apple.txt (Restored)"), QColor(0, 0, 255));
  EXPECT_FALSE(undo->isVisible());
  bool ended = false;
  const Connection ending = form->programEnded.Connect([&ended] { ended = true; });
  QTest::keyClick(log, Qt::Key_Escape);  // does what "Finished" does
  EXPECT_TRUE(ended);
}

TEST_F(WizardWalkTest, NoToTheOverwriteQuestionKeepsTheTakenFile) {
  Start(1);
  // The name holds an escape, which must show, not act.
  MakeFile("ta\x1bken.txt");
  ASSERT_TRUE(DropFiles(Find<QListView>("lstFiles")->viewport(), {MakeFile("new.txt")}));
  Click(Find("lblStep2"));
  form->cboBatch[0].SetText("ta\x1bken");
  Click(Find("lblStep3"));
  QString asked;
  WhenModalOpens([&](QWidget* modal) {
    auto* box = qobject_cast<QMessageBox*>(modal);
    ASSERT_NE(box, nullptr);
    asked = box->windowTitle() + ": " + box->text();
    Click(box->button(QMessageBox::No));
  });
  Click(Find("cmdNext"));
  EXPECT_EQ(asked, "Confirm Overwrite: The file 'ta\\x1bken.txt' already exists. "
                   "Would you like to overwrite this file?");
  // The file waits under its temporary name, and the line says so in black.
  EXPECT_EQ(FilesOnDisk(), (QStringList{"ta\x1bken.txt", "ta\x1bken.txt.temp"}));
  auto* log = Find<QPlainTextEdit>("tLog");
  EXPECT_EQ(ColourOf(log, "(Completed - Error Removing Temp"), QColor(0, 0, 0));
  EXPECT_TRUE(log->toPlainText().contains(u"ta\u241bken.txt"));
}

// A run writes its log a line at a time and lets events run after each;
// the view lays it out and paints it only every few tens of milliseconds.
// Once it has painted, it holds and scrolls as a view given the whole
// text at once.
TEST(RichTextViewTest, ALogWrittenLineByLineEndsAsOneWrittenAtOnce) {
  RichTextBox lineByLine;
  RichTextBox atOnce;
  QWidget window;
  auto* followed = new RichTextView(lineByLine, &window);
  auto* whole = new RichTextView(atOnce, &window);
  followed->setGeometry(0, 0, 200, 150);
  whole->setGeometry(200, 0, 200, 150);
  window.show();
  // Lines of one width: a wider one, laid out as it is painted, would
  // tell the scroll bars of itself.
  for (int i = 0; i < 300; ++i) {
    lineByLine.SetSelText("a line\r\n");
    QCoreApplication::processEvents();
  }
  atOnce.SetText(lineByLine.text());
  ASSERT_TRUE(QTest::qWaitFor([&] { return followed->updatesEnabled(); }));
  Settle();
  EXPECT_EQ(followed->toPlainText(), whole->toPlainText());
  EXPECT_GT(whole->verticalScrollBar()->maximum(), 200);
  EXPECT_EQ(followed->verticalScrollBar()->maximum(), whole->verticalScrollBar()->maximum());
}

class FilePageTest : public QtWizardTest {
 protected:
  void SetUp() override {
    Start(1);
    list = Find<QListView>("lstFiles");
  }
  QListView* list = nullptr;
};

TEST_F(FilePageTest, EveryDropTargetTakesFilesInModelForm) {
  ASSERT_TRUE(DropFiles(list->viewport(), {"/srv/photos/b.jpg", "/srv/photos/", "/srv/a b\\c.jpg"}));
  // A native backslash is an ordinary character of the name; the folder
  // comes without its closing slash.
  EXPECT_EQ(Rows(list), (QStringList{"\\srv\\a b/c.jpg", "\\srv\\photos", "\\srv\\photos\\b.jpg"}));
  for (const char* name : {"Frame2", "Label11", "lblText1", "pStep1"}) {
    // Near a corner: the frame's and the page's centres lie on their
    // controls.
    QWidget* target = Find(name);
    const QPoint corner(target->width() - 3, target->height() - 3);
    EXPECT_TRUE(DropFiles(target, {QStringLiteral("/d/%1").arg(name)}, &corner)) << name;
    EXPECT_TRUE(Rows(list).contains(QStringLiteral("\\d\\%1").arg(name))) << name;
  }
}

TEST_F(FilePageTest, RemoveTakesExactlyTheRowsSelectedInTheView) {
  ASSERT_TRUE(DropFiles(list->viewport(), {"/d/e", "/d/d", "/d/c", "/d/b", "/d/a"}));
  // A click, then control-clicks at the far end and in the middle.
  ClickRow(list, 0);
  ClickRow(list, 4, Qt::ControlModifier);
  ClickRow(list, 2, Qt::ControlModifier);
  Click(Find("cmdRemove"));
  EXPECT_EQ(Rows(list), (QStringList{"\\d\\b", "\\d\\d"}));
  EXPECT_EQ(Find<QLabel>("lStat")->text(), "2 files.");
  EXPECT_TRUE(list->selectionModel()->selectedRows().isEmpty());
  Click(Find("cmdClear"));
  EXPECT_EQ(Find<QLabel>("lStat")->text(), "0 files.");
}

// Once flaky on a loaded machine: the answer is typed into the name box,
// since selectFile leaves the box alone once it has the focus, which it
// takes at some moment after opening.
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
    Find<QLineEdit>("fileNameEdit", dialog)->setText("\"b.txt\" \"a.txt\"");
    QMetaObject::invokeMethod(dialog, "accept");
  });
  Click(Find("cmdAddFiles"));
  const QString model = QString::fromStdString(ToModelPath(folder.path().toStdString()));
  EXPECT_EQ(Rows(list), (QStringList{model + "\\a.txt", model + "\\b.txt"}));
}

// A mark that turns the direction of writing shows as a mark wherever the
// window shows a path, so "invoice<U+202E>txt.exe" cannot pass for a text
// file.
TEST_F(FilePageTest, LayoutMarksInNamesShowInEveryViewOfAPath) {
  ASSERT_TRUE(DropFiles(list->viewport(), {QString::fromUtf8("/srv/invoice\u202etxt.exe")}));
  const QString shown = QString::fromUtf8("invoice\ufffdtxt.exe");
  EXPECT_EQ(Rows(list), QStringList{"\\srv\\" + shown});
  form->lFolder.SetCaption("\\srv\\in\u202ebox");
  Click(Find("lblStep2"));
  form->cboBatch[0].SetText("invoice\u202etxt");  // the samples' names
  EXPECT_THAT(Find<QPlainTextEdit>("txtExample")->toPlainText().toStdString(),
              ::testing::StartsWith("invoice\ufffdtxt.jpeg\n"));
  Click(Find("lblStep3"));
  EXPECT_TRUE(Find<QPlainTextEdit>("tOutput")->toPlainText().contains("\\srv\\" + shown));
  EXPECT_EQ(Find<QLabel>("lFolder")->text(), QString::fromUtf8("\\srv\\in\ufffdbox"));
}

// The log's colours keep their meaning on a dark palette and read there at
// 4.5:1 on its base; black is the palette's own text colour.
TEST(ReadableColour, LogColoursReadOnADarkPalette) {
  QPalette dark;
  dark.setColor(QPalette::Base, QColor(42, 42, 42));
  dark.setColor(QPalette::Text, QColor(230, 230, 230));
  for (const Rgb colour : {Rgb{0, 0, 255}, Rgb{255, 0, 0}}) {
    const QColor drawn = ReadableOn(dark, colour);
    const auto channel = [](int value) { return static_cast<std::uint8_t>(value); };
    EXPECT_GE(ContrastRatio({channel(drawn.red()), channel(drawn.green()), channel(drawn.blue())}, {42, 42, 42}),
              kReadableContrast);
    EXPECT_EQ(drawn.hue(), QColor(colour.red, colour.green, colour.blue).hue());
  }
  EXPECT_EQ(ReadableOn(dark, Rgb{0, 0, 0}), QColor(230, 230, 230));
}

// A greyed box is drawn partly checked; a click ticks it.
TEST_F(QtWizardTest, BoxesFollowTheirControlsBothWays) {
  Start(2);
  auto* underscores = Find<QCheckBox>("chkRemoveu");
  auto* spaces = Find<QCheckBox>("chkAllowSpaces");
  Click(underscores);
  Click(spaces);
  EXPECT_EQ(spaces->checkState(), Qt::Unchecked);
  EXPECT_EQ(underscores->checkState(), Qt::PartiallyChecked);
  EXPECT_THAT(Find<QPlainTextEdit>("txtExample")->toPlainText().toStdString(),
              ::testing::HasSubstr("My_file_data"));
  Click(underscores);
  EXPECT_EQ(underscores->checkState(), Qt::Checked);
  EXPECT_EQ(spaces->checkState(), Qt::Checked);
}

// Escape ends the typing in a box first (an open drop-down list closes
// first of all), keeping what was typed; only when no text is being edited
// does it end the wizard.
TEST_F(QtWizardTest, EscapeLeavesTheBoxBeingEditedBeforeItEndsTheWizard) {
  Start(2);
  bool ended = false;
  const Connection ending = form->programEnded.Connect([&ended] { ended = true; });
  auto* box = Find<QComboBox>("cboBatch0");
  box->showPopup();
  Settle();
  QTest::keyClick(box->view(), Qt::Key_Escape);
  Settle();
  EXPECT_FALSE(box->view()->isVisible());
  TypeOver(box, "Typed");
  QTest::keyClick(box->lineEdit(), Qt::Key_Escape);
  Settle();
  EXPECT_FALSE(ended);
  EXPECT_FALSE(box->lineEdit()->hasFocus());
  EXPECT_EQ(form->cboBatch[0].text(), "Typed");
  QTest::keyClick(window()->focusWidget() != nullptr ? window()->focusWidget() : window(), Qt::Key_Escape);
  EXPECT_TRUE(ended);
}

// Every control Tab reaches is read out with a name and its role: the
// destination choices as option buttons, the step labels as buttons.
TEST_F(QtWizardTest, EveryControlIsReadOutWithItsNameAndRole) {
  Start();
  const QStringList heard = Heard(window());
  EXPECT_THAT(Unheard(heard), ::testing::IsEmpty());
  for (const char* control :
       {"Rename into same folder: 45", "1. File Selection: 43", "Placement 6: 42", "With: 42",
        "Advanced Replace list: 43", "Example Output: 42", "Files to rename: 33", "Preview: 42"}) {
    EXPECT_TRUE(heard.contains(QString::fromUtf8(control))) << control;
  }
  // The step labels work from the keyboard.
  QTest::keyClick(Find("lblStep2"), Qt::Key_Space);
  EXPECT_EQ(form->CurrentStep, 2);
}

// The window opens within the screen's free area, its buttons in view,
// however little room there is: the pages scroll instead. (The test runs
// once more at 1.5 times the scale: 533 by 533 points, as little as a
// 1366x768 screen at 150% has for a window.)
TEST_F(QtWizardTest, TheWindowFitsTheScreenWithItsButtonsInView) {
  Start(2);
  const QRect free = window()->screen()->availableGeometry();
  EXPECT_LE(window()->frameGeometry().width(), free.width());
  EXPECT_LE(window()->frameGeometry().height(), free.height());
  for (const char* name : {"cmdBack", "cmdNext", "cmdCancel"}) {
    QWidget* button = Find(name);
    EXPECT_TRUE(window()->rect().contains(QRect(button->mapTo(window(), QPoint()), button->size()))) << name;
  }
}

// The note on included paths lies over the destination options.
TEST_F(QtWizardTest, IncludePathCoversTheDestinationWithItsNote) {
  Start(3);
  QWidget* same = Find("optMoveSameFolder");
  const QPoint centre = same->mapTo(window(), same->rect().center());
  EXPECT_EQ(window()->childAt(centre), same);
  Click(Find("lblStep2"));
  Click(Find("chkIncludePaths"));
  Click(Find("cmdNext"));
  EXPECT_EQ(window()->childAt(centre)->objectName(), "lInfoPath");
}

TEST_F(QtWizardTest, EveryDescribedControlIsOnTheWindow) {
  Start();
  const layout::WizardWindow description = layout::DescribeWizard(*form);
  std::vector<const layout::Item*> roots = {&description.buttons};
  for (const layout::Item& step : description.steps) roots.push_back(&step);
  for (const layout::Page& page : description.pages) {
    roots.push_back(&page.heading);
    roots.push_back(&page.body);
  }
  EXPECT_THAT(Missing(window(), roots), ::testing::IsEmpty());
  for (const layout::Page& page : description.pages) Find(page.name.c_str());
}

TEST_F(QtWizardTest, UnwantedFormattingShowsItsRowsAndSavesOnClose) {
  Start(2);
  bool worked = false;
  WhenModalOpens([&](QWidget* dialog) {
    fUnwantedFormatting described(world.store, ui);
    EXPECT_THAT(Missing(dialog, layout::DescribeUnwantedFormatting(described)),
                ::testing::IsEmpty());
    EXPECT_THAT(Unheard(Heard(dialog)), ::testing::IsEmpty());
    auto* list = Find<QListView>("lstRemove", dialog);
    TypeOver(Find("txtAdd", dialog), "Copy ");
    Click(Find("cmdAdd", dialog));
    EXPECT_EQ(list->model()->index(0, 0).data(Qt::CheckStateRole).toInt(), Qt::Checked);
    // The edit box takes the clicked row's text, selected with the focus.
    ClickRow(list, 1);
    auto* edit = Find<QLineEdit>("txtEdit", dialog);
    Click(edit);
    EXPECT_EQ(edit->selectedText(), "Copy Of");
    dialog->close();  // the close box saves as Finished does
    worked = true;
  });
  Click(Find("cmdUnwantedFormat"));
  EXPECT_TRUE(worked);
  EXPECT_THAT(world.store.GetProgramSetting("Settings", "FormattingList").AsText(),
              ::testing::StartsWith("Copy %%1|Copy Of%%0|"));
}

TEST_F(QtWizardTest, PickingAdvancedInTheWithBoxOpensItsDialog) {
  Start(2);
  QString opened;
  WhenModalOpens([&](QWidget* dialog) {
    fReplaceAdvanced described(world.store, ui);
    EXPECT_THAT(Missing(dialog, layout::DescribeReplaceAdvanced(described)),
                ::testing::IsEmpty());
    EXPECT_THAT(Unheard(Heard(dialog)), ::testing::IsEmpty());
    // The other box and the buttons beside both show the choice already.
    opened = dialog->windowTitle() + " " + Find<QComboBox>("cboBatch6")->currentText();
    EXPECT_TRUE(form->cmdReplaceAdv.visible());
    Click(Find("cmdAccept", dialog));
  });
  auto* with = Find<QComboBox>("cboBatch7");
  with->showPopup();
  ClickRow(with->view(), 0);
  EXPECT_EQ(opened, "Advanced Replace (Advanced)");
  // Anything else in one box hides the buttons and leaves the other box be.
  form->cboBatch[6].SetText("x");
  EXPECT_FALSE(form->cmdReplaceAdv.visible() || form->cmdReplaceAdv2.visible());
  EXPECT_EQ(form->cboBatch[7].text(), "(Advanced)");
}

// The preview loop's progress window stands centred on the wizard without
// holding it: Cancel there ends the program at once.
TEST_F(QtWizardTest, ProgressLeavesTheWizardFreeAndCancelEndsTheLoopAtOnce) {
  bool ended = false;
  int runsAfterCancel = 0;
  ui.onPendingEvents = [&] {
    ProgressWindow* progress = ui.progressWindow();
    if (ended) {
      ++runsAfterCancel;
    } else if (progress != nullptr && progress->percentText() == "25%") {
      EXPECT_TRUE(progress->windowFlags().testFlag(Qt::Tool));  // no task-bar entry
      fProgress described(ui, world.locale);
      EXPECT_THAT(Missing(progress, layout::DescribeProgress(described)), ::testing::IsEmpty());
      EXPECT_THAT(Unheard(Heard(progress)), ::testing::IsEmpty());
      EXPECT_FALSE(progress->isModal());
      const QPoint offset = progress->frameGeometry().center() - window()->frameGeometry().center();
      EXPECT_LE(offset.manhattanLength(), 4);
      EXPECT_TRUE(window()->isEnabled());
      QTest::mouseClick(Find<QPushButton>("cmdCancel"), Qt::LeftButton);
    }
  };
  fTessaly& wizard = Start();
  const Connection ending = wizard.programEnded.Connect([&ended] { ended = true; });
  DropData drop;
  for (int i = 0; i < 8; ++i) drop.files.push_back("c:\\p\\" + std::to_string(i) + ".jpg");
  wizard.AddDroppedFiles(drop);
  wizard.lblStep[3].Click();
  Settle();
  EXPECT_TRUE(ended);
  EXPECT_EQ(runsAfterCancel, 0);  // no further file was looked at
  EXPECT_EQ(ui.progressWindow(), nullptr);
  EXPECT_EQ(ui.wizardWindow(), nullptr);  // the window went with its form
}



}  // namespace
}  // namespace tessaly::qt

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication app(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  ::testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
