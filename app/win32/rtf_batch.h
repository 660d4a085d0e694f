#ifndef TESSALY_APP_WIN32_RTF_BATCH_H_
#define TESSALY_APP_WIN32_RTF_BATCH_H_

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "controls/rich_text_box.h"
#include "rich_positions.h"

namespace tessaly::win32 {

// Pieces of a model's text as one RTF document, for RichEdit to take in a
// single EM_STREAMIN: far cheaper than a message per run. A CR LF pair
// becomes one line break; any other character that would act as layout
// shows as a picture of itself, one character for one, so the runs'
// positions still hold. The marks RichEdit's positions need go into
// `positions` on the way.
class RtfBatch {
 public:
  // `lastWasCr` carries over from one batch to the next: a CR at the end of
  // one and an LF at the start of the next are one line break.
  RtfBatch(RichPositions& positions, bool& lastWasCr) : positions_(positions), lastWasCr_(lastWasCr) {}

  // Adds the bytes [from, to) of `text`, whose first character is the
  // model's `firstChar`, in `colour` (null: the default colour). Gives the
  // model position behind them.
  std::size_t Add(std::string_view text, std::size_t from, std::size_t to, std::size_t firstChar,
                  const Rgb* colour);
  std::string Document() const;

 private:
  void AddCode(char32_t code);
  int ColourIndex(const Rgb& colour);

  RichPositions& positions_;
  bool& lastWasCr_;
  std::vector<Rgb> colours_;
  std::string body_;
};

}  // namespace tessaly::win32

#endif  // TESSALY_APP_WIN32_RTF_BATCH_H_
