#include "text/whole_number.h"

#include <charconv>
#include <cmath>

#include "text/text_ops.h"

namespace tessaly::text {

std::optional<std::int16_t> ParseInteger16(std::string_view field) {
  field = TrimBlanks(field);
  if (!field.empty() && field.front() == '+') field.remove_prefix(1);
  if (field.empty() || field.front() == ' ') return std::nullopt;
  double value = 0;
  const auto [end, error] = std::from_chars(field.data(), field.data() + field.size(), value,
                                            std::chars_format::fixed);
  if (error != std::errc() || end != field.data() + field.size()) return std::nullopt;
  if (!std::isfinite(value)) return std::nullopt;
  const double rounded = std::nearbyint(value);  // the default mode rounds half to even
  if (rounded < -32768.0 || rounded > 32767.0) return std::nullopt;
  return static_cast<std::int16_t>(rounded);
}

}  // namespace tessaly::text
