// The small platform services: locale separators and names, the program's location,
// the random generator, the dialogs' answers, the network state and the shell.
#include <arpa/inet.h>
#include <gtest/gtest.h>
#include <net/if.h>
#include <netinet/in.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <clocale>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <optional>
#include <thread>

#include "platform/open_file_answer.h"
#include "platform/posix/format_separator.h"
#include "platform/posix/native_path.h"
#include "platform/posix/posix_locale.h"
#include "platform/posix/posix_network_status.h"
#include "platform/posix/posix_program.h"
#include "platform/posix/posix_shell.h"
#include "platform/standard_random.h"
#include "temp_folder.h"

namespace tessaly {
namespace {

namespace fs = std::filesystem;

// A separator is the one text that stands between the numeric fields of a
// format; words of units (year, month, hour) are none. Formats as locales
// of the C library write them.
TEST(PosixLocaleTest, SeparatorsOfFormatsAndOfTheCLocale) {
  const std::pair<const char*, const char*> cases[] = {
      {"%d.%m.%Y", "."},
      {"%Y. %m. %d.", ". "},
      {"%OH.%OM", "."},
      {"%D", "/"},
      {"%T", ":"},
      {"%r", ":"},
      {"%x", "?"},
      {"%-d/%-m/%y", "/"},
      {"%a\u060c %d-%m-%Y", "-"},
      {"%Z %H:%M:%S", ":"},
      {"%p %I:%M:%S %Z", ":"},
      {"kl. %H.%M %z", "."},
      {"%A, %B %d, %Y", "?"},
      {"%Y\u5e74%m\u6708%d\u65e5", "?"},
      {"%H\u6642%M\u5206%S\u79d2", "?"},
      {"%Y\ub144 %m\uc6d4 %d\uc77c", "?"},
      {"%H\uc2dc %M\ubd84 %S\ucd08", "?"},
      {"%OC%Oy\u5e74%B%Od\u65e5", "?"},
  };
  for (const auto& [format, separator] : cases) {
    EXPECT_EQ(SeparatorOfFormat(format, "?"), separator) << format;
  }
  // The C locale gives slash, colon and period, and English names.
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
  EXPECT_EQ(names.months[2] + names.monthsShort[2], "MärzMär");
  EXPECT_EQ(names.weekdays[0] + names.weekdaysShort[0], "SonntagSo");
  // Read without touching the process's own locale.
  EXPECT_STREQ(std::setlocale(LC_ALL, nullptr), "C");
}

TEST(PosixProgramTest, LocationIsTheModelFolderAndTheNameWithoutExtension) {
  for (const auto& [path, folder, name] : {std::tuple{"/usr/bin/tessaly", "\\usr\\bin", "tessaly"},
                                           std::tuple{"/tessaly.bin", "\\", "tessaly"}}) {
    const ProgramLocation location = LocationOfProgram(path);
    EXPECT_EQ(location.folder + "|" + location.fileName, std::string(folder) + "|" + name);
  }
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

// The rest of the answers' shape is read back by the open dialog's tests.
TEST(OpenFileAnswerTest, OffsetsAndTheBufferAreShapedLikeTheDesktopDialogs) {
  EXPECT_EQ(SingleFileAnswer("C:\\Docs\\report.txt").extensionOffset, 15);
  // Without an extension the offset points at the end, never at 0.
  EXPECT_EQ(SingleFileAnswer("C:\\Docs.v2\\README").extensionOffset, 17);
  const OpenFileAnswer many = MultipleFilesAnswer("C:\\Docs", {"a.txt", "bb"});
  EXPECT_EQ(many.extensionOffset, 0);
  EXPECT_EQ(many.buffer[18], ' ');  // behind the closing pair of zeros
}

// One interface as getifaddrs lists it. `address` is IPv4 or IPv6, null
// for none, or anything else for a link-layer entry.
struct Interface {
  Interface(unsigned flags, const char* address, const Interface* next = nullptr) {
    entry.ifa_name = const_cast<char*>("if0");
    entry.ifa_flags = flags;
    entry.ifa_next = next == nullptr ? nullptr : const_cast<ifaddrs*>(&next->entry);
    if (address == nullptr) return;
    entry.ifa_addr = reinterpret_cast<sockaddr*>(&storage);
    if (inet_pton(AF_INET, address, &reinterpret_cast<sockaddr_in&>(storage).sin_addr) == 1) {
      storage.ss_family = AF_INET;
    } else if (inet_pton(AF_INET6, address, &reinterpret_cast<sockaddr_in6&>(storage).sin6_addr)) {
      storage.ss_family = AF_INET6;
    }
  }
  Interface(const Interface&) = delete;  // the entry points into the storage
  sockaddr_storage storage{};            // AF_UNSPEC: a link-layer entry
  ifaddrs entry{};
};

TEST(PosixNetworkStatusTest, OnlyAnUpNonLoopbackInterfaceWithARealAddressIsLan) {
  constexpr unsigned kUpRunning = IFF_UP | IFF_RUNNING;
  const std::tuple<const char*, unsigned, const char*, bool> cases[] = {
      {"ethernet with IPv4", kUpRunning, "192.168.1.5", true},
      {"loopback", kUpRunning | IFF_LOOPBACK, "127.0.0.1", false},
      {"down", IFF_RUNNING, "192.168.1.5", false},
      {"up without link", IFF_UP, "192.168.1.5", false},
      {"link-local IPv4 only", kUpRunning, "169.254.10.2", false},
      {"no address", kUpRunning, nullptr, false},
      {"link layer entry", kUpRunning, "link", false},
      {"link-local IPv6 only", kUpRunning, "fe80::2", false},
  };
  for (const auto& [what, flags, address, lan] : cases) {
    const Interface one(flags, address);
    EXPECT_EQ(ConnectionFlagsOf(&one.entry),
              lan ? std::optional<std::uint32_t>(connection::kLan) : std::nullopt)
        << what;
  }
  // Any interface of the list counts.
  const Interface ethernet(kUpRunning, "10.0.0.3");
  const Interface loopback(kUpRunning | IFF_LOOPBACK, "127.0.0.1", &ethernet);
  EXPECT_EQ(ConnectionFlagsOf(&loopback.entry), connection::kLan);
}

// The shell's answers, as the desktop platform numbers them.
constexpr std::int32_t kFileNotFound = 2, kPathNotFound = 3, kAccessDenied = 5,
                       kBadProgramFile = 11, kNoAssociation = 31;

class PosixShellTest : public ::testing::Test {
 protected:
  void SetUp() override {
    // The recorder writes how many arguments it got, the first one and its
    // working folder, and makes the answer appear at once.
    WriteFile(recorder_,
              "#!/bin/sh\n"
              "printf '%s\\n%s\\n%s' \"$#\" \"$1\" \"$(pwd)\" > '" + Answer() + ".part'\n"
              "mv '" + Answer() + ".part' '" + Answer() + "'\n",
              0755);
  }

  std::string Answer() const { return root_ + "/answer"; }

  static void WriteFile(const std::string& path, const std::string& contents, mode_t mode) {
    std::ofstream(path) << contents;
    chmod(path.c_str(), mode);
  }

  // What the recorder wrote, once it has; nothing after five seconds.
  std::optional<std::string> AwaitAnswer() const {
    for (int i = 0; i < 500; ++i) {
      std::ifstream in(Answer());
      if (in) return std::string(std::istreambuf_iterator<char>(in), {});
      std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    return std::nullopt;
  }

  static std::int32_t Open(PosixShell& shell, const std::string& nativeFile,
                           const std::string& parameters, const std::string& nativeDirectory,
                           const std::string& verb = "open") {
    return shell.Execute({0, verb, ToModelPath(nativeFile), parameters,
                          nativeDirectory.empty() ? "" : ToModelPath(nativeDirectory), 1});
  }

  testing::TempFolder folder_{"/tmp"};
  std::string root_ = folder_.path();
  std::string recorder_ = root_ + "/Record.sh";
  PosixShell shell_;
};

// A document goes to the opener alone: the parameters belong to no program
// there and are not passed on. Nothing started is left as a child to reap.
TEST_F(PosixShellTest, AProgramGetsItsParameterTextAsOneArgumentInItsDirectory) {
  const std::string parameters = "Tessaly,1.0.14 two  words \"quoted\" 'single' $HOME;|* \\x";
  const std::string folder = root_ + "/work folder";
  const std::string here = fs::current_path().string();
  const std::string document = root_ + "/my letter.txt";
  fs::create_directory(folder);
  WriteFile(document, "hello", 0644);
  PosixShell opener(recorder_);
  const std::tuple<PosixShell&, std::string, std::string, std::string, std::string> cases[] = {
      {shell_, recorder_, parameters, "", "1\n" + parameters + "\n" + here},
      {shell_, recorder_, "", "", "0\n\n" + here},
      {shell_, recorder_, "x", folder, "1\nx\n" + folder},
      {opener, document, "--print", "", "1\n" + document + "\n" + here},
  };
  for (const auto& [shell, file, given, directory, expected] : cases) {
    fs::remove(Answer());
    EXPECT_GT(Open(shell, file, given, directory), 32);
    EXPECT_EQ(AwaitAnswer(), expected);
  }
  errno = 0;
  EXPECT_EQ(waitpid(-1, nullptr, WNOHANG), -1);
  EXPECT_EQ(errno, ECHILD);
}

TEST_F(PosixShellTest, FailuresAnswerWithTheShellsCodes) {
  const std::string document = root_ + "/notes.txt";
  WriteFile(document, "hello", 0644);
  const std::string noScript = root_ + "/plain";
  WriteFile(noScript, "not a program\n", 0755);
  const std::string locked = root_ + "/locked";
  fs::create_directory(locked);
  WriteFile(locked + "/x.sh", "#!/bin/sh\n", 0755);
  chmod(locked.c_str(), 0);
  PosixShell noOpener(root_ + "/no-such-opener");
  // What, the shell, the file, the working folder, the verb, the answer.
  std::vector<std::tuple<const char*, PosixShell&, std::string, std::string, const char*,
                         std::int32_t>>
      cases = {
          {"missing file", shell_, root_ + "/gone.sh", "", "open", kFileNotFound},
          {"missing folder", shell_, root_ + "/gone/x.sh", "", "open", kPathNotFound},
          {"missing directory", shell_, recorder_, root_ + "/gone", "open", kPathNotFound},
          {"directory is a file", shell_, recorder_, document, "open", kPathNotFound},
          {"unknown verb", shell_, recorder_, "", "print", kNoAssociation},
          {"no opener", noOpener, document, "", "open", kNoAssociation},
          // Never handed to a command shell instead.
          {"no program format", shell_, noScript, "", "open", kBadProgramFile},
      };
  // The administrator may search any folder.
  if (geteuid() != 0) {
    cases.emplace_back("unsearchable folder", shell_, locked + "/x.sh", "", "open", kAccessDenied);
  }
  for (const auto& [what, shell, file, directory, verb, answer] : cases) {
    EXPECT_EQ(Open(shell, file, "x", directory, verb), answer) << what;
  }
  EXPECT_FALSE(fs::exists(Answer()));
  chmod(locked.c_str(), 0700);  // for the folder's removal
}

}  // namespace
}  // namespace tessaly
