// A small window-less showcase of the name conversion, until the wizard
// itself is in place: converts the given paths (or the built-in samples)
// and prints each old and new path.
#include <cstdio>
#include <iostream>
#include <map>
#include <string>
#include <vector>

#include "conversion/name_converter.h"
#include "conversion/sample_paths.h"
#include "platform/posix/posix_file_system.h"
#include "platform/posix/system_clock.h"

namespace {

using tessaly::CheckState;
using tessaly::ConversionOptions;

const std::map<std::string, CheckState ConversionOptions::*> kBoxes = {
    {"chkRemoveNumbers", &ConversionOptions::chkRemoveNumbers},
    {"chkFormatting", &ConversionOptions::chkFormatting},
    {"chkLongExtension", &ConversionOptions::chkLongExtension},
    {"chkShortExtension", &ConversionOptions::chkShortExtension},
    {"chkExtra", &ConversionOptions::chkExtra},
    {"chkRemoveu", &ConversionOptions::chkRemoveu},
    {"chkRemoveDoubleSpace", &ConversionOptions::chkRemoveDoubleSpace},
    {"chkAllowSpaces", &ConversionOptions::chkAllowSpaces},
    {"chkCapitalize", &ConversionOptions::chkCapitalize},
    {"chkUpperCase", &ConversionOptions::chkUpperCase},
    {"chkLowercase", &ConversionOptions::chkLowercase},
    {"chkFixSpacing", &ConversionOptions::chkFixSpacing},
};

void PrintUsage() {
  std::cout << "usage: tessaly-demo [--tick BOX | --clear BOX | --placement N TEXT |\n"
               "                     --replace TEXT --with TEXT]... [PATH]...\n"
               "Shows the new path of each PATH (model form, backslash separated);\n"
               "without paths, of the three built-in samples. Nothing is renamed.\n"
               "BOX is one of:";
  for (const auto& [name, field] : kBoxes) std::cout << ' ' << name;
  std::cout << "\nN is 1 to 6.\n";
}

// Fills `options` and `paths` from the words; false on a malformed one.
bool ParseArguments(const std::vector<std::string>& words, ConversionOptions& options,
                    std::vector<std::string>& paths) {
  for (std::size_t i = 0; i < words.size(); ++i) {
    const std::string& word = words[i];
    const bool hasValue = i + 1 < words.size();
    if ((word == "--tick" || word == "--clear") && hasValue && kBoxes.count(words[i + 1])) {
      options.*kBoxes.at(words[++i]) = word == "--tick" ? tessaly::kChecked : tessaly::kUnchecked;
    } else if (word == "--placement" && i + 2 < words.size() && words[i + 1].size() == 1 &&
               words[i + 1][0] >= '1' && words[i + 1][0] <= '6') {
      options.cboBatch[static_cast<std::size_t>(words[i + 1][0] - '1')] = words[i + 2];
      i += 2;
    } else if ((word == "--replace" || word == "--with") && hasValue) {
      options.cboBatch[word == "--replace" ? 6 : 7] = words[++i];
    } else if (word.starts_with("--")) {
      std::cerr << "tessaly-demo: cannot read '" << word << "'\n";
      return false;
    } else {
      paths.push_back(word);
    }
  }
  return true;
}

}  // namespace

int main(int argc, char** argv) {
  const std::vector<std::string> words(argv + 1, argv + argc);
  if (!words.empty() && (words[0] == "--help" || words[0] == "-h")) {
    PrintUsage();
    return 0;
  }
  ConversionOptions options;
  std::vector<std::string> paths;
  if (!ParseArguments(words, options, paths)) {
    PrintUsage();
    return 2;
  }
  if (paths.empty()) paths.assign(tessaly::kBuiltInSamples.begin(), tessaly::kBuiltInSamples.end());

  tessaly::SystemClock clock;
  tessaly::PosixFileSystem fileSystem;
  const tessaly::NameConverter converter({clock, fileSystem, nullptr});
  for (const std::string& path : paths) {
    std::cout << path << "\n  -> " << converter.ConvertName(options, path) << "\n";
  }
  return 0;
}
