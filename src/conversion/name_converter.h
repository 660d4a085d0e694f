#ifndef TESSALY_CONVERSION_NAME_CONVERTER_H_
#define TESSALY_CONVERSION_NAME_CONVERTER_H_

#include <string>
#include <string_view>

#include "conversion/conversion_options.h"
#include "conversion/list_source.h"
#include "platform/clock.h"
#include "platform/file_system.h"
#include "platform/locale.h"

namespace tessaly {

// What a conversion needs of the world: today's date and the names of its
// month and weekday, the folder test for a destination folder, and the
// stored lists. Without a list source the lists in the options record are
// used as they stand.
struct ConversionServices {
  const Clock& clock;
  const Locale& locale;
  FileSystem& fileSystem;
  ListSource* lists = nullptr;
};

class NameConverter {
 public:
  explicit NameConverter(ConversionServices services) : services_(services) {}

  // The full path that the file at `sourcePath` is to have. Unless
  // chkIncludePaths is ticked, the folder the path starts with (the
  // source's, or the destination folder) comes out byte for byte as it went
  // in. Raises options.serial by one and sets options.pFolderPathVisible;
  // changes nothing else. Every input gives some output.
  std::string ConvertName(ConversionOptions& options, std::string_view sourcePath) const;

 private:
  void ApplyPlacements(const ConversionOptions& options, std::string_view sourceCopy,
                       std::string& work) const;
  void ApplyReplace(ConversionOptions& options, std::string_view folder, std::string& work) const;
  void ApplyUnwantedFormatting(ConversionOptions& options, std::string& work) const;
  void ApplyDestination(const ConversionOptions& options, std::string& folder,
                        std::string& work) const;

  ConversionServices services_;
};

}  // namespace tessaly

#endif  // TESSALY_CONVERSION_NAME_CONVERTER_H_
