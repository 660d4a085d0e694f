#ifndef TESSALY_APP_QT_QT_UI_H_
#define TESSALY_APP_QT_QT_UI_H_

#include <QPointer>
#include <QWidget>

#include "platform/ui.h"
#include "progress_window.h"
#include "wizard_window.h"

namespace tessaly::qt {

// What the core asks of the person, answered with Qt windows: message
// boxes, the list dialogs (modal), the wizard and progress windows (not
// modal), the folder and file pickers, and a pass of the event queue.
class QtUi : public Ui {
 public:
  QtUi() = default;
  ~QtUi() override;

  MessageAnswer MessageBox(std::string_view text, MessageButtons buttons,
                           std::string_view title) override;
  void ShowModal(Form& dialog) override;
  void Show(Form& form) override;
  std::string BrowseForFolder(std::string_view title, std::string_view startFolder) override;
  OpenFileAnswer ShowOpenFileDialog(const OpenFileRequest& request) override;
  void LetPendingEventsRun() override;

  // Closes every window at once; they must go before the forms they draw.
  void DropViews();

  // The windows on show, or null.
  WizardWindow* wizardWindow() const { return wizard_; }
  ProgressWindow* progressWindow() const { return progress_; }

 private:
  // The window dialogs belong to: the wizard's, while it is on show.
  QWidget* Owner() const;

  QPointer<WizardWindow> wizard_;
  QPointer<ProgressWindow> progress_;
};

// The raw answer of the desktop open dialog for the files a Qt dialog gave
// (native paths): one file as itself, several as their folder and names.
OpenFileAnswer ShapeOpenFileAnswer(const QStringList& nativePaths);

}  // namespace tessaly::qt

#endif  // TESSALY_APP_QT_QT_UI_H_
