#ifndef TESSALY_APP_CLI_USAGE_TEXT_H_
#define TESSALY_APP_CLI_USAGE_TEXT_H_

#include <string>

namespace tessaly::cli {

// What --help prints where a shell hands the program words (POSIX).
std::string UsageText();

// What --help prints where the command line is one text (Windows).
std::string WholeCommandLineUsageText();

// What --version prints: the program's name and version.
std::string VersionText();

}  // namespace tessaly::cli

#endif  // TESSALY_APP_CLI_USAGE_TEXT_H_
