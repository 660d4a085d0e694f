#include "file_dialogs.h"

#include <commdlg.h>
#include <shlobj.h>

#include <vector>

#include "platform/open_file_answer.h"
#include "platform/win32/utf16.h"

namespace tessaly::win32 {

std::wstring FilterPairs(std::string_view filter) {
  std::wstring pairs = Widen(filter);
  if (!pairs.empty() && pairs.back() == L'|') pairs.pop_back();
  for (wchar_t& c : pairs) {
    if (c == L'|') c = L'\0';
  }
  pairs.push_back(L'\0');
  return pairs;  // the closing zero of the string is the last one
}

OpenFileAnswer ShapeAnswer(std::wstring_view buffer) {
  std::vector<std::string> texts;
  for (std::size_t at = 0; at < buffer.size() && buffer[at] != L'\0';) {
    const std::size_t end = std::min(buffer.find(L'\0', at), buffer.size());
    texts.push_back(Narrow(buffer.substr(at, end - at)));
    at = end + 1;
  }
  if (texts.empty()) return {};
  if (texts.size() == 1) return SingleFileAnswer(texts.front());
  const std::vector<std::string> names(texts.begin() + 1, texts.end());
  return MultipleFilesAnswer(texts.front(), names);
}

OpenFileAnswer AskForFiles(HWND owner, const OpenFileRequest& request) {
  std::vector<wchar_t> buffer(32768, L'\0');
  const std::wstring filter = FilterPairs(request.filter);
  const std::wstring folder = Widen(request.initialDirectory);
  const std::wstring extension = Widen(request.defaultExtension);
  OPENFILENAMEW dialog{};
  dialog.lStructSize = sizeof(dialog);
  dialog.hwndOwner = owner;
  dialog.lpstrFilter = filter.c_str();
  dialog.nFilterIndex = 1;
  dialog.lpstrFile = buffer.data();
  dialog.nMaxFile = static_cast<DWORD>(buffer.size());
  dialog.lpstrInitialDir = folder.empty() ? nullptr : folder.c_str();
  dialog.lpstrDefExt = extension.empty() ? nullptr : extension.c_str();
  // Names apart by zero characters, as the core reads several.
  dialog.Flags = request.flags | OFN_EXPLORER;
  if (!GetOpenFileNameW(&dialog)) return {};
  return ShapeAnswer(std::wstring_view(buffer.data(), buffer.size()));
}

namespace {

int CALLBACK OpenOnStart(HWND browser, UINT message, LPARAM, LPARAM start) {
  if (message == BFFM_INITIALIZED && start != 0) SendMessageW(browser, BFFM_SETSELECTIONW, TRUE, start);
  return 0;
}

}  // namespace

std::string AskForFolder(HWND owner, std::string_view title, std::string_view startFolder) {
  const std::wstring caption = Widen(title);
  const std::wstring start = Widen(startFolder);
  BROWSEINFOW browse{};
  browse.hwndOwner = owner;
  browse.lpszTitle = caption.c_str();
  browse.ulFlags = BIF_RETURNONLYFSDIRS | BIF_NEWDIALOGSTYLE;
  browse.lpfn = &OpenOnStart;
  browse.lParam = start.empty() ? 0 : reinterpret_cast<LPARAM>(start.c_str());
  PIDLIST_ABSOLUTE chosen = SHBrowseForFolderW(&browse);
  if (chosen == nullptr) return {};
  std::vector<wchar_t> path(32768, L'\0');
  const bool found = SHGetPathFromIDListEx(chosen, path.data(), static_cast<DWORD>(path.size()), GPFIDL_DEFAULT);
  CoTaskMemFree(chosen);
  return found ? Narrow(path.data()) : std::string();
}

}  // namespace tessaly::win32
