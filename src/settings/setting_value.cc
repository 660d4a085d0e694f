#include "settings/setting_value.h"

namespace tessaly {

std::int32_t SettingValue::AsWholeNumber() const {
  if (const auto* small = std::get_if<std::int16_t>(&value_)) return *small;
  if (const auto* large = std::get_if<std::int32_t>(&value_)) return *large;
  return 0;
}

const std::string& SettingValue::AsText() const {
  static const std::string kNoText;
  const auto* text = std::get_if<std::string>(&value_);
  return text != nullptr ? *text : kNoText;
}

const SettingValue::Bytes& SettingValue::AsBytes() const {
  static const Bytes kNoBytes;
  const auto* bytes = std::get_if<Bytes>(&value_);
  return bytes != nullptr ? *bytes : kNoBytes;
}

}  // namespace tessaly
