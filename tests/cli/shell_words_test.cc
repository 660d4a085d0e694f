#include "platform/posix/shell_words.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace tessaly {
namespace {

using Words = std::vector<std::string>;

TEST(SortShellWords, SwitchesOnlyInFullTheRestFiles) {
  struct Case {
    Words words;
    Words files;
    std::string switches;
    std::string badSwitch = "";
  };
  const Case cases[] = {
      // Files: made absolute, cleaned, model form, every byte kept.
      {{"a.txt", "/tmp/b  c.JPG"}, {R"(\home\ann\work\a.txt)", R"(\tmp\b  c.JPG)"}, ""},
      {{"./sub/../c.txt", "../up.txt"}, {R"(\home\ann\work\c.txt)", R"(\home\ann\up.txt)"}, ""},
      {{"one;two.txt", R"(x\step:4.txt)", R"(say "hi".TXT)", "new\nline"},
       {R"(\home\ann\work\one;two.txt)", R"(\home\ann\work\x/step:4.txt)",
        R"(\home\ann\work\say "hi".TXT)", "\\home\\ann\\work\\new\nline"},
       ""},
      // A path from the root that only begins like a switch.
      {{"/showwiz/Photo.JPG", "/home/ann/exit.txt"},
       {R"(\showwiz\Photo.JPG)", R"(\home\ann\exit.txt)"}, ""},
      // Switches, in their order, placement values quoted again.
      {{"/exit", "a.txt", "/settings:Capitalize", "/step:4", "/hide", "/show"},
       {R"(\home\ann\work\a.txt)"}, "/exit /settings:Capitalize /step:4 /hide /show"},
      {{"/DefineUnwantedFormatting", "/placement2:(none)", "/placement1:My Name", "/placement6:"},
       {}, R"q(/DefineUnwantedFormatting /placement2:"(none)" /placement1:"My Name" /placement6:"")q"},
      {{R"(/placement3:" - ")", R"(/placement4:a/b\)"}, {}, R"q(/placement3:" - " /placement4:"a/b\")q"},
      // "--" ends the switches; empty words are dropped.
      {{"", "/step:3", "--", "/exit", "--", "-n"},
       {R"(\exit)", R"(\home\ann\work\--)", R"(\home\ann\work\-n)"}, "/step:3"},
      // Written like a switch but none: refused.
      {{"a.txt", "/stpe:4"}, {}, "", "/stpe:4"},
      {{"/settings:Bogus"}, {}, "", "/settings:Bogus"},
      {{"/settings:lowercase"}, {}, "", "/settings:lowercase"},
      {{"/placement9:x"}, {}, "", "/placement9:x"},
      {{"/placement1:a\"b"}, {}, "", "/placement1:a\"b"},
      {{"/placement1:x /exit"}, {}, "", "/placement1:x /exit"},
      {{"/step:12"}, {}, "", "/step:12"},
      {{"/Exit"}, {}, "", "/Exit"},
      {{"/showme"}, {}, "", "/showme"},
      {{"/settings:UpperCase/x"}, {}, "", "/settings:UpperCase/x"},
      // ... unless something of that name exists.
      {{"/tmp"}, {R"(\tmp)"}, ""},
  };
  for (const Case& c : cases) {
    const ShellWords sorted = SortShellWords(c.words, "/home/ann/work");
    const std::string last = c.words.back();
    EXPECT_EQ(sorted.badSwitch, c.badSwitch) << last;
    if (!c.badSwitch.empty()) continue;
    EXPECT_EQ(sorted.files, c.files) << last;
    EXPECT_EQ(sorted.switches, c.switches) << last;
  }
}

}  // namespace
}  // namespace tessaly
