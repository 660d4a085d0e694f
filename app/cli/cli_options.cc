#include "cli_options.h"

#include <algorithm>
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
    case 'r':
      request.recursive = true;
      return true;
    case 'v':
      request.verbose = true;
      return true;
    default:
      return false;
  }
}

enum class Taken { kOne, kWithValue, kUnknown, kNoValue };

constexpr std::string_view kFilesFromIs = "--files-from=";

// One long option and, where it takes one, its value from `next` (null at
// the end of the words).
Taken TakeLong(std::string_view word, const std::string* next, Request& request) {
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
  } else if (word == "--undo") {
    request.undo = true;
  } else if (word == "--list-runs") {
    request.listRuns = true;
  } else if (word == "--recursive") {
    request.recursive = true;
  } else if (word == "--verbose") {
    request.verbose = true;
  } else if (word.starts_with(kFilesFromIs)) {
    request.filesFrom = std::string(word.substr(kFilesFromIs.size()));
  } else if (word == "--files-from" || word == "--command-line") {
    if (next == nullptr) return Taken::kNoValue;
    (word == "--files-from" ? request.filesFrom : request.commandLine) = *next;
    return Taken::kWithValue;
  } else {
    return Taken::kUnknown;
  }
  return Taken::kOne;
}

// Whether `word` reads as one of the program's options, values aside.
bool IsOption(const std::string& word) {
  Request scratch;
  if (word[1] != '-') {
    return std::ranges::all_of(std::string_view(word).substr(1),
                               [&](char letter) { return TakeShort(letter, scratch); });
  }
  const std::string value;
  return TakeLong(word, &value, scratch) != Taken::kUnknown;
}

}  // namespace

Request ReadArguments(const std::vector<std::string>& words, const NamesAnEntry& exists) {
  Request request;
  for (std::size_t i = 0; i < words.size(); ++i) {
    const std::string& word = words[i];
    if (word == "--") {
      request.words.insert(request.words.end(), words.begin() + static_cast<long>(i), words.end());
      break;
    }
    if (word.size() < 2 || word[0] != '-') {
      request.words.push_back(word);
    } else if (exists && exists(word)) {
      // Either reading could be a trap: a file planted as "-n" must not
      // turn a dry run into a real one, nor an option word rename files.
      if (IsOption(word)) {
        return Error("'" + word + "' is an option and also names a file here: write ./" + word +
                     " for the file, or move it");
      }
      request.words.push_back(word);
    } else if (word[1] != '-') {
      for (char letter : std::string_view(word).substr(1)) {
        if (!TakeShort(letter, request)) return Unknown(word);
      }
    } else {
      const std::string* next = i + 1 < words.size() ? &words[i + 1] : nullptr;
      switch (TakeLong(word, next, request)) {
        case Taken::kUnknown:
          return Unknown(word);
        case Taken::kNoValue:
          return Error(word + " needs a value");
        case Taken::kWithValue:
          ++i;
          break;
        case Taken::kOne:
          break;
      }
    }
    if (request.kind != Request::Kind::kRun) return request;
  }
  if (request.commandLine && (!request.words.empty() || request.filesFrom)) {
    return Error("--command-line takes the whole command line: give no files or switches beside it");
  }
  return request;
}

Request ReadWholeCommandLine(std::string_view text) {
  constexpr std::string_view kBlanks = " \t";
  std::vector<std::string> options;
  std::size_t at = text.find_first_not_of(kBlanks);
  // The next word from `at`; a word that opens with a quote runs to the
  // closing one, so a list's path may hold blanks.
  const auto nextWord = [&]() {
    const bool quoted = text[at] == '"';
    const std::size_t start = quoted ? at + 1 : at;
    std::size_t end = std::min(text.find_first_of(quoted ? "\"" : kBlanks, start), text.size());
    std::string word(text.substr(start, end - start));
    if (quoted && end < text.size()) ++end;
    at = text.find_first_not_of(kBlanks, end);
    return word;
  };
  while (at != std::string_view::npos && text[at] == '-') {
    if (text.substr(at).starts_with("- ") || text.substr(at) == "-") break;  // a name
    const std::string word = nextWord();
    if (word == "--") break;
    if (word == "--command-line") {
      return Error("--command-line is not needed here: the command line goes to the wizard as it is");
    }
    options.push_back(word);
    if (word == "--files-from" && at != std::string_view::npos) options.push_back(nextWord());
  }
  Request request = ReadArguments(options);
  if (request.kind == Request::Kind::kRun) {
    request.commandLine = std::string(at == std::string_view::npos ? "" : text.substr(at));
  }
  return request;
}

namespace {

// Ends the name read so far; true when it was one to keep.
bool EndName(std::string& name, bool nulSeparated, std::vector<std::string>& names) {
  if (!nulSeparated && name.ends_with('\r')) name.pop_back();
  if (name.empty()) return false;
  names.push_back(std::move(name));
  name.clear();
  return true;
}

}  // namespace

std::optional<std::vector<std::string>> ReadFileNames(std::istream& in, bool nulSeparated,
                                                      std::size_t longest) {
  const char separator = nulSeparated ? '\0' : '\n';
  std::vector<std::string> names;
  std::string name;
  std::size_t sinceLastName = 0;  // bytes, empty entries' separators included
  char chunk[1 << 16];
  do {
    in.read(chunk, sizeof chunk);
    for (std::streamsize i = 0; i < in.gcount(); ++i) {
      if (chunk[i] != separator) {
        name.push_back(chunk[i]);
      } else if (EndName(name, nulSeparated, names)) {
        sinceLastName = 0;
        continue;
      }
      if (++sinceLastName > longest) return std::nullopt;
    }
  } while (in);
  EndName(name, nulSeparated, names);
  return names;
}

}  // namespace tessaly::cli
