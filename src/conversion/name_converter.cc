#include "conversion/name_converter.h"

#include <limits>
#include <utility>

#include "conversion/numbered_replace.h"
#include "conversion/path_routines.h"
#include "conversion/placement.h"
#include "conversion/text_rules.h"
#include "text/case_mapping.h"
#include "text/text_ops.h"

namespace tessaly {

namespace {

bool Ticked(CheckState state) { return state == kChecked; }

// The counter saturates rather than overflowing.
void CountName(ConversionOptions& options) {
  if (options.serial < std::numeric_limits<std::int32_t>::max()) ++options.serial;
}

// Leaves exactly one period in the path: the one before `extension`.
void KeepLastPeriodOnly(std::string& work, std::string_view extension) {
  work.resize(work.size() - extension.size());
  std::erase(work, '.');
  work.push_back('.');
  work.append(extension);
}

void ApplySpacingStages(const ConversionOptions& options, std::string& work) {
  if (Ticked(options.chkRemoveu)) text::ReplaceAllIn(work, "_", " ");
  if (Ticked(options.chkRemoveDoubleSpace)) {
    text::ReplaceAllIn(work, "    ", " ");
    text::ReplaceAllIn(work, "  ", " ");
    text::ReplaceAllIn(work, "  ", " ");
  }
  if (options.chkAllowSpaces == kUnchecked) text::ReplaceAllIn(work, " ", "_");
}

void ApplyCaseStages(const ConversionOptions& options, std::string& work) {
  if (Ticked(options.chkCapitalize)) work = CapitalizeWords(work);
  if (Ticked(options.chkUpperCase)) work = text::UpperCase(work);
  if (Ticked(options.chkLowercase)) work = text::LowerCase(work);
}

}  // namespace

std::string NameConverter::ConvertName(ConversionOptions& options,
                                       std::string_view sourcePath) const {
  CountName(options);
  // With "Include Path" clear the folder a path starts with is left alone:
  // it stands in `folder`, and the stages act on `work`, what follows it.
  // Ticked, `folder` is empty and the stages act on the whole path.
  const bool includePath = Ticked(options.chkIncludePaths);
  std::string folder = WithTrailingBackslash(FolderPart(sourcePath));
  std::string work;
  if (includePath) std::swap(folder, work);
  std::string sourceCopy(sourcePath);
  if (Ticked(options.chkRemoveNumbers)) RemoveBracketNumbers(sourceCopy);

  ApplyPlacements(options, sourceCopy, work);
  ApplyReplace(options, folder, work);
  ApplyUnwantedFormatting(options, work);
  if (Ticked(options.chkLongExtension)) work = FixExtension(work, false);
  if (Ticked(options.chkShortExtension)) work = FixExtension(work, true);
  ApplyDestination(options, folder, work);

  const std::string extension(FileExtensionOf(work));
  if (Ticked(options.chkExtra)) KeepLastPeriodOnly(work, extension);
  ApplySpacingStages(options, work);
  ApplyCaseStages(options, work);
  if (Ticked(options.chkFixSpacing)) {
    work = folder.empty() ? FixSpacing(work) : FixSpacingBehindFolder(work);
  }

  options.pFolderPathVisible = includePath;
  return folder + work;
}

void NameConverter::ApplyPlacements(const ConversionOptions& options,
                                    std::string_view sourceCopy, std::string& work) const {
  for (std::size_t i = 0; i < 6; ++i) {
    // An empty placement gives nothing; most of the six are empty.
    if (options.cboBatch[i].empty()) continue;
    work += ResolvePlacement(options.cboBatch[i], sourceCopy, options, services_.clock,
                             services_.locale);
  }
}

void NameConverter::ApplyReplace(ConversionOptions& options, std::string_view folder,
                                 std::string& work) const {
  if (options.cboBatch[6] != "(Advanced)") {
    // An empty find text finds nothing.
    if (options.cboBatch[6].empty()) return;
    // The tokens read the whole path, as it stands now.
    const std::string whole = std::string(folder) + work;
    const std::string find = ResolvePlacement(options.cboBatch[6], whole, options,
                                              services_.clock, services_.locale);
    const std::string with = ResolvePlacement(options.cboBatch[7], whole, options,
                                              services_.clock, services_.locale);
    text::ReplaceAllIn(work, find, with);
    return;
  }
  if (services_.lists) services_.lists->LoadReplaceList(options.ReplaceList);
  for (const ReplaceEntry& entry : options.ReplaceList) {
    if (entry.checked) ApplyListEntry(work, entry.find, entry.replacement);
  }
}

void NameConverter::ApplyUnwantedFormatting(ConversionOptions& options,
                                            std::string& work) const {
  if (!Ticked(options.chkFormatting)) return;
  if (services_.lists) services_.lists->LoadFormattingList(options.FormattingList);
  for (const FormattingEntry& entry : options.FormattingList) {
    if (entry.checked) ApplyListEntry(work, entry.text, "");
  }
}

void NameConverter::ApplyDestination(const ConversionOptions& options, std::string& folder,
                                     std::string& work) const {
  const bool newFolder =
      options.optMoveNewFolder && DirectoryExists(options.lFolder, services_.fileSystem);
  if (!newFolder) {
    // The path keeps its own folder part; only a path without one gains
    // the closing backslash of an empty folder.
    if (folder.empty() && work.find('\\') == std::string::npos) work.insert(0, 1, '\\');
    return;
  }
  const std::string whole = folder + work;
  std::string path = WithTrailingBackslash(options.lFolder);
  path.append(NamePart(whole));
  // A shielded folder is the chosen destination from here on; what a
  // placement put behind it remains open to the stages.
  if (!folder.empty()) folder = WithTrailingBackslash(options.lFolder);
  work = path.substr(folder.size());
}

}  // namespace tessaly
