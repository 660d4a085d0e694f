#include "platform/posix/posix_working_folder.h"

#include <algorithm>
#include <filesystem>

#include "platform/path_forms.h"

namespace tessaly {

namespace {

namespace fs = std::filesystem;

// Whether `path` holds a "." or ".." part or an empty one, which the
// absolute form leaves out.
bool HasDotOrEmptyParts(std::string_view path) {
  for (std::size_t start = 0; start <= path.size();) {
    std::size_t end = path.find('/', start);
    if (end == std::string_view::npos) end = path.size();
    const std::string_view part = path.substr(start, end - start);
    if ((part.empty() && start > 0 && end < path.size()) || part == "." || part == "..")
      return true;
    start = end + 1;
  }
  return false;
}

// Where the last ".." part of `path` ends; 0 when it has none.
std::size_t EndOfLastUpPart(std::string_view path) {
  std::size_t found = 0;
  for (std::size_t start = 0; start <= path.size();) {
    const std::size_t end = std::min(path.find('/', start), path.size());
    if (path.substr(start, end - start) == "..") found = end;
    start = end + 1;
  }
  return found;
}

// "." and empty parts go without changing what the path means; ".." is
// the kernel's to resolve, since behind a link ("lnk/..") it leads to the
// parent of the link's target. A path whose ".." the kernel cannot walk
// stays as written, and names nothing then either.
std::string Normal(std::string joined) {
  if (const std::size_t up = EndOfLastUpPart(joined); up > 0) {
    std::error_code error;
    const fs::path folder = fs::canonical(fs::path(joined.substr(0, up)), error);
    if (error) return joined;
    joined = (folder / joined.substr(std::min(up + 1, joined.size()))).native();
  }
  return fs::path(std::move(joined)).lexically_normal().native();
}

}  // namespace

std::string CurrentFolder() {
  std::error_code error;
  const fs::path here = fs::current_path(error);
  return error ? std::string() : here.native();
}

std::string PosixWorkingFolder::NativeAbsolute(std::string_view name) const {
  // A shell's glob gives many words like "./name": the common forms are
  // joined by hand, the rest normalised by the library.
  while (name.starts_with("./")) name.remove_prefix(2);
  std::string joined;
  if (!name.starts_with('/')) {
    joined.reserve(folder_.size() + 1 + name.size());
    joined = folder_;
    if (joined.empty() || joined.back() != '/') joined += '/';
  }
  joined += name;
  if (!HasDotOrEmptyParts(joined)) return joined;
  return Normal(std::move(joined));
}

std::string PosixWorkingFolder::Absolute(std::string_view name) const {
  // Swapped where it stands: a glob gives a word for every file.
  std::string path = NativeAbsolute(name);
  SwapSlashesIn(path);
  return path;
}

bool PosixWorkingFolder::Holds(std::string_view name) const {
  std::error_code error;
  return fs::symlink_status(fs::path(NativeAbsolute(name)), error).type() !=
         fs::file_type::not_found;
}

}  // namespace tessaly
