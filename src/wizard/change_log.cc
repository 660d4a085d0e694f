#include "wizard/change_log.h"

#include <cstdio>

#include "conversion/path_routines.h"
#include "text/utf8.h"
#include "wizard/wizard_texts.h"

namespace tessaly {

namespace {

constexpr Rgb kBlue{0, 0, 255};
constexpr Rgb kRed{255, 0, 0};
constexpr Rgb kBlack{0, 0, 0};

// At least two digits, zero-filled; written out by hand, since every line
// of a long log needs three of them.
std::string TwoDigits(int value) {
  if (value < 0 || value > 99) {
    char digits[12];
    std::snprintf(digits, sizeof digits, "%02d", value);
    return digits;
  }
  return {static_cast<char>('0' + value / 10), static_cast<char>('0' + value % 10)};
}

// The first `count` characters of `text`, or all of it.
std::string_view FirstChars(std::string_view text, std::size_t count) {
  std::size_t bytes = 0;
  for (std::size_t i = 0; i < count && bytes < text.size(); ++i) {
    bytes += text::DecodeAt(text, bytes).length;
  }
  return text.substr(0, bytes);
}

std::string SummaryLine(std::int32_t count, std::string_view words) {
  return std::string(kLineEnd) + std::to_string(count) + std::string(words);
}

}  // namespace

std::string_view OutcomeText(Outcome outcome) {
  switch (outcome) {
    case Outcome::kCompleted:
      return "(Completed)";
    case Outcome::kErrorRemovingOriginal:
      return "(Completed - Error Removing Original File)";
    case Outcome::kErrorRemovingTemp:
      return "(Completed - Error Removing Temp File)";
    case Outcome::kNoChange:
      return "(No Change}";
    case Outcome::kFailedExists:
      return "(Failed! - File Already Exists)";
    case Outcome::kFailedRenaming:
      return "(Failed! - Error Renaming File)";
  }
  return "";
}

Rgb OutcomeColour(Outcome outcome) {
  switch (outcome) {
    case Outcome::kCompleted:
      return kBlue;
    case Outcome::kErrorRemovingOriginal:
    case Outcome::kFailedExists:
    case Outcome::kFailedRenaming:
      return kRed;
    case Outcome::kErrorRemovingTemp:
    case Outcome::kNoChange:
      return kBlack;
  }
  return kBlack;
}

void RunCounters::Count(Outcome outcome) {
  switch (outcome) {
    case Outcome::kCompleted:
      ++RenamedCount;
      break;
    case Outcome::kErrorRemovingOriginal:
    case Outcome::kErrorRemovingTemp:
      ++ErrorCount;
      break;
    case Outcome::kNoChange:
      ++UnchangedCount;
      break;
    case Outcome::kFailedExists:
    case Outcome::kFailedRenaming:
      ++FailedCount;
      break;
  }
}

std::string LogDate(const CivilDate& date, const Locale& locale) {
  const std::string separator = locale.DateSeparator();
  return TwoDigits(date.month) + separator + TwoDigits(date.day) + separator +
         std::to_string(date.year);
}

std::string LogTime(const CivilDateTime& now, const Locale& locale) {
  const std::string separator = locale.TimeSeparator();
  return TwoDigits(now.hour) + separator + TwoDigits(now.minute) + separator +
         TwoDigits(now.second);
}

void ChangeLog::WriteHead(std::size_t fileCount, long boxWidth) {
  box_.SetRightMargin(boxWidth * 4);
  const CivilDateTime now = clock_.Now();
  std::string head = words_.started + LogDate(now.date, locale_) + " - " + LogTime(now, locale_) +
                     std::string(kLineEnd);
  head += kLineEnd;
  head += std::to_string(fileCount) + words_.fileCount + std::string(kLineEnd);
  head += kLineEnd;
  head += words_.heading + std::string(kLineEnd);
  box_.SetText(std::move(head));
  // Room for the lines of a usual log, each in its colour; room not
  // written to costs no memory.
  constexpr std::size_t kLineBytes = 160;
  box_.Reserve(box_.text().size() + fileCount * kLineBytes, box_.spans().size() + fileCount);
  box_.SetSelStart(box_.Length());
}

void ChangeLog::AppendFolderPiece(std::string_view path) {
  // Shortened first, then shown: the shortening counts the path's own characters.
  piece_.assign(FirstChars(FolderPart(path), 6));
  piece_ += "...\\";
  piece_ += NamePart(path);
  paths_.AppendShown(piece_, line_);
}

const std::string& ChangeLog::TimeText() {
  // Lines come many to a second: the text is made once a second.
  const CivilDateTime now = clock_.Now();
  if (timeText_.empty() || now != timeOfText_) {
    timeText_ = LogTime(now, locale_);
    timeOfText_ = now;
  }
  return timeText_;
}

void ChangeLog::WriteLine(std::string_view oldPath, std::string_view newPath,
                          std::string_view outcome, Rgb colour) {
  const std::size_t start = box_.selStart();
  line_.assign(TimeText());
  line_ += " - ";
  AppendFolderPiece(oldPath);
  line_ += " > ";
  AppendFolderPiece(newPath);
  line_ += ' ';
  line_ += outcome;
  line_ += kLineEnd;
  box_.SetSelText(line_);
  const std::size_t end = box_.selStart();
  box_.SetSelStart(start);
  box_.SetSelLength(end - start);
  box_.SetSelColor(colour);
  box_.SetSelLength(0);
  box_.SetSelStart(end);
}

void ChangeLog::WriteFoot(const RunCounters& counters) {
  WriteFoot({{counters.RenamedCount, " files where renamed successfully."},
             {counters.ErrorCount, " files where renamed but with errors."},
             {counters.UnchangedCount, " files remain unchanged."},
             {counters.FailedCount, " files failed to be renamed."}});
}

void ChangeLog::WriteFoot(std::initializer_list<SummaryCount> summary) {
  std::string foot(kLineEnd);
  for (const SummaryCount& line : summary) {
    if (line.count > 0) foot += SummaryLine(line.count, line.words);
  }
  box_.SetSelText(foot);
  const CivilDateTime now = clock_.Now();
  box_.SetSelText(std::string(kLineEnd) + std::string(kLineEnd) + words_.completed +
                  LogDate(now.date, locale_) + " - " + LogTime(now, locale_));
}

}  // namespace tessaly
