// The wizard's dialogs as the console shows them.
#include "terminal_ui.h"

#include <gtest/gtest.h>

#include <deque>
#include <sstream>
#include <string>
#include <vector>

#include "lists/unwanted_formatting.h"
#include "platform/memory/fixed_locale.h"
#include "platform/memory/memory_registry.h"
#include "settings/settings_store.h"
#include "wizard/progress_form.h"

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

TEST_F(TerminalUiTest, AsksAgainUntilTheAnswerIsUnderstood) {
  person.answers = {"maybe", "", " Y "};
  EXPECT_EQ(AskOverwrite(), MessageAnswer::kYes);
  ASSERT_EQ(person.prompts.size(), 3u);
  EXPECT_EQ(person.prompts[0],
            "Confirm Overwrite: " + std::string(kShownQuestion) + " [y]es, [n]o, [c]ancel? ");
}

TEST_F(TerminalUiTest, ReadsEachAnswer) {
  person.answers = {"no", "C", "yes", "n"};
  EXPECT_EQ(AskOverwrite(), MessageAnswer::kNo);
  EXPECT_EQ(AskOverwrite(), MessageAnswer::kCancel);
  EXPECT_EQ(AskOverwrite(), MessageAnswer::kYes);
  EXPECT_EQ(AskOverwrite(), MessageAnswer::kNo);
}

TEST_F(TerminalUiTest, EndOfInputCountsAsNo) {
  EXPECT_EQ(AskOverwrite(), MessageAnswer::kNo);
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

TEST_F(TerminalUiTest, ProgressWindowBecomesOneLineWithItsLastState) {
  FixedLocale locale;
  auto progress = std::make_unique<fProgress>(ui, locale);
  progress->Load();
  ui.Show(*progress);
  progress->SetCaption("Renaming and Moving Files...");
  progress->start(0, 3);
  for (int i = 1; i <= 3; ++i) progress->setvalue(i);
  progress->setvalue(3);
  progress->Unload();
  progress.reset();
  EXPECT_EQ(messages.str(), "Renaming and Moving Files...  100%\n");
  EXPECT_EQ(out.str(), "");
}

TEST_F(TerminalUiTest, ListDialogPrintsItsRowsReadOnly) {
  MemoryRegistry registry;
  SettingsStore store(registry);
  fUnwantedFormatting dialog(store, ui);
  dialog.Load();
  ui.ShowModal(dialog);
  dialog.Unload();
  const std::string printed = out.str();
  EXPECT_EQ(printed.find(dialog.caption()), 0u);
  EXPECT_NE(printed.find("\n  [ ] Copy Of\n"), std::string::npos);
  EXPECT_NE(printed.find("\n  [ ] - -\n"), std::string::npos);
}

}  // namespace
}  // namespace tessaly::cli
