#ifndef TESSALY_TESTS_QT_QT_TEST_SUPPORT_H_
#define TESSALY_TESTS_QT_QT_TEST_SUPPORT_H_

#include <gtest/gtest.h>

#include <QApplication>
#include <QString>
#include <QStringList>
#include <QWidget>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "memory_world.h"
#include "platform/memory/memory_file_system.h"
#include "qt_ui.h"
#include "wizard/tessaly_form.h"

namespace tessaly::qt {

// A QtUi that notes what the progress window shows each time a loop lets
// events run, which is when a person sees it.
class WatchingUi : public QtUi {
 public:
  void LetPendingEventsRun() override;
  QStringList progressTexts;  // consecutive repeats left out
  QStringList progressTitles;
  // Runs each time a loop lets events run.
  std::function<void()> onPendingEvents;
};

// Lets queued refreshes and posted events run.
void Settle();

// The widget named `name` under `root`; fails the test if there is none.
template <typename T>
T* Find(QWidget* root, const char* name) {
  T* found = root->findChild<T*>(QString::fromLatin1(name));
  EXPECT_NE(found, nullptr) << "no widget " << name;
  return found;
}

void Click(QWidget* widget);
// Selects everything in a combo box's or line edit's text and types `text`
// key by key.
void TypeOver(QWidget* box, const QString& text);

// Drags a text/uri-list of `nativePaths` onto `target` and drops it at
// `where` (the centre when null). True when the target took the drop.
bool DropFiles(QWidget* target, const QStringList& nativePaths, const QPoint* where = nullptr);

// Runs `action` on the next modal window once it is open (a dialog or a
// message box opened by the step that follows). Fails the test if none opens
// within seconds, or if the window is still open seconds after `action`, and
// then closes it so the test goes on.
void WhenModalOpens(std::function<void(QWidget*)> action);

// The wizard in a world of memory backends, on 18 November 2026 at
// 14:02:09, drawn by the Qt views.
class QtWizardTest : public ::testing::Test {
 protected:
  ~QtWizardTest() override;
  fTessaly& Start(std::string commandLine = "");
  QWidget* window() const;

  MemoryFileSystem files;
  BasicMemoryWorld<WatchingUi> world{files};
  SettingsStore& store = world.store;
  WatchingUi& ui = world.ui;
  std::unique_ptr<fTessaly>& form = world.form;
};

}  // namespace tessaly::qt

#endif  // TESSALY_TESTS_QT_QT_TEST_SUPPORT_H_
