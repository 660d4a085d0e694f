#include "conversion/name_converter.h"

#include <limits>

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
  std::string work = WithTrailingBackslash(FolderPart(sourcePath));
  std::string sourceCopy(sourcePath);
  if (Ticked(options.chkRemoveNumbers)) RemoveBracketNumbers(sourceCopy);

  ApplyPlacements(options, sourceCopy, work);
  ApplyReplace(options, work);
  ApplyUnwantedFormatting(options, work);
  if (Ticked(options.chkLongExtension)) work = FixExtension(work, false);
  if (Ticked(options.chkShortExtension)) work = FixExtension(work, true);
  ApplyDestination(options, work);

  const std::string extension(FileExtensionOf(work));
  if (Ticked(options.chkExtra)) KeepLastPeriodOnly(work, extension);
  ApplySpacingStages(options, work);
  ApplyCaseStages(options, work);
  if (Ticked(options.chkFixSpacing)) work = FixSpacing(work);

  options.pFolderPathVisible = Ticked(options.chkIncludePaths);
  return work;
}

void NameConverter::ApplyPlacements(const ConversionOptions& options,
                                    std::string_view sourceCopy, std::string& work) const {
  for (std::size_t i = 0; i < 6; ++i) {
    work += ResolvePlacement(options.cboBatch[i], sourceCopy, options, services_.clock,
                             services_.locale);
  }
}

void NameConverter::ApplyReplace(ConversionOptions& options, std::string& work) const {
  if (options.cboBatch[6] != "(Advanced)") {
    const std::string find = ResolvePlacement(options.cboBatch[6], work, options,
                                              services_.clock, services_.locale);
    const std::string with = ResolvePlacement(options.cboBatch[7], work, options,
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

void NameConverter::ApplyDestination(const ConversionOptions& options, std::string& work) const {
  const bool newFolder =
      options.optMoveNewFolder && DirectoryExists(options.lFolder, services_.fileSystem);
  std::string path = WithTrailingBackslash(newFolder ? std::string_view(options.lFolder)
                                                     : FolderPart(work));
  path.append(NamePart(work));
  work = std::move(path);
}

}  // namespace tessaly
