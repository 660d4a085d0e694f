#ifndef TESSALY_JOURNAL_JOURNAL_RECORDS_H_
#define TESSALY_JOURNAL_JOURNAL_RECORDS_H_

#include <string_view>

// The words of a journal, shared by its writer and its reader. A journal
// is a head line and then records, one a line (see journal_line.h):
//   tessaly-journal 1 run TIME              or  ... undo TIME RUN
//   move FILE FROM TO VERSION               before a file is moved
//   delete FILE PATH VERSION                before a file is deleted
//   done [VERSION] | failed                 the result of the record above
//   end                                     the run went to its end
// FILE is the number of the run's file the change serves; VERSION is five
// numbers: device, node, size, modified, changed. A move's result holds
// the version of the entry under its new name.
namespace tessaly::journal {

inline constexpr std::string_view kMagic = "tessaly-journal";
inline constexpr std::string_view kFormat = "1";
inline constexpr std::string_view kRun = "run";
inline constexpr std::string_view kUndo = "undo";
inline constexpr std::string_view kMove = "move";
inline constexpr std::string_view kDelete = "delete";
inline constexpr std::string_view kDone = "done";
inline constexpr std::string_view kFailed = "failed";
inline constexpr std::string_view kEnd = "end";

}  // namespace tessaly::journal

#endif  // TESSALY_JOURNAL_JOURNAL_RECORDS_H_
