// The system calls tessaly-cli makes for each file of a lower-casing run,
// and nothing else: the existence test when the file is listed, the test of
// the new name, the rename that never replaces, and the two tests after it
// that decide the outcome, each made through a handle on the folder, as
// tessaly-cli makes them. Timed beside the whole program, it shows what the
// disk alone costs, whatever the program does around it.
//   five_calls NAME...   (names in the current folder; lower-cased)
#include <fcntl.h>
#include <stdio.h>
#include <sys/stat.h>

#include <cctype>
#include <string>
#include <string_view>
#include <vector>

int main(int argc, char** argv) {
  const int folder = open(".", O_PATH | O_DIRECTORY | O_CLOEXEC);
  if (folder < 0) return 2;
  std::vector<std::string> names;
  for (int i = 1; i < argc; ++i) {
    std::string_view word = argv[i];
    if (word.starts_with("./")) word.remove_prefix(2);
    names.emplace_back(word);
  }
  struct stat info {};
  const auto exists = [&](const std::string& name) {
    return fstatat(folder, name.c_str(), &info, AT_SYMLINK_NOFOLLOW) == 0;
  };
  for (const std::string& name : names) exists(name);
  int failed = 0;
  for (const std::string& source : names) {
    std::string target = source;
    for (char& c : target) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    if (target == source || exists(target)) continue;
    if (renameat2(folder, source.c_str(), folder, target.c_str(), RENAME_NOREPLACE) != 0 ||
        !exists(target) || exists(source)) {
      ++failed;
    }
  }
  return failed == 0 ? 0 : 1;
}
