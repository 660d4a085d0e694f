#ifndef TESSALY_WIZARD_CHANGE_LOG_H_
#define TESSALY_WIZARD_CHANGE_LOG_H_

#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>

#include "controls/rich_text_box.h"
#include "platform/clock.h"
#include "platform/file_system.h"
#include "platform/locale.h"

namespace tessaly {

// What became of one file in a rename run.
enum class Outcome {
  kCompleted,
  kErrorRemovingOriginal,
  kErrorRemovingTemp,
  kNoChange,
  kFailedExists,
  kFailedRenaming,
};

// The log's word for an outcome, such as "(Completed)".
std::string_view OutcomeText(Outcome outcome);
// The colour of a file's line with that outcome.
Rgb OutcomeColour(Outcome outcome);

// The run's counters; each file adds 1 to exactly one of them.
struct RunCounters {
  std::int32_t RenamedCount = 0;
  std::int32_t ErrorCount = 0;
  std::int32_t UnchangedCount = 0;
  std::int32_t FailedCount = 0;

  void Count(Outcome outcome);
};

// "mm/dd/yyyy" and "hh:mm:ss" with the locale's separators.
std::string LogDate(const CivilDate& date, const Locale& locale);
std::string LogTime(const CivilDateTime& now, const Locale& locale);

// The width of a log box in twips, the base of its right margin.
inline constexpr long kLogBoxWidth = 7935;

// The words around a log's lines: a rename run's unless told otherwise.
struct LogWords {
  std::string started = "Renaming Started at: ";
  std::string fileCount = " total files.";
  std::string heading = "Renamed Files - Log:";
  std::string completed = "Renaming Completed at: ";
};

// One line of a log's summary: a count and the words behind it.
struct SummaryCount {
  std::int32_t count = 0;
  std::string_view words;
};

// Writes the change log of a run into a rich text box: head, one coloured
// line per file, foot. The box is only ever written at its insertion point.
class ChangeLog {
 public:
  // `paths` gives the form in which a person reads a path.
  ChangeLog(RichTextBox& box, const Clock& clock, const Locale& locale, const FileSystem& paths,
            LogWords words = {})
      : box_(box), clock_(clock), locale_(locale), paths_(paths), words_(std::move(words)) {}

  // `boxWidth` is the box's width in the form's unit; lines may run on to
  // four times that before they wrap.
  void WriteHead(std::size_t fileCount, long boxWidth);
  void WriteFileLine(std::string_view oldPath, std::string_view newPath, Outcome outcome) {
    WriteLine(oldPath, newPath, OutcomeText(outcome), OutcomeColour(outcome));
  }
  void WriteLine(std::string_view oldPath, std::string_view newPath, std::string_view outcome,
                 Rgb colour);
  void WriteFoot(const RunCounters& counters);
  // The summary's lines whose count is above 0, in order, then the time.
  void WriteFoot(std::initializer_list<SummaryCount> summary);

 private:
  // Adds the shortened folder and the name of `path`, as shown, to line_.
  void AppendFolderPiece(std::string_view path);
  // The time for a file's line, "hh:mm:ss".
  const std::string& TimeText();

  RichTextBox& box_;
  const Clock& clock_;
  const Locale& locale_;
  const FileSystem& paths_;
  LogWords words_;
  // Kept from line to line, so that a line costs no allocation.
  std::string line_;
  std::string piece_;
  std::string timeText_;
  CivilDateTime timeOfText_;
};

}  // namespace tessaly

#endif  // TESSALY_WIZARD_CHANGE_LOG_H_
