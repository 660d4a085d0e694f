#ifndef TESSALY_APP_WIN32_REALISE_H_
#define TESSALY_APP_WIN32_REALISE_H_

#include "windows_h.h"

#include <map>
#include <string>
#include <vector>

#include "host_window.h"
#include "layout_engine.h"
#include "wizard/layout/layout.h"

namespace tessaly::win32 {

// The windows a description asks for, made in `parent` of `host` in the
// description's order (which is the tab order), each bound to its model.
// Every window made for a named item is kept in `named` under that name,
// for the tests and for the default and cancel buttons. The description
// must outlive the windows.
class Realiser {
 public:
  Realiser(HostWindow& host, std::map<std::string, HWND>& named) : host_(host), named_(named) {}

  Node Realise(const layout::Item& item, HWND parent);
  // From now on, a panel in `pages` that is not on show is made empty,
  // and its contents wait in Deferred until RealiseContents: most pages
  // of a wizard are not on show when it comes up.
  void DeferHiddenPanels(std::vector<std::string> pages) { deferrable_ = std::move(pages); }
  struct Deferred {
    const layout::Item* item;
    HWND panel;
  };
  std::vector<Deferred> TakeDeferred() { return std::move(deferred_); }
  void RealiseContents(const Deferred& page, Node& node);
  // Puts each caption with a buddy right before it in the tab order, so
  // its mnemonic leads there. Call when every item is made.
  void PlaceCaptionsBeforeBuddies();

 private:
  bool Defers(const layout::Item& item) const;
  HWND MakeWindow(const layout::Item& item, HWND parent);
  HWND MakeText(const layout::Item& item, HWND parent);
  HWND MakeProgress(const layout::Item& item, HWND parent, Node& node);
  void Dress(const layout::Item& item, HWND window);

  HostWindow& host_;
  std::map<std::string, HWND>& named_;
  std::map<HWND, std::string> buddies_;
  int sheets_ = 0;
  std::vector<std::string> deferrable_;
  std::vector<Deferred> deferred_;  // how deep inside panels in a text field's colours
};

}  // namespace tessaly::win32

#endif  // TESSALY_APP_WIN32_REALISE_H_
