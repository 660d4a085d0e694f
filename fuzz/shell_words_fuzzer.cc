// The words of tessaly-cli: options come out of the words and nothing else
// does, and the switch text the wizard reads says what the switch words
// said: the same boxes, the same step, the same placement values.

#include <algorithm>
#include <filesystem>
#include <optional>

#include "cli_options.h"
#include "fuzz_input.h"
#include "platform/posix/shell_words.h"
#include "settings/command_line.h"
#include "settings/switch_words.h"

namespace tessaly {
namespace {

namespace cl = command_line;

constexpr std::string_view kWords[] = {
    "--", "-n", "-0", "--json", "--files-from", "--command-line", "/step:4", "/exit", "/show",
    "/hide", "/settings:LowerCase", "/settings:FixSpacing", "/placement1:", "/placement2:\"x\"",
    "/DefineUnwantedFormatting", "/step:", "a.txt", ".", "..", "/"};

void CheckOptions(const std::vector<std::string>& words) {
  const cli::Request request = cli::ReadArguments(words);
  if (request.kind != cli::Request::Kind::kRun) return;
  // What is left is a tail of the words' order, options taken out.
  auto next = words.begin();
  for (const std::string& word : request.words) {
    next = std::find(next, words.end(), word);
    FUZZ_CHECK(next != words.end());
    ++next;
    FUZZ_CHECK(word.size() < 2 || word[0] != '-' || std::find(words.begin(), next, "--") != next);
  }
}

// The words taken as switches: before the first "--", naming nothing.
std::vector<std::string> SwitchWords(const std::vector<std::string>& words) {
  std::vector<std::string> given;
  for (const std::string& word : words) {
    if (word == "--") break;
    std::error_code error;
    const bool names = std::filesystem::symlink_status(word, error).type() !=
                       std::filesystem::file_type::not_found;
    if (!names && cl::KindOfWord(word) == cl::WordKind::kSwitch) given.push_back(word);
  }
  return given;
}

std::optional<std::string> GivenValue(const std::vector<std::string>& given, int number) {
  const std::string name = "/placement" + std::to_string(number) + ":";
  for (const std::string& word : given) {
    if (!word.starts_with(name)) continue;
    std::string value = word.substr(name.size());
    const bool quoted = value.size() >= 2 && value.front() == '"' && value.back() == '"';
    return quoted ? value.substr(1, value.size() - 2) : value;
  }
  return std::nullopt;
}

void CheckSwitchText(const std::vector<std::string>& words) {
  // Relative names count against a folder that does not exist.
  const ShellWords sorted = SortShellWords(words, "/nonexistent-fuzz-folder");
  if (!sorted.badSwitch.empty()) return;
  for (const std::string& file : sorted.files) FUZZ_CHECK(file.starts_with('\\'));
  const std::vector<std::string> given = SwitchWords(words);
  const auto named = [&given](std::string_view text) {
    return std::find(given.begin(), given.end(), text) != given.end();
  };
  const std::string& text = sorted.switches;
  for (const cl::OptionSwitch& option : cl::kOptionSwitches) {
    FUZZ_CHECK(cl::Holds(text, option.text) == named(option.text));
  }
  for (std::string_view plain : {"/show", "/hide", "/exit", "/DefineUnwantedFormatting"}) {
    FUZZ_CHECK(cl::Holds(text, plain) == named(plain));
  }
  const auto step = std::find_if(given.begin(), given.end(),
                                 [](const std::string& word) { return word.starts_with("/step:"); });
  FUZZ_CHECK(cl::StepCount(text) == (step == given.end() ? 0 : (*step)[6] - '0'));
  for (int number = 1; number <= 6; ++number) {
    FUZZ_CHECK(cl::PlacementValue(text, number) == GivenValue(given, number));
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
