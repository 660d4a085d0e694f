#include "platform/memory/scripted_ui.h"

#include "controls/form.h"
#include "platform/open_file_answer.h"

namespace tessaly {

namespace {

template <typename T>
T TakeFront(std::deque<T>& queue, T otherwise) {
  if (queue.empty()) return otherwise;
  T front = std::move(queue.front());
  queue.pop_front();
  return front;
}

}  // namespace

MessageAnswer ScriptedUi::MessageBox(std::string_view text, MessageButtons buttons,
                                     std::string_view title) {
  messages_.push_back({std::string(text), buttons, std::string(title)});
  if (messageAction_) messageAction_();
  const MessageAnswer otherwise =
      buttons == MessageButtons::kOk ? MessageAnswer::kOk : MessageAnswer::kCancel;
  return TakeFront(answers_, otherwise);
}

void ScriptedUi::ShowModal(Form& dialog) {
  modalDialogs_.push_back(dialog.name());
  const auto action = modalActions_.find(dialog.name());
  if (action != modalActions_.end() && action->second) action->second(dialog);
}

void ScriptedUi::Show(Form& form) { shownForms_.push_back(form.name()); }

std::string ScriptedUi::BrowseForFolder(std::string_view title, std::string_view startFolder) {
  folderQuestions_.push_back({std::string(title), std::string(startFolder)});
  return TakeFront(folders_, std::string());
}

OpenFileAnswer ScriptedUi::ShowOpenFileDialog(const OpenFileRequest& request) {
  openFileRequests_.push_back(request);
  return TakeFront(openFileAnswers_, OpenFileAnswer{});
}

void ScriptedUi::LetPendingEventsRun() {
  ++pendingEventRuns_;
  if (pendingAction_) pendingAction_();
}

OpenFileAnswer ScriptedUi::SingleFileAnswer(std::string_view path) {
  return tessaly::SingleFileAnswer(path);
}

OpenFileAnswer ScriptedUi::MultipleFilesAnswer(std::string_view folder,
                                               const std::vector<std::string>& names) {
  return tessaly::MultipleFilesAnswer(folder, names);
}

}  // namespace tessaly
