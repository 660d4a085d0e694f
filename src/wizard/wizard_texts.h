#ifndef TESSALY_WIZARD_WIZARD_TEXTS_H_
#define TESSALY_WIZARD_WIZARD_TEXTS_H_

#include <array>
#include <string>
#include <string_view>

namespace tessaly {

// A line end in every text the wizard builds.
inline constexpr std::string_view kLineEnd = "\r\n";

inline constexpr std::array<std::string_view, 5> kStepLabels = {
    "Welcome", "1. File Selection", "2. Rename Settings", "3. Review Settings",
    "4. Renaming Complete"};

// The heading of each page; step 3 has a second one above the preview.
inline constexpr std::array<std::string_view, 5> kStepHeadings = {
    " Welcome to Tessaly", " File Selection", " Rename Settings", " Finalize Settings",
    " Tessaly Complete - Review Change Log"};
inline constexpr std::string_view kPreviewHeading = " Review Name Conversion Settings";

inline constexpr std::string_view kNextCaption = "Next >";
inline constexpr std::string_view kFinishCaption = "Finish >";

inline std::string WelcomeText(std::string_view title) {
  std::string text = "Welcome to the ";
  text += title;
  text += " wizard.  This wizard will guide you through the process of renaming your files.";
  text += kLineEnd;
  text += kLineEnd;
  return text + "Click next to begin.";
}

inline const std::string kInstructionText =
    std::string("You can import files the following ways:") + std::string(kLineEnd) +
    "   1. Select a file, directory, or multiple files." + std::string(kLineEnd) +
    "   2. Drag and drop files onto this window." + std::string(kLineEnd);

inline constexpr std::string_view kIncludePathInfo =
    "You currently have selected to include the path with name conversion. The path of file "
    "(directory) will be determined by the conversion setting.  If you do not want the path "
    "(directory) of the files to be changed please uncheck 'Include Path' from the previous "
    "screen.";

// Captions of the progress window for the two loops.
inline constexpr std::string_view kPreviewProgressCaption = "Generating Renamed Files Preview...";
inline constexpr std::string_view kRunProgressCaption = "Renaming and Moving Files...";

// What a front-end says when the list could not take every path it was
// given.
inline std::string ListFullText(int refused) {
  return std::to_string(refused) + (refused == 1 ? " path was" : " paths were") +
         " not added: the file list holds at most 32,767 files.";
}

}  // namespace tessaly

#endif  // TESSALY_WIZARD_WIZARD_TEXTS_H_
