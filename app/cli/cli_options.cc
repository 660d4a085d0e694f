#include "cli_options.h"

#include "platform/posix/command_line_text.h"

namespace tessaly::cli {

namespace {

Request Error(std::string text) { return {Request::Kind::kError, {}, std::move(text)}; }

}  // namespace

Request ReadArguments(const std::vector<std::string>& words, std::string_view currentFolder) {
  std::vector<std::string> rest;
  bool optionsEnded = false;
  for (std::size_t i = 0; i < words.size(); ++i) {
    const std::string& word = words[i];
    if (optionsEnded || !word.starts_with("-")) {
      rest.push_back(word);
    } else if (word == "--") {
      optionsEnded = true;
    } else if (word == "--help" || word == "-h") {
      return {Request::Kind::kHelp, {}, {}};
    } else if (word == "--command-line") {
      if (words.size() != 2 || i != 0) {
        return Error("--command-line takes one text and nothing else");
      }
      return {Request::Kind::kRun, words[1], {}};
    } else if (word.starts_with("--")) {
      return Error("unknown option '" + word + "' (for a file of that name, write ./" + word +
                   ")");
    } else {
      rest.push_back(word);
    }
  }
  return {Request::Kind::kRun, CommandLineText(rest, currentFolder), {}};
}

std::string UsageText() {
  return "usage: tessaly-cli [FILE]... [SWITCH]...\n"
         "       tessaly-cli --command-line TEXT\n"
         "\n"
         "Renames files without a window. Each FILE is made absolute; the files\n"
         "are joined by \";\" in front of the switches. Switches:\n"
         "  /settings:NAME       tick an option: ShortExtension, LongExtension,\n"
         "                       RemoveDoubleSpace, RemoveExtraSpaces, Capitalize,\n"
         "                       RemoveUnderscores, LowerCase, DontAllowSpaces,\n"
         "                       FixSpacing, RemoveNumbers, UpperCase, ExampleFiles,\n"
         "                       IncludePaths, UnwantedFormatting\n"
         "  /placementN:VALUE    placement N (1 to 6), e.g. /placement2:\"(none)\"\n"
         "  /step:N              run the wizard's steps 1 to N (3 previews, 4 renames)\n"
         "  /DefineUnwantedFormatting, /show, /hide, /exit\n"
         "\n"
         "--command-line TEXT passes TEXT to the wizard unchanged. The change log\n"
         "(or, after /step:3, the preview) is printed when the work is done. An\n"
         "overwrite question is asked on the terminal; with none it is answered No.\n"
         "Settings live in TESSALY_REGISTRY_DIR when it is set.\n";
}

}  // namespace tessaly::cli
