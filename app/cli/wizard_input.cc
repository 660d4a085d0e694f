#include "wizard_input.h"

#include <algorithm>
#include <iostream>

#include "platform/machine.h"
#include "settings/command_line.h"

namespace tessaly::cli {

namespace {

// Whether a path of the file part starts from no root: neither "\" (the
// root, or a network path) nor, where backslashes separate, a drive.
bool IsRelative(std::string_view path) {
  if (path.starts_with('\\')) return false;
  const bool drive = path.size() >= 3 && path[1] == ':' && path[2] == '\\';
  return machine::NamesMayHoldBackslash() || !drive;
}

}  // namespace

void TakeFilePartApart(std::string_view text, WizardInput& input) {
  // The file part ends at the first "/", so the switches all lie behind it.
  input.commandLine = std::string(text.substr(std::min(text.find('/'), text.size())));
  const std::optional<std::vector<std::string>> paths = command_line::FilePaths(text);
  if (!paths) return;
  // An empty path is no file, but it keeps the file part given.
  if (paths->empty()) input.files.emplace_back();
  for (const std::string& path : *paths) {
    input.files.push_back(path.empty() || !IsRelative(path)
                              ? path
                              : machine::AbsolutePath(machine::NativePath(path)));
  }
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
    if (path.ends_with('\\')) return true;
    if (!machine::PathTooLong(path)) return false;
    input.tooLong.push_back(machine::NativePath(path));
    return true;
  });
}

}  // namespace tessaly::cli
