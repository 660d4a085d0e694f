#include "platform/memory/scripted_ui.h"

#include <optional>

#include "controls/form.h"

namespace tessaly {

namespace {

constexpr std::size_t kFileBufferSize = 257;

// The buffer the dialog is given: 255 blanks and two zero characters, with
// `written` put over its start; nothing if it does not fit.
std::optional<std::string> FillBuffer(const std::string& written) {
  if (written.size() > kFileBufferSize) return std::nullopt;
  std::string buffer(kFileBufferSize - 2, ' ');
  buffer.append(2, '\0');
  buffer.replace(0, written.size(), written);
  return buffer;
}

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
  const auto buffer = FillBuffer(std::string(path) + '\0');
  if (!buffer) return {};
  const std::size_t nameStart = path.find_last_of('\\') + 1;  // npos + 1 is 0
  const std::size_t period = path.find_last_of('.');
  const bool hasExtension = period != std::string_view::npos && period >= nameStart;
  const std::size_t offset = hasExtension ? period + 1 : path.size();
  return {true, *buffer, static_cast<std::uint16_t>(offset)};
}

OpenFileAnswer ScriptedUi::MultipleFilesAnswer(std::string_view folder,
                                               const std::vector<std::string>& names) {
  std::string block(folder);
  block.push_back('\0');
  for (const std::string& name : names) {
    block += name;
    block.push_back('\0');
  }
  block.push_back('\0');
  const auto buffer = FillBuffer(block);
  if (!buffer) return {};
  return {true, *buffer, 0};
}

}  // namespace tessaly
