#include "cli_options.h"

#include <gtest/gtest.h>

namespace tessaly::cli {
namespace {

using Kind = Request::Kind;

TEST(ReadArguments, HelpWinsOverEverythingElse) {
  EXPECT_EQ(ReadArguments({"--help"}, "/w").kind, Kind::kHelp);
  EXPECT_EQ(ReadArguments({"a.txt", "-h", "/exit"}, "/w").kind, Kind::kHelp);
  EXPECT_NE(UsageText().find("--command-line"), std::string::npos);
}

TEST(ReadArguments, RawCommandLinePassesThroughUnchanged) {
  const std::string raw = R"q("c:\a b.txt";rel.txt /placement2:"(none)" /step:4)q";
  const Request request = ReadArguments({"--command-line", raw}, "/w");
  EXPECT_EQ(request.kind, Kind::kRun);
  EXPECT_EQ(request.commandLine, raw);
  EXPECT_EQ(ReadArguments({"--command-line", ""}, "/w").commandLine, "");
}

TEST(ReadArguments, RawCommandLineStandsAlone) {
  EXPECT_EQ(ReadArguments({"--command-line"}, "/w").kind, Kind::kError);
  EXPECT_EQ(ReadArguments({"--command-line", "x", "/exit"}, "/w").kind, Kind::kError);
  EXPECT_EQ(ReadArguments({"a.txt", "--command-line", "x"}, "/w").kind, Kind::kError);
}

TEST(ReadArguments, UnknownOptionIsAnErrorThatNamesTheWayOut) {
  const Request request = ReadArguments({"--lower"}, "/w");
  EXPECT_EQ(request.kind, Kind::kError);
  EXPECT_NE(request.error.find("./--lower"), std::string::npos);
}

TEST(ReadArguments, DoubleDashEndsTheOptions) {
  const Request request = ReadArguments({"--", "--odd.txt", "-h", "/exit"}, "/w");
  EXPECT_EQ(request.kind, Kind::kRun);
  EXPECT_EQ(request.commandLine, R"(\w\--odd.txt;\w\-h /exit)");
}

TEST(ReadArguments, SingleDashWordsAreFiles) {
  EXPECT_EQ(ReadArguments({"-x.txt"}, "/w").commandLine, R"(\w\-x.txt)");
}

}  // namespace
}  // namespace tessaly::cli
