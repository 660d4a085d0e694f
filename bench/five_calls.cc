// The system calls tessaly-cli makes for each file of a lower-casing run,
// and nothing else: the existence test when the file is listed, the test of
// the new name, the rename that never replaces, and the two tests after it
// that decide the outcome. Timed beside the whole program, it shows what
// the disk alone costs, whatever the program does around it.
//   five_calls NAME...   (made absolute as tessaly-cli makes them; only
//                         the names are lower-cased)
#include <fcntl.h>
#include <stdio.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cctype>
#include <string>
#include <string_view>
#include <vector>

int main(int argc, char** argv) {
  char folder[4096];
  if (getcwd(folder, sizeof folder) == nullptr) return 2;
  std::vector<std::string> paths;
  for (int i = 1; i < argc; ++i) {
    std::string_view word = argv[i];
    if (word.starts_with("./")) word.remove_prefix(2);
    paths.push_back(word.starts_with('/') ? std::string(word) : folder + ("/" + std::string(word)));
  }
  struct stat info {};
  for (const std::string& path : paths) lstat(path.c_str(), &info);
  int failed = 0;
  for (const std::string& source : paths) {
    std::string target = source;
    for (std::size_t c = target.rfind('/') + 1; c < target.size(); ++c) {
      target[c] = static_cast<char>(std::tolower(static_cast<unsigned char>(target[c])));
    }
    if (target == source || lstat(target.c_str(), &info) == 0) continue;
    if (renameat2(AT_FDCWD, source.c_str(), AT_FDCWD, target.c_str(), RENAME_NOREPLACE) != 0 ||
        lstat(target.c_str(), &info) != 0 || lstat(source.c_str(), &info) == 0) {
      ++failed;
    }
  }
  return failed == 0 ? 0 : 1;
}
