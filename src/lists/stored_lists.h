#ifndef TESSALY_LISTS_STORED_LISTS_H_
#define TESSALY_LISTS_STORED_LISTS_H_

#include "conversion/list_source.h"
#include "platform/ui.h"
#include "settings/settings_store.h"

namespace tessaly {

// The conversion's lists as the dialogs keep them: for each call the form
// is loaded without being shown (which reads the store), its rows are
// taken, and it is unloaded (which writes the canonical text back).
class StoredLists : public ListSource {
 public:
  StoredLists(SettingsStore& store, Ui& ui) : store_(store), ui_(ui) {}

  std::vector<ReplaceEntry> LoadReplaceList() override;
  std::vector<FormattingEntry> LoadFormattingList() override;

 private:
  SettingsStore& store_;
  Ui& ui_;
};

}  // namespace tessaly

#endif  // TESSALY_LISTS_STORED_LISTS_H_
