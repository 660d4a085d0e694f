#ifndef TESSALY_CONVERSION_LIST_SOURCE_H_
#define TESSALY_CONVERSION_LIST_SOURCE_H_

#include <vector>

#include "conversion/conversion_options.h"

namespace tessaly {

// Where the conversion reads its two stored lists, anew for each name that
// needs one, so that a row saved by a dialog counts from the next name on.
// Each call replaces the contents of `rows` (reusing its storage).
class ListSource {
 public:
  virtual ~ListSource() = default;
  virtual void LoadReplaceList(std::vector<ReplaceEntry>& rows) = 0;
  virtual void LoadFormattingList(std::vector<FormattingEntry>& rows) = 0;
};

}  // namespace tessaly

#endif  // TESSALY_CONVERSION_LIST_SOURCE_H_
