#include "wizard/layout/layout.h"

#include <type_traits>

namespace tessaly::layout {

namespace {

Item Bound(Kind kind, Model model, std::string name) {
  Item item;
  item.kind = kind;
  item.model = model;
  item.name = std::move(name);
  return item;
}

Item Container(Kind kind, Arrange arrange, std::vector<Item> children) {
  Item item;
  item.kind = kind;
  item.arrange = arrange;
  item.children = std::move(children);
  return item;
}

// Wraps `inside` in a window of `kind`, which takes over its arrangement.
Item Windowed(Kind kind, std::string name, Item inside) {
  inside.kind = kind;
  inside.name = std::move(name);
  return inside;
}

bool IsAsciiLetterOrDigit(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9');
}

char Lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

bool HasMnemonic(std::string_view caption) {
  for (std::size_t i = 0; i + 1 < caption.size(); ++i) {
    if (caption[i] != '&') continue;
    if (caption[i + 1] != '&') return true;
    ++i;  // "&&" is a plain "&"
  }
  return false;
}

}  // namespace

Control* ControlOf(const Model& model) {
  return std::visit(
      [](auto alternative) -> Control* {
        if constexpr (std::is_pointer_v<decltype(alternative)>) {
          return alternative;
        } else {
          return nullptr;
        }
      },
      model);
}

Item Text(Label& label, std::string name) { return Bound(Kind::kText, &label, std::move(name)); }

Item PathText(Label& label, std::string name, std::function<std::string(std::string_view)> shown) {
  Item item = Bound(Kind::kPathText, &label, std::move(name));
  item.shownPath = std::move(shown);
  return item;
}

Item Caption(std::string text, std::string buddy) {
  Item item;
  item.kind = Kind::kCaption;
  item.text = std::move(text);
  item.buddy = std::move(buddy);
  return item;
}

Item CaptionOf(Model control, std::string buddy, std::string keys) {
  Item item = Bound(Kind::kCaption, control, "");
  item.buddy = std::move(buddy);
  item.keys = std::move(keys);
  return item;
}

Item Button(CommandButton& button, std::string name, std::string keys) {
  return Bound(Kind::kButton, &button, std::move(name)).Keys(std::move(keys));
}

Item Check(CheckBox& box, std::string name, std::string keys) {
  return Bound(Kind::kCheckBox, &box, std::move(name)).Keys(std::move(keys));
}

Item Option(OptionButton& option, std::string name, std::string keys) {
  return Bound(Kind::kOption, &option, std::move(name)).Keys(std::move(keys));
}

Item Combo(ComboBox& box, std::string name) { return Bound(Kind::kComboBox, &box, std::move(name)); }

Item Edit(TextBox& box, std::string name) { return Bound(Kind::kTextBox, &box, std::move(name)); }

Item Example(TextBox& box, std::string name, int lines) {
  return Bound(Kind::kExample, &box, std::move(name)).Lines(lines);
}

Item FileList(ListBox& list, std::string name, std::function<std::string(std::string_view)> shown) {
  Item item = Bound(Kind::kFileList, &list, std::move(name));
  item.shownPath = std::move(shown);
  return item;
}

Item CheckList(ListBox& list, std::string name) {
  return Bound(Kind::kCheckList, &list, std::move(name));
}

Item RichText(RichTextBox& box, std::string name) {
  return Bound(Kind::kRichText, &box, std::move(name));
}

Item Progress(Label& total, std::string name, Item bar, Item text) {
  Item item = Bound(Kind::kProgress, &total, std::move(name));
  item.children = {std::move(bar), std::move(text)};
  return item;
}

Item Line() {
  Item item;
  item.kind = Kind::kLine;
  return item;
}

Item Space(int length) {
  Item item;
  item.kind = Kind::kSpace;
  item.fixed = {length, length};
  return item;
}

Item Stretch(int share) {
  Item item;
  item.kind = Kind::kStretch;
  item.stretch = share;
  return item;
}

Item Column(std::vector<Item> children) {
  return Container(Kind::kBox, Arrange::kColumn, std::move(children));
}

Item Row(std::vector<Item> children) {
  return Container(Kind::kBox, Arrange::kRow, std::move(children));
}

Item Grid(std::vector<Item> children) {
  return Container(Kind::kBox, Arrange::kGrid, std::move(children));
}

Item Overlay(std::vector<Item> children) {
  return Container(Kind::kBox, Arrange::kOverlay, std::move(children));
}

Item Frame(Label& title, std::string name, Item inside) {
  Item frame = Windowed(Kind::kFrame, std::move(name), std::move(inside));
  frame.model = &title;
  return frame;
}

Item Frame(std::string title, std::string name, Item inside) {
  Item frame = Windowed(Kind::kFrame, std::move(name), std::move(inside));
  frame.text = std::move(title);
  return frame;
}

Item Panel(std::string name, Item inside, Label* shownBy) {
  Item panel = Windowed(Kind::kPanel, std::move(name), std::move(inside));
  if (shownBy != nullptr) panel.model = shownBy;
  return panel;
}

std::string WithMnemonic(std::string_view caption, std::string_view keys) {
  if (HasMnemonic(caption)) return std::string(caption);
  for (const char key : keys) {
    std::size_t first = std::string_view::npos;
    for (std::size_t i = 0; i < caption.size(); ++i) {
      if (Lower(caption[i]) != Lower(key)) continue;
      // A byte of a longer character counts as a letter before it.
      const bool startsWord =
          i == 0 || (!IsAsciiLetterOrDigit(caption[i - 1]) &&
                     static_cast<unsigned char>(caption[i - 1]) < 0x80);
      if (startsWord) {
        first = i;
        break;
      }
      if (first == std::string_view::npos) first = i;
    }
    if (first != std::string_view::npos) {
      return std::string(caption.substr(0, first)) + "&" + std::string(caption.substr(first));
    }
  }
  return std::string(caption);
}

void ForEach(const Item& item, const std::function<void(const Item&)>& visit) {
  visit(item);
  for (const Item& child : item.children) ForEach(child, visit);
}

}  // namespace tessaly::layout
