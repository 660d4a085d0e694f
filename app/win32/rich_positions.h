#ifndef TESSALY_APP_WIN32_RICH_POSITIONS_H_
#define TESSALY_APP_WIN32_RICH_POSITIONS_H_

#include <algorithm>
#include <cstddef>
#include <vector>

namespace tessaly::win32 {

// Between the model's character positions and RichEdit's: the model counts
// characters and a CR LF pair as two, RichEdit counts UTF-16 units and a
// line break as one. Marks are made in order, as the text is written.
class RichPositions {
 public:
  void Clear() {
    leftOut_.clear();
    doubled_.clear();
  }
  // A model character RichEdit does not count (the LF of a CR LF pair).
  void LeaveOut(std::size_t position) { leftOut_.push_back(position); }
  // A model character RichEdit counts twice (one beyond the BMP).
  void CountTwice(std::size_t position) { doubled_.push_back(position); }

  // RichEdit's position of the model's `position`.
  long At(std::size_t position) const {
    return static_cast<long>(position) - Before(leftOut_, position) + Before(doubled_, position);
  }

 private:
  static long Before(const std::vector<std::size_t>& marks, std::size_t position) {
    return static_cast<long>(std::lower_bound(marks.begin(), marks.end(), position) - marks.begin());
  }

  std::vector<std::size_t> leftOut_;
  std::vector<std::size_t> doubled_;
};

}  // namespace tessaly::win32

#endif  // TESSALY_APP_WIN32_RICH_POSITIONS_H_
