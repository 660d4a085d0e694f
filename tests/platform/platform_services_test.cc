// The small platform services: locale separators and names, the program's location,
// the random generator, short paths and the scripted dialogs.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <clocale>
#include <cstdlib>
#include <filesystem>
#include <map>
#include <optional>

#include "platform/memory/memory_file_system.h"
#include "platform/open_file_answer.h"
#include "platform/posix/existing_short_paths.h"
#include "platform/posix/posix_locale.h"
#include "platform/posix/posix_program.h"
#include "platform/standard_random.h"
#include "registry_test_support.h"

namespace tessaly {
namespace {


// Sets environment variables for a scope and puts back what was there.
class ScopedEnvironment {
 public:
  ScopedEnvironment() = default;
  ScopedEnvironment(const ScopedEnvironment&) = delete;
  ScopedEnvironment& operator=(const ScopedEnvironment&) = delete;
  ~ScopedEnvironment() {
    for (const auto& [name, value] : saved_) Put(name.c_str(), value ? value->c_str() : nullptr);
  }
  // A null `value` unsets the variable.
  void Set(const char* name, const char* value) {
    if (!saved_.contains(name)) {
      const char* old = std::getenv(name);
      saved_[name] = old != nullptr ? std::optional<std::string>(old) : std::nullopt;
    }
    Put(name, value);
  }

