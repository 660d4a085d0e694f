#ifndef TESSALY_APP_CLI_JSON_LINES_H_
#define TESSALY_APP_CLI_JSON_LINES_H_

#include <ostream>
#include <string>
#include <string_view>

namespace tessaly::cli {

// `text` as a JSON string, quotes included. A byte that is no UTF-8 (a
// name may hold any) becomes "\udcXX", the lone surrogate by which
// Python's "surrogateescape" gets the same byte back.
std::string JsonString(std::string_view text);

// One line of the change log in JSON: the old and new native paths, the
// outcome's text and its short code.
void WriteJsonLine(std::ostream& out, std::string_view oldPath, std::string_view newPath,
                   std::string_view outcome, std::string_view code);

}  // namespace tessaly::cli

#endif  // TESSALY_APP_CLI_JSON_LINES_H_
