// The windows' descriptions, which every toolkit realises the same way.

#include <gmock/gmock.h>

#include <cctype>
#include <map>
#include <set>

#include "memory_world.h"
#include "platform/memory/memory_file_system.h"
#include "wizard/layout/windows.h"

namespace tessaly::layout {
namespace {

TEST(WithMnemonic, MarksTheFirstKeyAtAWordStartElseAnywhere) {
  const struct {
    const char* caption;
    const char* keys;
    const char* marked;
  } cases[] = {
      {"Clear List", "l", "Clear &List"},
      {"File Nameing", "g", "File Namein&g"},  // no word starts with it
      {"Finished", "cf", "&Finished"},         // the first key it holds
      {"Add &Files", "a", "Add &Files"},       // its own mark wins
      {"Tom && Jerry", "j", "Tom && &Jerry"},  // "&&" is no mark
      {"Éa", "a", "É&a"},                      // behind a letter, however long
      {"+", "x", "+"},
  };
  for (const auto& c : cases) EXPECT_EQ(WithMnemonic(c.caption, c.keys), c.marked) << c.caption;
}

// Checks that the items under `roots` name each widget once, name every
// control, and draw each control once; gives the names.
std::set<std::string> CheckedNames(const std::vector<const Item*>& roots) {
  std::set<std::string> names;
  std::set<const Control*> drawn;
  for (const Item* root : roots) {
    ForEach(*root, [&](const Item& item) {
      if (!item.name.empty()) {
        EXPECT_TRUE(names.insert(item.name).second) << "two " << item.name;
      }
      const bool control = item.kind >= Kind::kButton && item.kind <= Kind::kProgress;
      EXPECT_FALSE(control && item.name.empty()) << "a control without a name";
      if (item.kind != Kind::kCaption && ControlOf(item.model) != nullptr) {
        EXPECT_TRUE(drawn.insert(ControlOf(item.model)).second) << "twice " << item.name;
      }
    });
  }
  return names;
}

// Checks that no two items under `roots`, on show together, are reached
// by the same Alt key.
void CheckMnemonicsDiffer(const std::vector<const Item*>& roots) {
  std::map<char, std::string> taken;
  for (const Item* root : roots) {
    ForEach(*root, [&](const Item& item) {
      const Control* control = ControlOf(item.model);
      if (control != nullptr && !control->visible()) return;  // on show later, elsewhere
      const std::string caption = WithMnemonic(item.text.empty() && control ? control->caption() : item.text, item.keys);
      for (std::size_t at = caption.find('&'); at != std::string::npos && at + 1 < caption.size();
           at = caption.find('&', at + 2)) {
        if (caption[at + 1] == '&') continue;
        const auto [where, fresh] = taken.emplace(static_cast<char>(std::tolower(caption[at + 1])), caption);
        EXPECT_TRUE(fresh || where->second == caption) << caption << " and " << where->second;
        break;
      }
    });
  }
}

// A view finds each widget by its name.
TEST(Descriptions, EveryControlNamedOnceAndDrawnOnce) {
  MemoryFileSystem files;
  MemoryWorld world(files);
  const WizardWindow window = DescribeWizard(world.Start());
  std::vector<const Item*> roots = {&window.buttons};
  for (const Item& step : window.steps) roots.push_back(&step);
  for (const Page& page : window.pages) {
    roots.push_back(&page.heading);
    roots.push_back(&page.body);
  }
  const std::set<std::string> names = CheckedNames(roots);
  EXPECT_TRUE(names.contains(window.defaultButton) && names.contains(window.cancelButton));
  for (const Page& page : window.pages) {
    std::vector<const Item*> onShow = {&window.buttons, &page.body};
    for (const Item& step : window.steps) onShow.push_back(&step);
    CheckMnemonicsDiffer(onShow);
  }

  fReplaceAdvanced replace(world.store, world.ui);
  fUnwantedFormatting formatting(world.store, world.ui);
  fProgress progress(world.ui, world.locale);
  for (const Dialog& dialog :
       {DescribeReplaceAdvanced(replace), DescribeUnwantedFormatting(formatting),
        DescribeProgress(progress)}) {
    const std::set<std::string> inside = CheckedNames({&dialog.body});
    CheckMnemonicsDiffer({&dialog.body});
    EXPECT_TRUE(dialog.defaultButton.empty() || inside.contains(dialog.defaultButton));
  }
}

}  // namespace
}  // namespace tessaly::layout
