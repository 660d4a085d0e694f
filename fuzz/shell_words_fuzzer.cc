// The words of tessaly-cli: options come out of them and nothing else does,
// and the switch text says what the switch words said: the same boxes,
// step and placement values.

#include <algorithm>
#include <filesystem>
#include <optional>

#include "cli_options.h"
#include "fuzz_input.h"
#include "platform/posix/posix_working_folder.h"
#include "settings/command_line.h"
#include "settings/shell_words.h"
#include "settings/switch_words.h"

namespace tessaly {
namespace {

namespace cl = command_line;
namespace fs = std::filesystem;
constexpr std::string_view kFolder = "/nonexistent-folder";
constexpr std::string_view kWords[] = {
    "--", "-n0", "--json", "--files-from", "--command-line", "/step:4", "/exit", "/hide",
    "/settings:LowerCase", "/placement1:", "/placement2:\"x\"", "/step:", "a.txt", ".."};

void CheckOptions(const std::vector<std::string>& words) {
  const cli::Request request = cli::ReadArguments(words);
  if (request.kind != cli::Request::Kind::kRun) return;
  // The words left are the given ones in order, and none before "--" is an option.
  auto next = words.begin();
  for (const std::string& word : request.words) {
    next = std::find(next, words.end(), word);
    FUZZ_CHECK(next++ != words.end());
    FUZZ_CHECK(word.size() < 2 || word[0] != '-' || std::find(words.begin(), next, "--") != next);
  }
}

// What follows `prefix` in the first switch word that starts with it.
std::optional<std::string> FirstWith(const std::vector<std::string>& given, std::string_view prefix) {
  const auto word = std::find_if(given.begin(), given.end(),
                                 [prefix](const std::string& w) { return w.starts_with(prefix); });
  return word == given.end() ? std::nullopt : std::optional(word->substr(prefix.size()));
}

void CheckSwitchText(const std::vector<std::string>& words) {
  const ShellWords sorted = SortShellWords(words, PosixWorkingFolder(std::string(kFolder)));
  if (!sorted.badSwitch.empty()) return;
  std::vector<std::string> given;  // the switch words before "--" that name no file
  for (auto word = words.begin(); word != words.end() && *word != "--"; ++word) {
    // As the kernel walks the word, ".." through links included.
    std::error_code error;
    const bool file = fs::symlink_status(fs::path(kFolder) / *word, error).type() !=
                      fs::file_type::not_found;
    if (!file && cl::KindOfWord(*word) == cl::WordKind::kSwitch) given.push_back(*word);
  }
  const std::string& text = sorted.switches;
  std::vector<std::string_view> exact = {"/show", "/hide", "/exit", "/DefineUnwantedFormatting"};
  for (const cl::OptionSwitch& option : cl::kOptionSwitches) exact.push_back(option.text);
  for (std::string_view word : exact) {
    FUZZ_CHECK(cl::Holds(text, word) == (std::count(given.begin(), given.end(), word) > 0));
  }
  const auto step = FirstWith(given, "/step:");
  FUZZ_CHECK(cl::StepCount(text) == (step ? (*step)[0] - '0' : 0));
  for (int number = 1; number <= 6; ++number) {
    auto value = FirstWith(given, "/placement" + std::to_string(number) + ":");
    if (value && value->size() >= 2 && value->front() == '"' && value->back() == '"') {
      value = value->substr(1, value->size() - 2);
    }
    FUZZ_CHECK(cl::PlacementValue(text, number) == value);
  }
}

}  // namespace
}  // namespace tessaly

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  FuzzedDataProvider in(data, size);
  std::vector<std::string> words(in.ConsumeIntegralInRange<std::size_t>(0, 8));
  for (std::string& word : words) word = tessaly::fuzz::WordOrText(in, tessaly::kWords);
  tessaly::CheckOptions(words);
  tessaly::CheckSwitchText(words);
  return 0;
}
