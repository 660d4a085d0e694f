// Writes a PNG of every page and dialog of the Qt window into the folder
// given, for a person to look at: the five steps (the last with its
// coloured log), the two list dialogs, the progress window, and the
// overwrite question. The wizard runs over files in memory, so the pictures
// are the same on every machine but for the fonts.
#include <QAbstractButton>
#include <QApplication>
#include <QDir>
#include <QEventLoop>
#include <QMessageBox>
#include <QTimer>
#include <iostream>
#include <string>

#include "memory_world.h"
#include "platform/memory/memory_file_system.h"
#include "qt_ui.h"

namespace tessaly::qt {
namespace {

QString folder;

void Save(QWidget* widget, const char* name) {
  if (widget == nullptr) {
    std::cerr << "nothing on show for " << name << "\n";
    return;
  }
  widget->grab().save(QDir(folder).filePath(QString::fromLatin1(name) + ".png"));
}

// Lets queued and timed refreshes run (the log paints a moment later).
void Settle() {
  QEventLoop wait;
  QTimer::singleShot(150, &wait, &QEventLoop::quit);
  wait.exec();
}

// Saves the next modal window as `name` once it is open, then lets
// `answer` close it.
void WhenModalOpens(const char* name, std::function<void(QWidget*)> answer) {
  auto* timer = new QTimer;
  timer->setInterval(20);
  QObject::connect(timer, &QTimer::timeout, [timer, name, answer] {
    QWidget* modal = QApplication::activeModalWidget();
    if (modal == nullptr || !modal->isVisible()) return;
    timer->stop();
    timer->deleteLater();
    Settle();
    Save(modal, name);
    answer(modal);
  });
  timer->start();
}

void Close(QWidget* window) { window->close(); }

// A QtUi that saves the progress window once, the first time it shows.
class PicturingUi : public QtUi {
 public:
  void LetPendingEventsRun() override {
    QtUi::LetPendingEventsRun();
    if (!progressSaved_ && progressWindow() != nullptr && progressWindow()->isVisible()) {
      progressSaved_ = true;
      Settle();
      Save(progressWindow(), "progress");
    }
  }

 private:
  bool progressSaved_ = false;
};

int Run() {
  MemoryFileSystem files(MemoryFileSystem::LetterCase::kExact, MemoryFileSystem::ShownForm::kPosix);
  const char* names[] = {"Beach  Day.JPG", "beach_day_2.JPG", "IMG_0042.JPG", "Grand Café.PNG",
                         "notes (1).TXT", "README", "holiday.jpg"};
  DropData drop;
  for (const char* name : names) {
    const std::string path = std::string("\\home\\ann\\Photos\\") + name;
    files.SetContents(path, name);
    drop.files.push_back(path);
  }
  BasicMemoryWorld<PicturingUi> world(files);
  fTessaly& form = world.Start();
  Settle();
  Save(world.ui.wizardWindow(), "step0-welcome");
  form.lblStep[1].Click();
  form.AddDroppedFiles(drop);
  Settle();
  Save(world.ui.wizardWindow(), "step1-files");
  form.lblStep[2].Click();
  form.chkCapitalize.SetValue(1);
  form.chkRemoveu.SetValue(1);
  Settle();
  Save(world.ui.wizardWindow(), "step2-settings");
  WhenModalOpens("dialog-unwanted-formatting", Close);
  form.cmdUnwantedFormat.Click();
  Settle();
  // Picking "(Advanced)" in the With box opens its dialog.
  WhenModalOpens("dialog-advanced-replace", Close);
  form.cboBatch[7].SetText("(Advanced)");
  Settle();
  form.cboBatch[6].SetText("");
  form.cboBatch[7].SetText("");
  form.lblStep[3].Click();
  Settle();
  Save(world.ui.wizardWindow(), "step3-review");
  // One name taken, so the run asks; answered No.
  files.SetContents("\\home\\ann\\Photos\\Holiday.jpg", "taken");
  WhenModalOpens("question-overwrite", [](QWidget* box) {
    if (auto* message = qobject_cast<QMessageBox*>(box)) message->button(QMessageBox::No)->click();
  });
  form.cmdNext.Click();
  Settle();
  Save(world.ui.wizardWindow(), "step4-log");
  world.ui.DropViews();
  return 0;
}

}  // namespace
}  // namespace tessaly::qt

int main(int argc, char** argv) {
  QApplication app(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  if (argc != 2) {
    std::cerr << "usage: qt_screenshots FOLDER\n";
    return 2;
  }
  tessaly::qt::folder = QString::fromLocal8Bit(argv[1]);
  QDir().mkpath(tessaly::qt::folder);
  return tessaly::qt::Run();
}
