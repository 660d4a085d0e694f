#ifndef TESSALY_FILES_DROP_DATA_H_
#define TESSALY_FILES_DROP_DATA_H_

#include <string>
#include <vector>

namespace tessaly {

// What a drag brings onto the file page: the full paths of the dropped
// files and folders, in model form. A drop of plain text carries no file
// list at all.
struct DropData {
  bool hasFiles = true;
  std::vector<std::string> files;
};

}  // namespace tessaly

#endif  // TESSALY_FILES_DROP_DATA_H_
