#include "platform/search_pattern.h"

#include <gtest/gtest.h>

namespace tessaly::search_pattern {
namespace {

TEST(SearchPatternTest, MatchesLikeTheDesktopPlatform) {
  struct Case {
    const char* name;
    const char* pattern;
    bool matches;
  };
  const Case cases[] = {
      {"README", "*.*", true},  // no period, still matched
      {".profile", "*.*", true},         {"README", "*.", true},
      {"a.txt", "*.", false},            {"notes", "notes.*", true},
      {"ÄRGER.TXT", "ärger.*", true},  // beyond ASCII
      {".txt", "?.txt", false},  // "?" is exactly one character
      {"abcbd", "a*b*d", true},  // a first try that fails must be retried
      {"a*b", "a*b", true},  // a star in a name is just a character
      {"x.tar.gz", "*.gz", true},        {"", "*", true},
      {"a", "", false},                  {"notesx", "notes.*", false},
      {"caf\xff.txt", "CAF\xff.*", true},  // an invalid byte matches itself
  };
  for (const Case& c : cases) {
    EXPECT_EQ(Matches(c.name, c.pattern), c.matches) << c.name << " / " << c.pattern;
  }
}

TEST(SearchPatternTest, SplitsFolderFromNamePattern) {
  struct Case {
    const char* pattern;
    const char* folder;
    const char* name;
  };
  const Case cases[] = {
      {"C:\\Photos\\*.jpg", "C:\\Photos", "*.jpg"},
      {"C:\\*.*", "C:\\", "*.*"},
      {"\\*.*", "\\", "*.*"},
      {"C:\\Photos\\", "C:\\Photos", ""},
  };
  for (const Case& c : cases) {
    const Parts parts = Split(c.pattern);
    EXPECT_EQ(parts.folder, c.folder) << c.pattern;
    EXPECT_EQ(parts.name, c.name) << c.pattern;
  }
}

}  // namespace
}  // namespace tessaly::search_pattern
