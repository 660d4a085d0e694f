// Where run journals are kept, over every backend: made new, appended to,
// listed, read and removed by name. The POSIX folder's own rules: made
// owner-only, refused when someone else controls it, nothing reached
// through a link or outside it.
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <fstream>

#include "platform/memory/memory_run_journals.h"
#include "platform/posix/posix_run_journals.h"
#include "temp_folder.h"

namespace tessaly {
namespace {

using Names = std::vector<std::string>;

Names Sorted(Names names) {
  std::sort(names.begin(), names.end());
  return names;
}

TEST(RunJournals, EveryBackendKeepsJournalsByName) {
  const testing::TempFolder folder;
  MemoryRunJournals memory;
  PosixRunJournals posix(folder.path() + "/state/runs", [](const std::string& why) { ADD_FAILURE() << why; });
  for (RunJournals* journals : {static_cast<RunJournals*>(&memory), static_cast<RunJournals*>(&posix)}) {
    EXPECT_EQ(journals->Names(), Names{});
    EXPECT_FALSE(journals->Read("a"));
    const std::unique_ptr<JournalAppender> a = journals->Create("a");
    ASSERT_TRUE(a);
    EXPECT_FALSE(journals->Create("a"));  // never one made twice
    EXPECT_TRUE(a->Append("one\n"));
    EXPECT_TRUE(a->Append(std::string("two\0\xff", 5)));
    EXPECT_EQ(journals->Read("a"), std::string("one\ntwo\0\xff", 9));
    EXPECT_TRUE(journals->Create("b"));
    EXPECT_EQ(Sorted(journals->Names()), (Names{"a", "b"}));
    EXPECT_TRUE(journals->Remove("a"));
    EXPECT_FALSE(journals->Remove("a"));
    EXPECT_EQ(journals->Names(), Names{"b"});
  }
  struct stat info {};
  ASSERT_EQ(stat((folder.path() + "/state/runs").c_str(), &info), 0);
  EXPECT_EQ(info.st_mode & 0777, 0700u);
  ASSERT_EQ(stat((folder.path() + "/state/runs/b.journal").c_str(), &info), 0);
  EXPECT_EQ(info.st_mode & 0777, 0600u);
}

TEST(PosixRunJournals, NothingOutsideTheFolderOrThroughALinkOrInAFolderOthersControl) {
  const testing::TempFolder folder;
  std::vector<std::string> told;
  PosixRunJournals journals(folder.path() + "/runs", [&](const std::string& why) { told.push_back(why); });
  for (const char* name : {"../out", "a/b", ".hidden", ""}) EXPECT_FALSE(journals.Create(name)) << name;
  std::filesystem::create_directory(folder.path() + "/runs");
  std::ofstream(folder.path() + "/secret.journal") << "not a journal of ours";
  symlink("../secret.journal", (folder.path() + "/runs/link.journal").c_str());
  EXPECT_FALSE(journals.Read("link"));
  EXPECT_FALSE(journals.Read("../secret"));

  PosixRunJournals shared(folder.path() + "/shared", [&](const std::string& why) { told.push_back(why); });
  std::filesystem::create_directory(folder.path() + "/shared");
  chmod((folder.path() + "/shared").c_str(), 0777);
  EXPECT_FALSE(shared.Create("a"));
  EXPECT_FALSE(shared.Create("b"));
  EXPECT_EQ(shared.Names(), Names{});
  ASSERT_EQ(told.size(), 1u);  // said once
  EXPECT_EQ(told[0], "not keeping run journals in " + folder.path() +
                         "/shared: users other than its owner may write to it; runs cannot be undone");
  EXPECT_TRUE(std::filesystem::is_empty(folder.path() + "/shared"));
}

}  // namespace
}  // namespace tessaly
