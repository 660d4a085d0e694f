#ifndef TESSALY_SETTINGS_SETTING_VALUE_H_
#define TESSALY_SETTINGS_SETTING_VALUE_H_

#include <cstdint>
#include <string>
#include <variant>
#include <vector>

namespace tessaly {

// The value that passes through the settings store: nothing, a signed whole
// number of 16 or 32 bits, a text, or a byte sequence. Callers convert it to
// the type they want.
class SettingValue {
 public:
  using Bytes = std::vector<std::uint8_t>;
  enum class Kind { kNothing, kInt16, kInt32, kText, kBytes };

  SettingValue() = default;  // nothing
  static SettingValue FromInt16(std::int16_t number) { return SettingValue(number); }
  static SettingValue FromInt32(std::int32_t number) { return SettingValue(number); }
  static SettingValue FromText(std::string text) { return SettingValue(std::move(text)); }
  static SettingValue FromBytes(Bytes bytes) { return SettingValue(std::move(bytes)); }

  Kind kind() const { return static_cast<Kind>(value_.index()); }
  bool IsNothing() const { return kind() == Kind::kNothing; }
  bool IsWholeNumber() const { return kind() == Kind::kInt16 || kind() == Kind::kInt32; }
  bool IsText() const { return kind() == Kind::kText; }
  bool IsBytes() const { return kind() == Kind::kBytes; }

  // The number, widened to 32 bits; 0 for any other kind.
  std::int32_t AsWholeNumber() const;
  // The text; the empty text for any other kind.
  const std::string& AsText() const;
  // The bytes; none for any other kind.
  const Bytes& AsBytes() const;

  friend bool operator==(const SettingValue&, const SettingValue&) = default;

 private:
  using Variant = std::variant<std::monostate, std::int16_t, std::int32_t, std::string, Bytes>;
  template <typename T>
  explicit SettingValue(T value) : value_(std::move(value)) {}

  Variant value_;
};

}  // namespace tessaly

#endif  // TESSALY_SETTINGS_SETTING_VALUE_H_