 private:
  static void Put(const char* name, const char* value) {
    if (value != nullptr) {
      setenv(name, value, 1);
    } else {
      unsetenv(name);
    }
  }
  std::map<std::string, std::optional<std::string>> saved_;
};

TEST(PosixLocaleTest, SeparatorIsTheTextBetweenTheFirstTwoFields) {
  const std::pair<const char*, const char*> cases[] = {
      {"%m/%d/%y", "/"}, {"%d.%m.%Y", "."}, {"%Y-%m-%d", "-"}, {"%Y. %m. %d.", ". "},
      {"%H:%M:%S", ":"}, {"%OH.%OM", "."},  {"%D", "/"},       {"%T", ":"},
      {"%x", "?"},       {"", "?"},
  };
  for (const auto& [format, separator] : cases) {
    EXPECT_EQ(SeparatorOfFormat(format, "?"), separator) << format;
  }
}

TEST(PosixLocaleTest, TheCLocaleGivesSlashColonAndPeriod) {
  setenv("LC_ALL", "C", 1);
  const PosixLocale locale;
  unsetenv("LC_ALL");
  EXPECT_EQ(locale.DateSeparator(), "/");
  EXPECT_EQ(locale.TimeSeparator(), ":");
  EXPECT_EQ(locale.DecimalSeparator(), ".");
  EXPECT_EQ(locale.MonthAndWeekdayNames().months, EnglishDateNames().months);
  EXPECT_EQ(locale.MonthAndWeekdayNames().weekdaysShort, EnglishDateNames().weekdaysShort);
}

TEST(PosixLocaleTest, DateNamesAreThoseOfTheTimeLocaleInUtf8) {
  // This machine may have no locale but C, so one is built for the test:
  // the legacy de_DE, whose names are in ISO-8859-1, set for LC_TIME alone
  // beside a UTF-8 LANG.
  const testing::ScratchFolder folder;
  const std::string built = folder.path() + "/de_DE";
  std::system(("localedef -i de_DE -f ISO-8859-1 '" + built + "' >/dev/null 2>&1").c_str());
  if (!std::filesystem::exists(built + "/LC_TIME")) {
    GTEST_SKIP() << "localedef could not build de_DE (its sources come with the Debian "
                    "package locales)";
  }
  ScopedEnvironment environment;
  environment.Set("LOCPATH", folder.path().c_str());
  environment.Set("LC_ALL", nullptr);
  environment.Set("LANG", "C.UTF-8");
  environment.Set("LC_TIME", "de_DE");
  const PosixLocale locale;
  const DateNames& names = locale.MonthAndWeekdayNames();
  EXPECT_EQ(names.months[2], "März");
  EXPECT_EQ(names.monthsShort[2], "Mär");
  EXPECT_EQ(names.weekdays[0], "Sonntag");
  EXPECT_EQ(names.weekdaysShort[0], "So");
  // Read without touching the process's own locale.
  EXPECT_STREQ(std::setlocale(LC_ALL, nullptr), "C");
}

TEST(PosixProgramTest, LocationIsTheModelFolderAndTheNameWithoutExtension) {
  const ProgramLocation plain = LocationOfProgram("/usr/bin/tessaly");
  EXPECT_EQ(plain.folder, "\\usr\\bin");
  EXPECT_EQ(plain.fileName, "tessaly");
  const ProgramLocation atRoot = LocationOfProgram("/tessaly.bin");
  EXPECT_EQ(atRoot.folder, "\\");
  EXPECT_EQ(atRoot.fileName, "tessaly");
  PosixProgram running("C:\\a.txt /show");
  EXPECT_FALSE(running.FileName().empty());
  EXPECT_EQ(running.CommandLine(), "C:\\a.txt /show");
  EXPECT_EQ(running.Title(), "Tessaly");
  EXPECT_EQ(running.Version(), (ProgramVersion{1, 0, 14}));
}

TEST(StandardRandomTest, ASeedRepeatsItsSequenceOfFractionsBelowOne) {
  StandardRandom random;
  random.Randomize(12);
  std::vector<double> first;
  for (int i = 0; i < 1000; ++i) first.push_back(random.Rnd());
  random.Randomize(12);
  for (double expected : first) {
    const double drawn = random.Rnd();
    ASSERT_EQ(drawn, expected);
    ASSERT_GE(drawn, 0.0);
    ASSERT_LT(drawn, 1.0);
  }
}

TEST(ExistingShortPathsTest, AnExistingPathIsItsOwnShortForm) {
  MemoryFileSystem fs;
  fs.AddFile("C:\\Program Files\\Tessaly\\Tessaly.exe");
  ExistingShortPaths shortPaths(fs);
  EXPECT_EQ(shortPaths.ShortPathOf("C:\\Program Files\\Tessaly\\Tessaly.exe"),
            "C:\\Program Files\\Tessaly\\Tessaly.exe");
  EXPECT_EQ(shortPaths.ShortPathOf("C:\\Program Files\\Tessaly\\Gone.exe"), "");
  EXPECT_EQ(shortPaths.ShortPathOf(""), "");
}

TEST(OpenFileAnswerTest, AnswersAreShapedLikeTheDesktopDialogs) {
  const OpenFileAnswer one = SingleFileAnswer("C:\\Docs\\report.txt");
  ASSERT_TRUE(one.accepted);
  ASSERT_EQ(one.buffer.size(), 257u);
  EXPECT_EQ(one.buffer.substr(0, 19), std::string("C:\\Docs\\report.txt") + '\0');
  EXPECT_EQ(one.extensionOffset, 15);
  EXPECT_EQ(one.buffer.substr(255), std::string(2, '\0'));
  // Without an extension the offset points at the end, never at 0.
  EXPECT_EQ(SingleFileAnswer("C:\\Docs.v2\\README").extensionOffset, 17);

  const OpenFileAnswer many = MultipleFilesAnswer("C:\\Docs", {"a.txt", "bb"});
  ASSERT_TRUE(many.accepted);
  EXPECT_EQ(many.extensionOffset, 0);
  EXPECT_EQ(many.buffer.substr(0, 18), std::string("C:\\Docs\0a.txt\0bb\0\0", 18));
  EXPECT_EQ(many.buffer[18], ' ');

  const std::vector<std::string> tooMany(30, "long-name.txt");
  EXPECT_FALSE(MultipleFilesAnswer("C:\\Docs", tooMany).accepted);
}

}  // namespace
}  // namespace tessaly
