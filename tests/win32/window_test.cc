// The Win32 wizard window worked as a person would, under Wine with no
// display: one whole way through on real files and back by Undo, the
// overwrite question, drops, the list dialogs, the progress window with
// Cancel, the log's positions, and the program file's version.

#include "windows_h.h"

#include <commctrl.h>
#include <dlgs.h>
#include <shlobj.h>

#include <gmock/gmock.h>

#include <algorithm>
#include <functional>
#include <filesystem>
#include <fstream>
#include <set>

#include "memory_world.h"
#include "platform/memory/memory_file_system.h"
#include "platform/program_info.h"
#include "platform/win32/win32_file_system.h"
#include "text_view.h"
#include "temp_folder.h"
#include "window_driver.h"

namespace tessaly::win32::testing {
namespace {

namespace fs = std::filesystem;

class WindowTest : public ::testing::Test {
 protected:
  explicit WindowTest(FileSystem& files) : world(files) {}

  // Starts the program and goes to `step` as a click on the strip would.
  fTessaly& Start(int step = 0) {
    fTessaly& form = world.Start();
    if (step > 0) Click(Find("lblStep" + std::to_string(step)));
    return form;
  }
  HWND Find(const std::string& name) { return ui.wizardWindow()->Named(name); }
  bool OnShow(const std::string& page) { return IsWindowVisible(Find(page)) != FALSE; }

  BasicMemoryWorld<WatchingUi> world;
  WatchingUi& ui = world.ui;
};

// On real files in a fresh folder.
class WizardWalkTest : public WindowTest {
 protected:
  WizardWalkTest() : WindowTest(disk) { fs::create_directory(Photos()); }
  fs::path Photos() const { return fs::path(folder.path()) / "photos"; }
  std::wstring MakeFile(const std::wstring& name) {
    std::ofstream(Photos() / name) << "x";
    return (Photos() / name).wstring();
  }
  std::set<std::wstring> FilesOnDisk() const {
    std::set<std::wstring> names;
    for (const auto& entry : fs::directory_iterator(Photos())) names.insert(entry.path().filename().wstring());
    return names;
  }
  void DropOnList(const std::vector<std::wstring>& paths) {
    const HWND page = Find("pStep1");
    DropFiles(page, paths, CentreIn(Find("lstFiles"), page));
  }

