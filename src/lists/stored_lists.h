#ifndef TESSALY_LISTS_STORED_LISTS_H_
#define TESSALY_LISTS_STORED_LISTS_H_

#include <optional>
#include <string>
#include <vector>

#include "conversion/list_source.h"
#include "platform/ui.h"
#include "settings/settings_store.h"

namespace tessaly {

// The conversion's lists as the dialogs keep them: for each call the form
// is loaded without being shown (which reads the store), its rows are
// taken, and it is unloaded (which writes the canonical text back).
//
// A pass reads the same lists thousands of times. When the stored text is
// the one the last load read and its unload wrote back unchanged, loading
// and unloading again would give the same rows and write the same text, so
// the rows of that load are handed out again after one read of the store.
class StoredLists : public ListSource {
 public:
  StoredLists(SettingsStore& store, Ui& ui) : store_(store), ui_(ui) {}

  void LoadReplaceList(std::vector<ReplaceEntry>& rows) override;
  void LoadFormattingList(std::vector<FormattingEntry>& rows) override;

 private:
  template <typename Row>
  struct Remembered {
    std::string stored;
    std::vector<Row> rows;
  };

  template <typename Dialog, typename Row>
  void Load(std::string_view valueName, std::optional<Remembered<Row>>& remembered,
            std::vector<Row>& rows);

  SettingsStore& store_;
  Ui& ui_;
  std::optional<Remembered<ReplaceEntry>> replace_;
  std::optional<Remembered<FormattingEntry>> formatting_;
};

}  // namespace tessaly

#endif  // TESSALY_LISTS_STORED_LISTS_H_
