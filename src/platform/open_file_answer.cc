#include "platform/open_file_answer.h"

#include <optional>

namespace tessaly {

namespace {

constexpr std::size_t kFileBufferSize = 257;

// The buffer the dialog is given: 255 blanks and two zero characters, with
// `written` put over its start; nothing if it does not fit.
std::optional<std::string> FillBuffer(const std::string& written) {
  if (written.size() > kFileBufferSize) return std::nullopt;
  std::string buffer(kFileBufferSize - 2, ' ');
  buffer.append(2, '\0');
  buffer.replace(0, written.size(), written);
  return buffer;
}

}  // namespace

OpenFileAnswer SingleFileAnswer(std::string_view path) {
  const auto buffer = FillBuffer(std::string(path) + '\0');
  if (!buffer) return {};
  const std::size_t nameStart = path.find_last_of('\\') + 1;  // npos + 1 is 0
  const std::size_t period = path.find_last_of('.');
  const bool hasExtension = period != std::string_view::npos && period >= nameStart;
  const std::size_t offset = hasExtension ? period + 1 : path.size();
  return {true, *buffer, static_cast<std::uint16_t>(offset)};
}

OpenFileAnswer MultipleFilesAnswer(std::string_view folder, const std::vector<std::string>& names) {
  std::string block(folder);
  block.push_back('\0');
  for (const std::string& name : names) {
    block += name;
    block.push_back('\0');
  }
  block.push_back('\0');
  const auto buffer = FillBuffer(block);
  if (!buffer) return {};
  return {true, *buffer, 0};
}

}  // namespace tessaly