  Win32FileSystem disk;
  tessaly::testing::TempFolder folder;
};

TEST_F(WizardWalkTest, PersonRenamesDroppedFilesAndReadsTheColouredLog) {
  fTessaly& form = Start();
  // Return goes on, as in a dialog.
  PressKey(Find("cmdNext"), VK_RETURN);
  ASSERT_TRUE(OnShow("pStep1"));

  // Dropped in any order, listed as the model orders them.
  DropOnList({MakeFile(L"pear.txt"), MakeFile(L"Apple.txt"), MakeFile(L"fig.txt")});
  const std::vector<std::wstring> rows = Rows(Find("lstFiles"));
  ASSERT_EQ(rows.size(), 3u);
  EXPECT_EQ(rows[0], (Photos() / L"Apple.txt").wstring());
  EXPECT_EQ(TextOf(Find("lStat")), L"3 files.");

  Click(Find("cmdNext"));
  TypeOver(Find("cboBatch0"), L"3 Digit Serial Number");
  Click(Find("chkUpperCase"));
  EXPECT_EQ(SendMessageW(Find("chkUpperCase"), BM_GETCHECK, 0, 0), BST_CHECKED);
  EXPECT_EQ(TextOf(Find("txtExample")), L"001.TXT\r\n002.TXT\r\n003.TXT");
  std::set<std::wstring> titles;
  ui.onPendingEvents = [&] {
    if (ui.progressWindow() != nullptr) titles.insert(TextOf(ui.progressWindow()->hwnd()));
  };
  // Return that no control takes is Next, also in a box being typed in.
  COMBOBOXINFO box{};
  box.cbSize = sizeof(box);
  GetComboBoxInfo(Find("cboBatch0"), &box);
  PressKey(box.hwndItem, VK_RETURN);
  EXPECT_TRUE(OnShow("pStep3"));
  EXPECT_EQ(titles, std::set<std::wstring>{L"Generating Renamed Files Preview..."});
  EXPECT_THAT(ViewText(Find("tOutput")), ::testing::HasSubstr(L"\\photos\\001.TXT\r\n"));

  RECT finish{}, undo{}, both{};
  GetWindowRect(Find("cmdNext"), &finish);
  Click(Find("cmdNext"));
  EXPECT_TRUE(OnShow("pStep4"));
  EXPECT_EQ(FilesOnDisk(), (std::set<std::wstring>{L"001.TXT", L"002.TXT", L"003.TXT"}));
  const HWND log = Find("tLog");
  EXPECT_EQ(ColourOf(log, L"Apple.txt > "), RGB(0, 0, 255));
  EXPECT_EQ(ColourOf(log, L"3 total files."), RGB(0, 0, 0));
  // Undo, beside "Finished", takes the run back once, in a log of its own.
  // A double click on "Finish >" does not reach it.
  ASSERT_TRUE(IsWindowVisible(Find("cmdUndo")));
  GetWindowRect(Find("cmdUndo"), &undo);
  EXPECT_FALSE(IntersectRect(&both, &finish, &undo));
  Click(Find("cmdUndo"));
  EXPECT_EQ(FilesOnDisk(), (std::set<std::wstring>{L"Apple.txt", L"fig.txt", L"pear.txt"}));
  EXPECT_EQ(ColourOf(log, L"Apple.txt (Restored)"), RGB(0, 0, 255));
  EXPECT_FALSE(IsWindowVisible(Find("cmdUndo")));
  bool ended = false;
  const Connection ending = form.programEnded.Connect([&ended] { ended = true; });
  PressKey(Find("cmdNext"), VK_ESCAPE);  // does what "Finished" does
  EXPECT_TRUE(ended);
}

TEST_F(WizardWalkTest, NoToTheOverwriteQuestionKeepsTheTakenFile) {
  fTessaly& form = Start(1);
  // A name beyond the BMP takes two UTF-16 units.
  MakeFile(L"ta\U0001F600ken.txt");
  DropOnList({MakeFile(L"new.txt")});
  Click(Find("lblStep2"));
  form.cboBatch[0].SetText("ta\xF0\x9F\x98\x80ken");
  Click(Find("lblStep3"));
  ui.answers = {MessageAnswer::kNo};
  Click(Find("cmdNext"));
  ASSERT_EQ(ui.asked.size(), 1u);
  EXPECT_THAT(ui.asked[0], ::testing::StartsWith("Confirm Overwrite: The file 'ta\xF0\x9F\x98\x80ken.txt'"));
  // The file waits under its temporary name, and the line says so in black.
  EXPECT_EQ(FilesOnDisk(),
            (std::set<std::wstring>{L"ta\U0001F600ken.txt", L"ta\U0001F600ken.txt.temp"}));
  const HWND log = Find("tLog");
  EXPECT_EQ(ColourOf(log, L"(Completed - Error Removing Temp"), RGB(0, 0, 0));
  EXPECT_THAT(ViewText(log), ::testing::HasSubstr(L"ta\U0001F600ken.txt"));
}

// A drop follows the list's add rule: a file already listed is not listed
// again, a folder brings its files, and a drop on a button does nothing.
TEST_F(WizardWalkTest, DropsFollowTheAddRule) {
  Start(1);
  const std::wstring pear = MakeFile(L"pear.txt");
  DropOnList({pear});
  DropOnList({pear, MakeFile(L"fig.txt")});
  EXPECT_EQ(Rows(Find("lstFiles")).size(), 2u);
  const HWND page = Find("pStep1");
  DropFiles(page, {MakeFile(L"plum.txt")}, CentreIn(Find("cmdClear"), page));
  EXPECT_EQ(Rows(Find("lstFiles")).size(), 2u);
  // Selected rows, and only those, go with Remove.
  SelectRow(Find("lstFiles"), 0);
  Click(Find("cmdRemove"));
  EXPECT_EQ(Rows(Find("lstFiles")), std::vector<std::wstring>{pear});
}

// The system's own dialogs, answered as a person would: a path typed into
// the open dialog, the photos folder picked in the folder browser.
TEST_F(WizardWalkTest, SystemDialogsBringFilesIn) {
  Start(1);
  const std::wstring pear = MakeFile(L"pear.txt");
  const std::wstring fig = MakeFile(L"fig.txt");
  WhenSystemDialogOpens([&pear](HWND dialog) {
    SetDlgItemTextW(dialog, cmb13, pear.c_str());  // the name box, either kind
    SetDlgItemTextW(dialog, edt1, pear.c_str());
    PostMessageW(dialog, WM_COMMAND, IDOK, 0);
  });
  Click(Find("cmdAddFiles"));
  EXPECT_EQ(Rows(Find("lstFiles")), std::vector<std::wstring>{pear});
  const std::wstring photos = Photos().wstring();
  WhenSystemDialogOpens([&photos](HWND dialog) {
    SendMessageW(dialog, BFFM_SETSELECTIONW, TRUE, reinterpret_cast<LPARAM>(photos.c_str()));
    PostMessageW(dialog, WM_COMMAND, IDOK, 0);
  });
  Click(Find("cmdAddDirectory"));
  EXPECT_EQ(Rows(Find("lstFiles")), (std::vector<std::wstring>{fig, pear}));
}

// In memory: the list dialogs and the progress window need no disk.
class MemoryWindowTest : public WindowTest {
 protected:
  MemoryWindowTest() : WindowTest(memory) {}
  MemoryFileSystem memory;
};

TEST_F(MemoryWindowTest, UnwantedFormattingTogglesRowsAndSavesOnClose) {
  Start(2);
  bool worked = false;
  WhenModalOpens(ui, [&](DialogWindow& dialog) {
    const HWND list = dialog.Named("lstRemove");
    EXPECT_EQ(Rows(list).front(), L"Copy Of");
    TypeOver(dialog.Named("txtAdd"), L"Copy ");
    Click(dialog.Named("cmdAdd"));
    EXPECT_TRUE(RowChecked(list, 0));
    // Space on the current row's box is a click on it; the model decides.
    SelectRow(list, 1);
    PressKey(list, VK_SPACE);
    EXPECT_TRUE(RowChecked(list, 1));
    PostMessageW(dialog.hwnd(), WM_CLOSE, 0, 0);  // the close box saves as Finished does
    worked = true;
  });
  Click(Find("cmdUnwantedFormat"));
  EXPECT_TRUE(worked);
  EXPECT_THAT(world.store.GetProgramSetting("Settings", "FormattingList").AsText(),
              ::testing::StartsWith("Copy %%1|Copy Of%%1|"));
}

TEST_F(MemoryWindowTest, AdvancedReplaceAddsACheckedPairAndAcceptCloses) {
  fTessaly& form = Start(2);
  std::wstring title;
  WhenModalOpens(ui, [&](DialogWindow& dialog) {
    title = TextOf(dialog.hwnd());
    TypeOver(dialog.Named("cboBatch0"), L"old");
    TypeOver(dialog.Named("cboBatch1"), L"new");
    Click(dialog.Named("cmdAdd"));
    const HWND list = dialog.Named("lstReplace");
    EXPECT_EQ(Rows(list).size(), 1u);
    EXPECT_TRUE(RowChecked(list, 0));
    Click(dialog.Named("cmdAccept"));
  });
  // Its first row, "(Advanced)", picked in the With box by the arrow key.
  COMBOBOXINFO with{};
  with.cbSize = sizeof(with);
  GetComboBoxInfo(Find("cboBatch7"), &with);
  PressKey(with.hwndItem, VK_DOWN);
  EXPECT_EQ(title, L"Advanced Replace");
  EXPECT_EQ(ui.modalWindow(), nullptr);
  EXPECT_TRUE(IsWindowEnabled(ui.wizardWindow()->hwnd()));
  EXPECT_EQ(form.cboBatch[7].text(), "(Advanced)");
}

// Tab goes through the settings page as a person reads it: the placements
// in their order, Replace and With, the option boxes, then the buttons.
TEST_F(MemoryWindowTest, TabWalksTheSettingsPageInReadingOrder) {
  Start(2);
  const HWND wizard = ui.wizardWindow()->hwnd();
  std::vector<HWND> stops;
  for (HWND at = Find("cboBatch0"); at != nullptr && stops.size() < 100; at = GetNextDlgTabItem(wizard, at, FALSE)) {
    if (!stops.empty() && at == stops.front()) break;
    stops.push_back(at);
  }
  std::vector<std::ptrdiff_t> places;
  for (const char* name : {"cboBatch0", "cboBatch1", "cboBatch2", "cboBatch3", "cboBatch4", "cboBatch5",
                           "cboBatch6", "cboBatch7", "chkShortExtension", "chkUpperCase", "chkRealFiles",
                           "txtExample", "cmdBack", "cmdNext", "cmdCancel"}) {
    places.push_back(std::find(stops.begin(), stops.end(), Find(name)) - stops.begin());
  }
  // Each one reached, each after the one before.
  EXPECT_EQ(std::adjacent_find(places.begin(), places.end(), std::greater_equal<>()), places.end());
  EXPECT_LT(places.back(), static_cast<std::ptrdiff_t>(stops.size()));
}

// The preview loop's progress window shows the model's bar and percentage
// without holding the wizard: Cancel there ends the program at once.
TEST_F(MemoryWindowTest, ProgressShowsTheBarAndCancelEndsTheLoopAtOnce) {
  bool ended = false;
  int runsAfterCancel = 0;
  ui.onPendingEvents = [&] {
    ProgressWindow* progress = ui.progressWindow();
    if (ended) {
      ++runsAfterCancel;
    } else if (progress != nullptr && TextOf(progress->Named("lCaption")) == L"25%") {
      const HWND bar = progress->Named("lTotal");
      const auto range = SendMessageW(bar, PBM_GETRANGE, FALSE, 0);
      EXPECT_NEAR(SendMessageW(bar, PBM_GETPOS, 0, 0) * 4, range, 4);
      EXPECT_TRUE(IsWindowEnabled(ui.wizardWindow()->hwnd()));
      Click(Find("cmdCancel"));
    }
  };
  fTessaly& wizard = Start();
  const Connection ending = wizard.programEnded.Connect([&ended] { ended = true; });
  DropData drop;
  for (int i = 0; i < 8; ++i) drop.files.push_back("c:\\p\\" + std::to_string(i) + ".jpg");
  wizard.AddDroppedFiles(drop);
  Click(Find("lblStep3"));
  EXPECT_TRUE(ended);
  EXPECT_EQ(runsAfterCancel, 0);  // no further file was looked at
  EXPECT_EQ(ui.progressWindow(), nullptr);
  EXPECT_EQ(ui.wizardWindow(), nullptr);  // the window went with its form
}

// The view counts UTF-16 units, the model characters. A run coloured after
// its text was drawn lands on its own characters all the same.
TEST(TextViewTest, RunsColouredLaterLandOnTheirCharacters) {
  HostWindow host(L"log", WS_OVERLAPPEDWINDOW, nullptr);
  RichTextBox box;
  const HWND view = NewTextView(host, host.hwnd(), box);
  SetWindowPos(view, nullptr, 0, 0, 400, 200, SWP_NOZORDER);
  box.SetSelText("a\xF0\x9F\x98\x80\xF0\x9F\x98\x80\r\nb target rest");
  Settle();
  box.SetSelStart(7);  // "target"
  box.SetSelLength(6);
  box.SetSelColor({0, 0, 255});
  Settle();
  EXPECT_EQ(ViewText(view), L"a\U0001F600\U0001F600\r\nb target rest");
  EXPECT_EQ(ColourOf(view, L"target"), RGB(0, 0, 255));
  EXPECT_EQ(ColourOf(view, L" rest"), RGB(0, 0, 0));
  SendMessageW(view, EM_SETSEL, 3, 10);
  SendMessageW(view, WM_COPY, 0, 0);
  ASSERT_TRUE(OpenClipboard(nullptr));
  HANDLE copied = GetClipboardData(CF_UNICODETEXT);
  EXPECT_STREQ(static_cast<const wchar_t*>(GlobalLock(copied)), L"\U0001F600\r\nb t");
  GlobalUnlock(copied);
  CloseClipboard();
}

// Lines wrap at the view's width unless the box has a right margin; as
// lines come, the box's insertion point stays in sight.
TEST(TextViewTest, WrapsWithoutMarginAndFollowsTheInsertionPoint) {
  struct Case {
    long margin;
    bool wraps;
  };
  for (const Case& c : {Case{0, true}, Case{4000, false}}) {
    HostWindow host(L"log", WS_OVERLAPPEDWINDOW, nullptr);
    RichTextBox box;
    const HWND view = NewTextView(host, host.hwnd(), box);
    SetWindowPos(view, nullptr, 0, 0, 200, 120, SWP_NOZORDER);
    box.SetRightMargin(c.margin);
    const std::string longLine(30, 'x');
    box.SetSelText(longLine + " " + longLine + " " + longLine);
    Settle();
    const auto last = static_cast<DWORD>(SendMessageW(view, EM_POSFROMCHAR, 3 * 31 - 2, 0));
    EXPECT_EQ(HIWORD(last) > 0, c.wraps) << c.margin;
    for (int line = 0; line < 300; ++line) box.SetSelText("\r\nline " + std::to_string(line));
    Settle();
    const std::wstring text = ViewText(view);
    const auto end = static_cast<DWORD>(SendMessageW(view, EM_POSFROMCHAR, text.size() - 3, 0));
    RECT client;
    GetClientRect(view, &client);
    EXPECT_LT(static_cast<short>(HIWORD(end)), client.bottom) << c.margin;
    EXPECT_GE(static_cast<short>(HIWORD(end)), 0) << c.margin;
    EXPECT_EQ(SendMessageW(view, EM_GETLINECOUNT, 0, 0), 301) << c.margin;
  }
}

// The program file states the version the product record writes.
TEST(ProgramFileTest, VersionResourceIsTheProgramsVersion) {
  const std::wstring exe = TESSALY_EXE;
  DWORD ignored = 0;
  std::vector<char> data(GetFileVersionInfoSizeW(exe.c_str(), &ignored));
  ASSERT_FALSE(data.empty());
  ASSERT_TRUE(GetFileVersionInfoW(exe.c_str(), 0, static_cast<DWORD>(data.size()), data.data()));
  VS_FIXEDFILEINFO* info = nullptr;
  UINT size = 0;
  ASSERT_TRUE(VerQueryValueW(data.data(), L"\\", reinterpret_cast<void**>(&info), &size));
  EXPECT_EQ(HIWORD(info->dwFileVersionMS), kProgramVersion.major);
  EXPECT_EQ(LOWORD(info->dwFileVersionMS), kProgramVersion.minor);
  EXPECT_EQ(HIWORD(info->dwFileVersionLS), kProgramVersion.revision);
}

}  // namespace
}  // namespace tessaly::win32::testing

int main(int argc, char** argv) {
  INITCOMMONCONTROLSEX controls{sizeof(controls), ICC_WIN95_CLASSES | ICC_STANDARD_CLASSES};
  InitCommonControlsEx(&controls);
  ::testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
