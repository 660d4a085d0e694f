#include "platform/posix/command_line_text.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace tessaly {
namespace {

struct Sample {
  std::vector<std::string> words;
  std::string expected;
};

TEST(CommandLineText, RebuildsTheOneTextFromShellWords) {
  const std::vector<Sample> samples = {
      // Paths: made absolute, cleaned, model form, joined by ";".
      {{"a.txt"}, R"(\home\ann\work\a.txt)"},
      {{"a.txt", "/tmp/b  c.JPG"}, R"(\home\ann\work\a.txt;\tmp\b  c.JPG)"},
      {{"./sub/../c.txt"}, R"(\home\ann\work\c.txt)"},
      {{"../up.txt"}, R"(\home\ann\up.txt)"},
      {{"Ünïcode Ça.JPG"}, R"(\home\ann\work\Ünïcode Ça.JPG)"},
      // A native backslash is an ordinary character, a model "/".
      {{R"(odd\name.txt)"}, R"(\home\ann\work\odd/name.txt)"},
      // Switch words keep their text and follow the file part, in order.
      {{"a.txt", "/settings:LowerCase", "/step:4", "/hide", "/exit"},
       R"(\home\ann\work\a.txt /settings:LowerCase /step:4 /hide /exit)"},
      {{"/exit", "a.txt", "/settings:Capitalize", "b.txt"},
       R"(\home\ann\work\a.txt;\home\ann\work\b.txt /exit /settings:Capitalize)"},
      {{"/step:3"}, "/step:3"},
      {{"/DefineUnwantedFormatting", "/show"}, "/DefineUnwantedFormatting /show"},
      {{"/showme"}, "/showme"},
      // Placement values get back the quotes the shell took.
      {{"/placement2:(none)"}, R"q(/placement2:"(none)")q"},
      {{"/placement1:My Name"}, R"(/placement1:"My Name")"},
      {{"/placement6:"}, R"(/placement6:"")"},
      {{R"(/placement3:" - ")"}, R"(/placement3:" - ")"},
      // Not a switch literal, letter case counting: a path from the root.
      {{"/Exit"}, R"(\Exit)"},
      {{"/placement7:x"}, R"(\placement7:x)"},
      {{"/home/ann/exit.txt"}, R"(\home\ann\exit.txt)"},
      // Nothing at all, and empty words.
      {{}, ""},
      {{"", "a.txt", ""}, R"(\home\ann\work\a.txt)"},
  };
  for (const Sample& sample : samples) {
    EXPECT_EQ(CommandLineText(sample.words, "/home/ann/work"), sample.expected)
        << "first word: " << (sample.words.empty() ? "(none)" : sample.words.front());
  }
}

TEST(CommandLineText, ResolvesAgainstTheRoot) {
  EXPECT_EQ(CommandLineText({"a.txt"}, "/"), R"(\a.txt)");
}

TEST(CommandLineText, UnquotedPlacementReadsBackAsTheWholeValue) {
  // The rebuilt text keeps the value intact up to the next switch.
  const std::string text =
      CommandLineText({"/placement2:(none)", "/placement3:a b", "/exit"}, "/w");
  EXPECT_EQ(text, R"q(/placement2:"(none)" /placement3:"a b" /exit)q");
}

}  // namespace
}  // namespace tessaly
