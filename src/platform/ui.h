#ifndef TESSALY_PLATFORM_UI_H_
#define TESSALY_PLATFORM_UI_H_

#include <string_view>

namespace tessaly {

enum class MessageButtons { kOk, kYesNoCancel };
enum class MessageAnswer { kOk, kYes, kNo, kCancel };

// What the core asks of the person in front of the program. Each front-end
// implements it; tests use a scripted one.
class Ui {
 public:
  virtual ~Ui() = default;

  // Shows `text` with the given buttons and title and waits for the answer.
  virtual MessageAnswer MessageBox(std::string_view text, MessageButtons buttons,
                                   std::string_view title) = 0;
};

}  // namespace tessaly

#endif  // TESSALY_PLATFORM_UI_H_
