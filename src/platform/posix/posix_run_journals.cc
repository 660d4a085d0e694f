#include "platform/posix/posix_run_journals.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <memory>

#include "platform/posix/unique_fd.h"

namespace tessaly {

namespace {

constexpr std::string_view kExtension = ".journal";

// The file of journal `name`; empty for a name that could reach outside
// the folder or is no journal's.
std::string FileOf(std::string_view name) {
  if (name.empty() || name[0] == '.' || name.find('/') != std::string_view::npos) return {};
  return std::string(name) + std::string(kExtension);
}

class FileAppender : public JournalAppender {
 public:
  explicit FileAppender(int fd) : fd_(fd) {}
  bool Append(std::string_view bytes) override {
    // Written to the system at once: a killed process loses nothing of it.
    while (!bytes.empty()) {
      const ssize_t written = write(fd_.get(), bytes.data(), bytes.size());
      if (written < 0 && errno == EINTR) continue;
      if (written <= 0) return false;
      bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return true;
  }

 private:
  UniqueFd fd_;
};

}  // namespace

PosixRunJournals::~PosixRunJournals() {
  if (fd_ >= 0) close(fd_);
}

int PosixRunJournals::Folder(bool create) {
  if (fd_ >= 0 || refused_) return fd_;
  std::string resolved;
  if (ResolvedFolder(folder_, 0700, create, resolved) != 0) return -1;
  const int fd = open(resolved.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
  struct stat info {};
  if (fd < 0 || fstat(fd, &info) != 0) {
    if (fd >= 0) close(fd);
    return -1;
  }
  if (const std::string_view why = Distrust(info); !why.empty()) {
    close(fd);
    refused_ = true;
    notice_("not keeping run journals in " + folder_ + ": " + std::string(why) +
            "; runs cannot be undone");
    return -1;
  }
  fd_ = fd;
  return fd_;
}

std::unique_ptr<JournalAppender> PosixRunJournals::Create(std::string_view name) {
  const std::string file = FileOf(name);
  const int folder = Folder(true);
  if (file.empty() || folder < 0) return nullptr;
  const int fd = openat(folder, file.c_str(),
                        O_WRONLY | O_APPEND | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0600);
  if (fd < 0) return nullptr;
  return std::make_unique<FileAppender>(fd);
}

std::vector<std::string> PosixRunJournals::Names() {
  std::vector<std::string> names;
  const int folder = Folder(false);
  if (folder < 0) return names;
  // The listing reads through its own handle, from the start.
  const std::unique_ptr<DIR, int (*)(DIR*)> dir(fdopendir(dup(folder)), closedir);
  if (!dir) return names;
  rewinddir(dir.get());
  while (const dirent* entry = readdir(dir.get())) {
    const std::string_view file = entry->d_name;
    if (file.size() > kExtension.size() && file.ends_with(kExtension) && file[0] != '.') {
      names.emplace_back(file.substr(0, file.size() - kExtension.size()));
    }
  }
  return names;
}

std::optional<std::string> PosixRunJournals::Read(std::string_view name) {
  const std::string file = FileOf(name);
  const int folder = Folder(false);
  if (file.empty() || folder < 0) return std::nullopt;
  // A fifo planted under the name must not hang the open.
  const UniqueFd fd(openat(folder, file.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
  struct stat info {};
  if (!fd || fstat(fd.get(), &info) != 0 || !S_ISREG(info.st_mode) || !Distrust(info).empty()) {
    return std::nullopt;
  }
  std::string text;
  char buffer[64 * 1024];
  for (ssize_t got; (got = read(fd.get(), buffer, sizeof buffer)) != 0;) {
    if (got < 0 && errno == EINTR) continue;
    if (got < 0) return std::nullopt;
    text.append(buffer, static_cast<std::size_t>(got));
  }
  return text;
}

bool PosixRunJournals::Remove(std::string_view name) {
  const std::string file = FileOf(name);
  const int folder = Folder(false);
  return !file.empty() && folder >= 0 && unlinkat(folder, file.c_str(), 0) == 0;
}

}  // namespace tessaly
