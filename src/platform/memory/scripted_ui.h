#ifndef TESSALY_PLATFORM_MEMORY_SCRIPTED_UI_H_
#define TESSALY_PLATFORM_MEMORY_SCRIPTED_UI_H_

#include <deque>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "platform/ui.h"

namespace tessaly {

// A Ui that answers from queues and records every question, so tests can
// script a person and check what was asked.
class ScriptedUi : public Ui {
 public:
  struct Message {
    std::string text;
    MessageButtons buttons;
    std::string title;
  };
  struct FolderQuestion {
    std::string title;
    std::string startFolder;
  };

  // Queues the answer for the next message box. With the queue empty, a box
  // with OK is answered OK and a Yes/No/Cancel box Cancel.
  void QueueAnswer(MessageAnswer answer) { answers_.push_back(answer); }
  // Queues the folder the next browser returns; with none queued the
  // browser is cancelled.
  void QueueFolder(std::string folder) { folders_.push_back(std::move(folder)); }
  // Queues the next open-file answer; with none queued it is cancelled.
  void QueueOpenFileAnswer(OpenFileAnswer answer) { openFileAnswers_.push_back(std::move(answer)); }
  // What the person does while the dialog named `dialog` is open, each
  // time it is shown.
  void OnModal(std::string dialog, std::function<void(Form&)> action) {
    modalActions_[std::move(dialog)] = std::move(action);
  }
  // What happens while each message box stands, say another program at work.
  void OnMessageBox(std::function<void()> action) { messageAction_ = std::move(action); }
  // What happens each time pending events run, say a click on a button.
  void OnPendingEvents(std::function<void()> action) { pendingAction_ = std::move(action); }

  MessageAnswer MessageBox(std::string_view text, MessageButtons buttons,
                           std::string_view title) override;
  void ShowModal(Form& dialog) override;
  void Show(Form& form) override;
  std::string BrowseForFolder(std::string_view title, std::string_view startFolder) override;
  OpenFileAnswer ShowOpenFileDialog(const OpenFileRequest& request) override;
  void LetPendingEventsRun() override;

  const std::vector<Message>& messages() const { return messages_; }
  const std::vector<std::string>& modalDialogs() const { return modalDialogs_; }
  // Names of the forms shown without waiting, in order.
  const std::vector<std::string>& shownForms() const { return shownForms_; }
  const std::vector<FolderQuestion>& folderQuestions() const { return folderQuestions_; }
  const std::vector<OpenFileRequest>& openFileRequests() const { return openFileRequests_; }
  int pendingEventRuns() const { return pendingEventRuns_; }

  // Answers shaped as the desktop dialog shapes them, for a single file and
  // for several files of one folder; not accepted when they overflow the
  // 257-character buffer.
  static OpenFileAnswer SingleFileAnswer(std::string_view path);
  static OpenFileAnswer MultipleFilesAnswer(std::string_view folder,
                                            const std::vector<std::string>& names);

 private:
  std::deque<MessageAnswer> answers_;
  std::deque<std::string> folders_;
  std::deque<OpenFileAnswer> openFileAnswers_;
  std::map<std::string, std::function<void(Form&)>, std::less<>> modalActions_;
  std::function<void()> pendingAction_;
  std::function<void()> messageAction_;
  std::vector<Message> messages_;
  std::vector<std::string> modalDialogs_;
  std::vector<std::string> shownForms_;
  std::vector<FolderQuestion> folderQuestions_;
  std::vector<OpenFileRequest> openFileRequests_;
  int pendingEventRuns_ = 0;
};

}  // namespace tessaly

#endif  // TESSALY_PLATFORM_MEMORY_SCRIPTED_UI_H_
