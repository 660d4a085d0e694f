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

// A name that would hide the rest of the question on a terminal.
constexpr std::string_view kQuestion =
    "The file 'b\x1b[8m.txt' already exists. Would you like to overwrite this file?";
constexpr std::string_view kShownQuestion =
    "The file 'b\\x1b[8m.txt' already exists. Would you like to overwrite this file?";

class TerminalUiTest : public ::testing::Test {
 protected:
  MessageAnswer AskOverwrite() {
    return ui.MessageBox(kQuestion, MessageButtons::kYesNoCancel, "Confirm Overwrite");
  }

  std::ostringstream out;
  std::ostringstream messages;
  QueuedPerson person;
  TerminalUi ui{out, messages, false, person};
};

TEST_F(TerminalUiTest, WithNoTerminalTheAnswerIsNoAndSaidSo) {
  person.reachable = false;
  EXPECT_EQ(AskOverwrite(), MessageAnswer::kNo);
  EXPECT_EQ(messages.str(),
            "Confirm Overwrite: " + std::string(kShownQuestion) +
                "\nConfirm Overwrite: no terminal to ask, answering No\n");
  EXPECT_TRUE(person.prompts.empty());
}

// Each row: what the person types, one line at a time, and the answers
// read from it; a line not understood is asked again, and the end of input
// is No.
TEST_F(TerminalUiTest, ReadsEachAnswer) {
  const struct {
    std::vector<std::string> typed;
    std::vector<MessageAnswer> read;
  } rows[] = {
      {{"maybe", "", " Y "}, {MessageAnswer::kYes}},
      {{"no", "C", "yes", "n"},
       {MessageAnswer::kNo, MessageAnswer::kCancel, MessageAnswer::kYes, MessageAnswer::kNo}},
      {{}, {MessageAnswer::kNo}},
  };
  for (const auto& row : rows) {
    person.answers.assign(row.typed.begin(), row.typed.end());
    for (MessageAnswer answer : row.read) EXPECT_EQ(AskOverwrite(), answer);
  }
  ASSERT_GE(person.prompts.size(), 3u);
  EXPECT_EQ(person.prompts[0],
            "Confirm Overwrite: " + std::string(kShownQuestion) + " [y]es, [n]o, [c]ancel? ");
  EXPECT_NE(messages.str().find("no answer, answering No"), std::string::npos);
}

TEST_F(TerminalUiTest, OkBoxIsPrintedWithoutAsking) {
  EXPECT_EQ(ui.MessageBox("The list\r\nis\nfull.\x7f", MessageButtons::kOk, "Tessaly"),
            MessageAnswer::kOk);
  EXPECT_EQ(messages.str(), "Tessaly: The list\nis\\nfull.\\x7f\n");
  EXPECT_TRUE(person.prompts.empty());
}

TEST_F(TerminalUiTest, PickersAreCancelled) {
  EXPECT_EQ(ui.BrowseForFolder("Select a folder", "\\home"), "");
  EXPECT_FALSE(ui.ShowOpenFileDialog(OpenFileRequest{}).accepted);
}

}  // namespace
}  // namespace tessaly::cli
