#ifndef TESSALY_CONTROLS_FORM_H_
#define TESSALY_CONTROLS_FORM_H_

#include <string>

#include "controls/signal.h"

namespace tessaly {

// A window as a model: loading runs its Form_Load, unloading runs its
// Form_QueryUnload (which never refuses) and tells the view to close. A
// form is loaded without being shown when only its data is wanted.
class Form {
 public:
  // `name` is the form's name in the code (`fTessaly`), for views and tests.
  Form(std::string name, std::string caption)
      : name_(std::move(name)), caption_(std::move(caption)) {}
  Form(const Form&) = delete;  // controls' rules point back at the form
  Form& operator=(const Form&) = delete;
  virtual ~Form() = default;

  const std::string& name() const { return name_; }
  const std::string& caption() const { return caption_; }
  void SetCaption(std::string caption) {
    if (caption == caption_) return;
    caption_ = std::move(caption);
    changed.Emit();
  }
  bool loaded() const { return loaded_; }

  void Load() {
    loaded_ = true;
    Form_Load();
  }
  void Unload() {
    if (!loaded_) return;
    Form_QueryUnload();
    loaded_ = false;
    unloaded.Emit();
  }

  Signal changed;  // the caption
  Signal unloaded;

 protected:
  virtual void Form_Load() = 0;
  virtual void Form_QueryUnload() = 0;

 private:
  std::string name_;
  std::string caption_;
  bool loaded_ = false;
};

}  // namespace tessaly

#endif  // TESSALY_CONTROLS_FORM_H_
