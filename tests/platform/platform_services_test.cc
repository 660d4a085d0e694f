// The small platform services: locale separators and names, the program's location,
// the random generator, short paths, the network state and the scripted dialogs.
#include <arpa/inet.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <net/if.h>
#include <netinet/in.h>

#include <algorithm>
#include <clocale>
#include <cstdlib>
#include <deque>
#include <filesystem>

#include "platform/memory/memory_file_system.h"
#include "platform/open_file_answer.h"
#include "platform/posix/existing_short_paths.h"
#include "platform/posix/posix_locale.h"
#include "platform/posix/posix_network_status.h"
#include "platform/posix/posix_program.h"
#include "platform/standard_random.h"
#include "registry_test_support.h"

namespace tessaly {
namespace {

TEST(PosixLocaleTest, SeparatorIsTheTextBetweenTheFirstTwoFields) {
  const std::pair<const char*, const char*> cases[] = {
      {"%d.%m.%Y", "."}, {"%Y. %m. %d.", ". "}, {"%OH.%OM", "."},
      {"%D", "/"},       {"%T", ":"},           {"%x", "?"},
  };
  for (const auto& [format, separator] : cases) {
    EXPECT_EQ(SeparatorOfFormat(format, "?"), separator) << format;
  }
}

TEST(PosixLocaleTest, TheCLocaleGivesSlashColonAndPeriod) {
  setenv("LC_ALL", "C", 1);
  const PosixLocale locale;
  unsetenv("LC_ALL");
  EXPECT_EQ(locale.DateSeparator() + locale.TimeSeparator() + locale.DecimalSeparator(), "/:.");
  EXPECT_EQ(locale.MonthAndWeekdayNames().months, EnglishDateNames().months);
}

TEST(PosixLocaleTest, DateNamesAreThoseOfTheTimeLocaleInUtf8) {
  // This machine may have no locale but C, so one is built for the test:
  // the legacy de_DE, whose names are in ISO-8859-1, set for LC_TIME alone
  // beside a UTF-8 LANG.
  const testing::TempFolder folder;
  const std::string built = folder.path() + "/de_DE";
  std::system(("localedef -i de_DE -f ISO-8859-1 '" + built + "' >/dev/null 2>&1").c_str());
  if (!std::filesystem::exists(built + "/LC_TIME")) {
    GTEST_SKIP() << "localedef could not build de_DE (its sources come with the Debian "
                    "package locales)";
  }
  setenv("LOCPATH", folder.path().c_str(), 1);
  setenv("LANG", "C.UTF-8", 1);
  setenv("LC_TIME", "de_DE", 1);
  const PosixLocale locale;
  for (const char* name : {"LOCPATH", "LANG", "LC_TIME"}) unsetenv(name);
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
}

TEST(StandardRandomTest, ASeedRepeatsItsSequenceOfFractionsBelowOne) {
  StandardRandom random;
  random.Randomize(12);
  std::vector<double> first;
  for (int i = 0; i < 1000; ++i) first.push_back(random.Rnd());
  random.Randomize(12);
  for (double expected : first) ASSERT_EQ(random.Rnd(), expected);
  EXPECT_TRUE(std::ranges::all_of(first, [](double d) { return d >= 0.0 && d < 1.0; }));
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

// The rest of the answers' shape is read back by the open dialog's tests.
TEST(OpenFileAnswerTest, OffsetsAndTheBufferAreShapedLikeTheDesktopDialogs) {
  EXPECT_EQ(SingleFileAnswer("C:\\Docs\\report.txt").extensionOffset, 15);
  // Without an extension the offset points at the end, never at 0.
  EXPECT_EQ(SingleFileAnswer("C:\\Docs.v2\\README").extensionOffset, 17);
  const OpenFileAnswer many = MultipleFilesAnswer("C:\\Docs", {"a.txt", "bb"});
  EXPECT_EQ(many.extensionOffset, 0);
  EXPECT_EQ(many.buffer[18], ' ');  // behind the closing pair of zeros
}

constexpr unsigned kUpRunning = IFF_UP | IFF_RUNNING;

// Builds interface lists the way getifaddrs links them.
class InterfaceList {
 public:
  InterfaceList& Add(const char* name, unsigned flags, const char* address) {
    ifaddrs& entry = entries_.emplace_back();
    entry.ifa_name = const_cast<char*>(name);
    entry.ifa_flags = flags;
    sockaddr_storage& storage = addresses_.emplace_back();
    if (address == nullptr) {
      entry.ifa_addr = nullptr;
    } else if (inet_pton(AF_INET, address, &reinterpret_cast<sockaddr_in&>(storage).sin_addr)) {
      storage.ss_family = AF_INET;
      entry.ifa_addr = reinterpret_cast<sockaddr*>(&storage);
    } else if (inet_pton(AF_INET6, address, &reinterpret_cast<sockaddr_in6&>(storage).sin6_addr)) {
      storage.ss_family = AF_INET6;
      entry.ifa_addr = reinterpret_cast<sockaddr*>(&storage);
    } else {
      storage.ss_family = AF_UNSPEC;  // a link-layer entry
      entry.ifa_addr = reinterpret_cast<sockaddr*>(&storage);
    }
    if (entries_.size() > 1) entries_[entries_.size() - 2].ifa_next = &entry;
    return *this;
  }
  const ifaddrs* head() const { return entries_.empty() ? nullptr : &entries_.front(); }

 private:
  std::deque<ifaddrs> entries_;  // a deque keeps the links valid
  std::deque<sockaddr_storage> addresses_;
};

TEST(PosixNetworkStatusTest, OnlyAnUpNonLoopbackInterfaceWithARealAddressIsLan) {
  const struct {
    const char* what;
    unsigned flags;
    const char* address;
    bool lan;
  } cases[] = {
      {"ethernet with IPv4", kUpRunning, "192.168.1.5", true},
      {"loopback", kUpRunning | IFF_LOOPBACK, "127.0.0.1", false},
      {"down", IFF_RUNNING, "192.168.1.5", false},
      {"up without link", IFF_UP, "192.168.1.5", false},
      {"link-local IPv4 only", kUpRunning, "169.254.10.2", false},
      {"no address", kUpRunning, nullptr, false},
      {"link layer entry", kUpRunning, "link", false},
      {"link-local IPv6 only", kUpRunning, "fe80::2", false},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.what);
    InterfaceList list;
    list.Add("if0", c.flags, c.address);
    EXPECT_EQ(ConnectionFlagsOf(list.head()),
              c.lan ? std::optional<std::uint32_t>(connection::kLan) : std::nullopt);
  }
  // Any interface of the list counts.
  InterfaceList list;
  list.Add("lo", kUpRunning | IFF_LOOPBACK, "127.0.0.1").Add("eth0", kUpRunning, "10.0.0.3");
  EXPECT_EQ(ConnectionFlagsOf(list.head()), connection::kLan);
}

}  // namespace
}  // namespace tessaly
