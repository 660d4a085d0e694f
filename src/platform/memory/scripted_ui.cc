#include "platform/memory/scripted_ui.h"

namespace tessaly {

MessageAnswer ScriptedUi::MessageBox(std::string_view text, MessageButtons buttons,
                                     std::string_view title) {
  messages_.push_back({std::string(text), buttons, std::string(title)});
  if (answers_.empty()) {
    return buttons == MessageButtons::kOk ? MessageAnswer::kOk : MessageAnswer::kCancel;
  }
  const MessageAnswer answer = answers_.front();
  answers_.pop_front();
  return answer;
}

}  // namespace tessaly
