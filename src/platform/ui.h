#ifndef TESSALY_PLATFORM_UI_H_
#define TESSALY_PLATFORM_UI_H_

#include <cstdint>
#include <string>
#include <string_view>

namespace tessaly {

class Form;

enum class MessageButtons { kOk, kYesNoCancel };
enum class MessageAnswer { kOk, kYes, kNo, kCancel };

// What the open-file dialog is given.
struct OpenFileRequest {
  std::string filter;  // description and pattern pairs, separated by "|"
  std::string defaultExtension;
  std::string initialDirectory;
  std::uint32_t flags = 0;  // the desktop platform's open-dialog flags
  friend bool operator==(const OpenFileRequest&, const OpenFileRequest&) = default;
};

// The open-file dialog's answer as the desktop platform gives it, before
// any reading of it: the caller takes it apart.
struct OpenFileAnswer {
  // False if the person cancelled, or if the choice did not fit the buffer.
  bool accepted = false;
  // The file buffer of 257 characters as the dialog left it: it starts as
  // 255 blanks and two zero characters. One file: its full path and a zero
  // character. Several: the folder, a zero character, each name followed
  // by a zero character, and one more zero character.
  std::string buffer;
  // Where the extension of a single file begins (the end of its path if it
  // has none); 0 when several files were chosen.
  std::uint16_t extensionOffset = 0;
};

// What the core asks of the person in front of the program. Each front-end
// implements it; tests use a scripted one.
class Ui {
 public:
  virtual ~Ui() = default;

  // Shows `text` with the given buttons and title and waits for the answer.
  virtual MessageAnswer MessageBox(std::string_view text, MessageButtons buttons,
                                   std::string_view title) = 0;

  // Shows a loaded form of the core (a dialog such as fReplaceAdvanced)
  // modally and returns when it is closed; the caller unloads it.
  virtual void ShowModal(Form& dialog) = 0;

  // Shows a loaded form without waiting (the wizard, the progress window).
  // The view goes when the form is unloaded.
  virtual void Show(Form& form) = 0;

  // Lets the person pick a folder, opening on `startFolder` unless it is
  // empty. The chosen folder's model path, or the empty text if cancelled.
  virtual std::string BrowseForFolder(std::string_view title, std::string_view startFolder) = 0;

  // Shows the open-file dialog and returns its raw answer.
  virtual OpenFileAnswer ShowOpenFileDialog(const OpenFileRequest& request) = 0;

  // Lets the window events that are waiting run once, inside a long loop.
  virtual void LetPendingEventsRun() = 0;
};

}  // namespace tessaly

#endif  // TESSALY_PLATFORM_UI_H_
