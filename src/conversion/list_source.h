#ifndef TESSALY_CONVERSION_LIST_SOURCE_H_
#define TESSALY_CONVERSION_LIST_SOURCE_H_

#include <vector>

#include "conversion/conversion_options.h"

namespace tessaly {

// Where the conversion reads its two stored lists, anew for each name that
// needs one, so that a row saved by a dialog counts from the next name on.
class ListSource {
 public:
  virtual ~ListSource() = default;
  virtual std::vector<ReplaceEntry> LoadReplaceList() = 0;
  virtual std::vector<FormattingEntry> LoadFormattingList() = 0;
};

}  // namespace tessaly

#endif  // TESSALY_CONVERSION_LIST_SOURCE_H_
