#include "conversion/path_routines.h"

#include <gtest/gtest.h>

#include "platform/memory/memory_file_system.h"
#include "platform/memory/scripted_ui.h"

namespace tessaly {
namespace {

TEST(FileNameOf, SplitsAtTheLastBackslashAndJoinsBackWhole) {
  struct Case {
    std::string path, folder, name;
  } cases[] = {
      {"c:\\graphics\\common\\a.txt", "c:\\graphics\\common\\", "a.txt"},
      {"a.txt", "", "a.txt"},
      {"c:\\graphics\\common\\", "c:\\graphics\\common\\", ""},
      {"c:name", "", "c:name"},
      {"\\\\server\\share\\x", "\\\\server\\share\\", "x"},
      {"a/b\\c/d", "a/b\\", "c/d"},  // "/" is an ordinary character
      {"", "", ""},
      {"d:\\Ünï\\\xff.txt", "d:\\Ünï\\", "\xff.txt"},
  };
  ScriptedUi ui;
  for (const auto& c : cases) {
    EXPECT_EQ(FileNameOf(c.path, 1, ui), c.folder) << c.path;
    EXPECT_EQ(FileNameOf(c.path, 2, ui), c.name) << c.path;
    EXPECT_EQ(c.folder + c.name, c.path);
  }
  EXPECT_TRUE(ui.messages().empty());
}

TEST(FileNameOf, WrongPartShowsTheErrorAndGivesNothing) {
  ScriptedUi ui;
  EXPECT_EQ(FileNameOf("c:\\a\\b.txt", 3, ui), "");
  EXPECT_EQ(FileNameOf("c:\\a\\b.txt", 0, ui), "");
  ASSERT_EQ(ui.messages().size(), 2u);
  EXPECT_EQ(ui.messages()[0].text,
            "There was an error, please contact Ostrelle as to reagrad a 0026 error. Thank You");
  EXPECT_EQ(ui.messages()[0].buttons, MessageButtons::kOk);
}

TEST(FileExtensionOf, TheLastPeriodColonOrBackslashDecides) {
  const std::pair<std::string, std::string> cases[] = {
      {"c:\\graphics\\common\\myfile_(1).tmd.jpg.jpeg", "jpeg"},
      {"c:\\graphics\\common\\Copy of MYFILE -    SPACE - 04 - Oddy.JPG", "JPG"},
      {"c:\\my.folder\\name", ""},
      {"name.", ""},
      {".profile", "profile"},
      {"a.b:c", ""},
      {"README", ""},
      {"", ""},
      {"photo.jpg/x", "jpg/x"},  // "/" is no separator
      {"été.Ünï", "Ünï"},
  };
  for (const auto& [path, extension] : cases) EXPECT_EQ(FileExtensionOf(path), extension) << path;
}

TEST(WithTrailingBackslash, LooksAtTheLastCharacterOnly) {
  EXPECT_EQ(WithTrailingBackslash("c:\\a"), "c:\\a\\");
  EXPECT_EQ(WithTrailingBackslash("c:\\a\\"), "c:\\a\\");
  EXPECT_EQ(WithTrailingBackslash("c:\\a\\\\"), "c:\\a\\\\");
  EXPECT_EQ(WithTrailingBackslash(""), "\\");
}

TEST(DirectoryExists, NetworkPathsCountWithoutLookingAndFailuresGiveFalse) {
  MemoryFileSystem fs;
  fs.AddDirectory("d:\\photos");
  fs.AddFile("d:\\photos\\a.jpg");
  EXPECT_TRUE(DirectoryExists("\\\\nowhere\\share", fs));
  EXPECT_TRUE(DirectoryExists("d:\\photos", fs));
  EXPECT_TRUE(DirectoryExists("D:\\PHOTOS\\", fs));
  EXPECT_FALSE(DirectoryExists("d:\\photos\\a.jpg", fs));
  EXPECT_FALSE(DirectoryExists("d:\\missing", fs));
  EXPECT_FALSE(DirectoryExists("", fs));
  fs.Remove("d:\\photos");
  EXPECT_FALSE(DirectoryExists("d:\\photos", fs));
}

}  // namespace
}  // namespace tessaly
