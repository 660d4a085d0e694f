#ifndef TESSALY_PLATFORM_MEMORY_SCRIPTED_UI_H_
#define TESSALY_PLATFORM_MEMORY_SCRIPTED_UI_H_

#include <deque>
#include <string>
#include <vector>

#include "platform/ui.h"

namespace tessaly {

// A Ui that answers from a queue and records every question, so tests can
// script a person and check what was asked.
class ScriptedUi : public Ui {
 public:
  struct Message {
    std::string text;
    MessageButtons buttons;
    std::string title;
  };

  // Queues the answer for the next message box. With the queue empty, a box
  // with OK is answered OK and a Yes/No/Cancel box Cancel.
  void QueueAnswer(MessageAnswer answer) { answers_.push_back(answer); }

  MessageAnswer MessageBox(std::string_view text, MessageButtons buttons,
                           std::string_view title) override;

  const std::vector<Message>& messages() const { return messages_; }

 private:
  std::deque<MessageAnswer> answers_;
  std::vector<Message> messages_;
};

}  // namespace tessaly

#endif  // TESSALY_PLATFORM_MEMORY_SCRIPTED_UI_H_
