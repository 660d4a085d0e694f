// The wizard's dialogs as the console shows them.
#include "terminal_ui.h"

#include <gtest/gtest.h>

#include <deque>
#include <sstream>
#include <string>
#include <vector>

namespace tessaly::cli {
namespace {

// A person who answers from a queue; with the queue empty the input ends.
class QueuedPerson : public Person {
 public:
  bool reachable = true;
  std::deque<std::string> answers;
  std::vector<std::string> prompts;

  bool Reachable() override { return reachable; }
  std::optional<std::string> Ask(std::string_view prompt) override {
    prompts.emplace_back(prompt);
    if (answers.empty()) return std::nullopt;
    std::string answer = answers.front();
    answers.pop_front();
    return answer;
  }
};

// A name that would hide the rest of the question on a terminal, and the
// question as shown.
constexpr std::string_view kQuestion =
    "The file 'b\x1b[8m.txt' already exists. Would you like to overwrite this file?";
const std::string kShown =
    "Confirm Overwrite: The file 'b\\x1b[8m.txt' already exists. Would you like to overwrite this "
    "file?";

class TerminalUiTest : public ::testing::Test {
 protected:
  MessageAnswer AskOverwrite() {
    return ui.MessageBox(kQuestion, MessageButtons::kYesNoCancel, "Confirm Overwrite");
  }

  std::ostringstream out, messages;
  QueuedPerson person;
  TerminalUi ui{out, messages, false, person};
};

TEST_F(TerminalUiTest, WithNoTerminalTheAnswerIsNoAndSaidSo) {
  person.reachable = false;
  EXPECT_EQ(AskOverwrite(), MessageAnswer::kNo);
  EXPECT_EQ(messages.str(), kShown + "\nConfirm Overwrite: no terminal to ask, answering No\n");
  EXPECT_TRUE(person.prompts.empty());
}

// What the person types, one line at a time: a line not understood is
// asked again, and the end of input is No.
TEST_F(TerminalUiTest, ReadsEachAnswer) {
  person.answers = {"maybe", "", " Y ", "no", "C", "yes", "n"};
  for (MessageAnswer answer : {MessageAnswer::kYes, MessageAnswer::kNo, MessageAnswer::kCancel,
                               MessageAnswer::kYes, MessageAnswer::kNo, MessageAnswer::kNo}) {
    EXPECT_EQ(AskOverwrite(), answer);
  }
  EXPECT_EQ(person.prompts[0], kShown + " [y]es, [n]o, [c]ancel? ");
  EXPECT_EQ(messages.str(), "\nConfirm Overwrite: no answer, answering No\n");
}

TEST_F(TerminalUiTest, OkBoxIsPrintedWithoutAskingAndPickersAreCancelled) {
  EXPECT_EQ(ui.MessageBox("The list\r\nis\nfull.\x7f", MessageButtons::kOk, "Tessaly"),
            MessageAnswer::kOk);
  EXPECT_EQ(messages.str(), "Tessaly: The list\nis\\nfull.\\x7f\n");
  EXPECT_EQ(ui.BrowseForFolder("Select a folder", "\\home"), "");
  EXPECT_FALSE(ui.ShowOpenFileDialog(OpenFileRequest{}).accepted);
  EXPECT_TRUE(person.prompts.empty());
}

}  // namespace
}  // namespace tessaly::cli
