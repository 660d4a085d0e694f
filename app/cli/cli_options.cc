#include "cli_options.h"

#include <string_view>

namespace tessaly::cli {

namespace {

Request Error(std::string text) {
  Request request;
  request.kind = Request::Kind::kError;
  request.error = std::move(text);
  return request;
}

Request Unknown(std::string_view word) {
  return Error("unknown option '" + std::string(word) + "' (for a file of that name, write ./" +
               std::string(word) + " or put it behind --)");
}

// One short option; false for a letter no option has.
bool TakeShort(char letter, Request& request) {
  switch (letter) {
    case 'n':
      request.dryRun = true;
      return true;
    case '0':
      request.nulSeparated = true;
      return true;
    case 'h':
      request.kind = Request::Kind::kHelp;
      return true;
    default:
      return false;
  }
}

// One long option and, where it takes one, its value from `next`; false
// for a name no option has or a missing value (then `error` says which).
bool TakeLong(std::string_view word, const std::string* next, bool& usedNext, Request& request) {
  if (word == "--help") {
    request.kind = Request::Kind::kHelp;
  } else if (word == "--version") {
    request.kind = Request::Kind::kVersion;
  } else if (word == "--dry-run") {
    request.dryRun = true;
  } else if (word == "--json") {
    request.json = true;
  } else if (word == "--null") {
    request.nulSeparated = true;
  } else if (word.starts_with("--files-from=")) {
    request.filesFrom = std::string(word.substr(13));
  } else if (word == "--files-from" || word == "--command-line") {
    if (next == nullptr) {
      request.error = std::string(word) + " needs a value";
      return false;
    }
    (word == "--files-from" ? request.filesFrom : request.commandLine) = *next;
    usedNext = true;
  } else {
    request.error = "";
    return false;
  }
  return true;
}

}  // namespace

Request ReadArguments(const std::vector<std::string>& words) {
  Request request;
  for (std::size_t i = 0; i < words.size(); ++i) {
    const std::string& word = words[i];
    if (word == "--") {
      request.words.insert(request.words.end(), words.begin() + static_cast<long>(i), words.end());
      break;
    }
    if (word.size() < 2 || word[0] != '-') {
      request.words.push_back(word);
    } else if (word[1] != '-') {
      for (char letter : std::string_view(word).substr(1)) {
        if (!TakeShort(letter, request)) return Unknown(word);
      }
    } else {
      bool usedNext = false;
      const std::string* next = i + 1 < words.size() ? &words[i + 1] : nullptr;
      if (!TakeLong(word, next, usedNext, request)) {
        return request.error.empty() ? Unknown(word) : Error(request.error);
      }
      if (usedNext) ++i;
    }
    if (request.kind != Request::Kind::kRun) return request;
  }
  if (request.commandLine && (!request.words.empty() || request.filesFrom)) {
    return Error("--command-line takes the whole command line: give no files or switches beside it");
  }
  return request;
}

std::vector<std::string> ReadFileNames(std::istream& in, bool nulSeparated) {
  std::vector<std::string> names;
  std::string name;
  while (std::getline(in, name, nulSeparated ? '\0' : '\n')) {
    if (!name.empty()) names.push_back(std::move(name));
  }
  return names;
}

}  // namespace tessaly::cli
