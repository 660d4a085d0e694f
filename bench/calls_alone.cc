// The system calls tessaly-cli makes for each file of a lower-casing run,
// and nothing else: the existence test when the file is listed, the journal
// record written before the move, and the rename that never replaces (whose
// own answer decides the outcome), each rename made through a handle on the
// folder, as tessaly-cli makes them. Timed beside the whole program, it
// shows what the disk alone costs, whatever the program does around it.
//   calls_alone JOURNAL NAME...   (names in the current folder; lower-cased;
//                                  JOURNAL is made and appended to)
#include <fcntl.h>
#include <stdio.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cctype>
#include <string>
#include <string_view>
#include <vector>

int main(int argc, char** argv) {
  if (argc < 2) return 2;
  const int folder = open(".", O_PATH | O_DIRECTORY | O_CLOEXEC);
  const int journal = open(argv[1], O_WRONLY | O_CREAT | O_EXCL | O_APPEND | O_CLOEXEC, 0600);
  if (folder < 0 || journal < 0) return 2;
  std::vector<std::string> names;
  for (int i = 2; i < argc; ++i) {
    std::string_view word = argv[i];
    if (word.starts_with("./")) word.remove_prefix(2);
    names.emplace_back(word);
  }
  struct stat info {};
  for (const std::string& name : names) fstatat(folder, name.c_str(), &info, AT_SYMLINK_NOFOLLOW);
  int failed = 0;
  std::string record;
  for (const std::string& source : names) {
    std::string target = source;
    for (char& c : target) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    if (target == source) continue;
    // A record of about the journal's size: the last result and this move.
    record.assign("done\nmove 0 ").append(source).append(" ").append(target);
    record.append(" 65024 10969078 0 1795673062 1795673062\n");
    if (write(journal, record.data(), record.size()) < 0 ||
        renameat2(folder, source.c_str(), folder, target.c_str(), RENAME_NOREPLACE) != 0) {
      ++failed;
    }
  }
  return failed == 0 ? 0 : 1;
}
