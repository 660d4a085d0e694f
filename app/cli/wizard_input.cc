#include "wizard_input.h"

#include <algorithm>
#include <iostream>

#include "command_line_input.h"
#include "platform/machine.h"
#include "settings/command_line.h"

namespace tessaly::cli {


void TakeFilePartApart(std::string_view text, WizardInput& input) {
  launch::WizardInput taken = launch::FromCommandLineText(text);
  input.commandLine = std::move(taken.commandLine);
  input.files.insert(input.files.end(), std::make_move_iterator(taken.files.begin()),
                     std::make_move_iterator(taken.files.end()));
}

std::optional<std::vector<std::string>> ReadList(const Request& request, std::string& refusal) {
  const std::string& list = *request.filesFrom;
  std::ifstream file;
  if (list != "-") file = OpenList(list);
  std::istream& in = list == "-" ? std::cin : file;
  const std::size_t longest = machine::LongestPath();
  std::optional<std::vector<std::string>> names;
  if (in) names = ReadFileNames(in, request.nulSeparated, longest);
  if ((!in && !in.eof()) || in.bad()) {
    refusal = "cannot read the list of files '" + list + "'";
    return std::nullopt;
  }
  if (!names) {
    refusal = "the list of files '" + list + "' runs on for more than " + std::to_string(longest) +
              " bytes without a name ending, longer than any path here: is it a list of names" +
              (request.nulSeparated ? " ended by NUL bytes?" : ", one a line?");
  }
  return names;
}

void LeaveOutWhatNamesNoFile(WizardInput& input) {
  std::erase_if(input.files, [&input](const std::string& path) {
    if (!machine::PathTooLong(path)) return false;
    input.tooLong.push_back(machine::NativePath(path));
    return true;
  });
}

}  // namespace tessaly::cli
