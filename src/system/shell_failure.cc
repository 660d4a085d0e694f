#include "system/shell_failure.h"

namespace tessaly {

namespace {

// Codes without a runtime error of their own are numbered from this base.
constexpr std::int32_t kShellErrorBase = -2147220456;

struct Row {
  std::int32_t code;
  std::int32_t number;  // 0: kShellErrorBase + code
  std::string_view text;
};

constexpr Row kRows[] = {
    {0, 7, "Out of memory"},
    {2, 53, "File not found"},
    {3, 76, "Path not found"},
    {5, 75, "Path/file access error"},
    {8, 7, "Out of memory"},
    {11, 0, "The executable file is invalid or corrupt"},
    {26, 75, "A sharing violation occurred."},
    {27, 0, "This file type does not have a valid file association."},
    {28, 286,
     "The file could not be opened due to time out. Please try again in a moment."},
    {29, 285,
     "The file could not be opened because the DDE transaction failed. Please try again in "
     "a moment."},
    {30, 285,
     "The file could not be opened because the target application is busy. Please try "
     "again in a moment."},
    {31, 0, "No application is associated with this file type."},
    {32, 48, "The specified dynamic-link library was not found."},
};

constexpr std::string_view kOtherText =
    "An error occurred occurred whilst trying to open or print the selected file.";

}  // namespace

ShellFailure ShellFailureFor(std::int32_t code, std::string_view programName) {
  ShellFailure failure{kShellErrorBase + code, std::string(programName) + ".GShell",
                       std::string(kOtherText)};
  for (const Row& row : kRows) {
    if (row.code != code) continue;
    if (row.number != 0) failure.number = row.number;
    failure.description = std::string(row.text);
  }
  return failure;
}

}  // namespace tessaly
