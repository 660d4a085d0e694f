// Registry values of any type and size: the answer to a query never writes
// past the caller's buffer, and the store's decoding depends on the value's
// own bytes alone, never on what lies behind them in its buffer. Values are
// kept in buffers of exactly their size, so a read past them is a report.

#include <algorithm>
#include <memory>
#include <span>

#include "fuzz_input.h"
#include "platform/registry_rules.h"
#include "settings/settings_store.h"

namespace tessaly {
namespace {

// One value under every key; the room behind an answer is filled with `fill`.
class OneValueRegistry : public Registry {
 public:
  OneValueRegistry(std::uint32_t type, std::span<const std::uint8_t> bytes, std::uint8_t fill)
      : type_(type), bytes_(bytes), fill_(fill) {}
  long OpenKey(Hive, std::string_view, std::uint32_t, RegistryKey* key) override {
    *key = 1;
    return reg::kSuccess;
  }
  long QueryValue(RegistryKey, std::string_view, std::uint32_t* type, std::uint8_t* data,
                  std::uint32_t* size) override {
    if (data != nullptr) std::fill_n(data, *size, fill_);
    return registry_rules::AnswerQuery(type_, bytes_, type, data, size);
  }
  long SetValue(RegistryKey, std::string_view, std::uint32_t, const std::uint8_t*,
                std::uint32_t) override { return reg::kAccessDenied; }
  long CreateKey(Hive, std::string_view, std::string_view, std::uint32_t, std::uint32_t,
                 RegistryKey*, std::uint32_t*) override { return reg::kAccessDenied; }
  long CloseKey(RegistryKey) override { return reg::kSuccess; }

 private:
  std::uint32_t type_;
  std::span<const std::uint8_t> bytes_;
  std::uint8_t fill_;
};

SettingValue Read(std::uint32_t type, std::span<const std::uint8_t> bytes, std::uint8_t fill) {
  OneValueRegistry registry(type, bytes, fill);
  return SettingsStore(registry).ReadRegistryValue(Hive::kCurrentUser, "K", "V",
                                                   SettingValue::FromInt16(-7));
}

void CheckAnswer(std::uint32_t type, std::span<const std::uint8_t> bytes, std::uint32_t room) {
  const auto buffer = std::make_unique<std::uint8_t[]>(room);
  std::uint32_t answeredType = 0, size = room;
  const long answer = registry_rules::AnswerQuery(type, bytes, &answeredType, buffer.get(), &size);
  FUZZ_CHECK(answeredType == type && size == bytes.size());
  FUZZ_CHECK((answer == reg::kMoreData) == (room < bytes.size()));
  if (answer == reg::kSuccess) FUZZ_CHECK(std::equal(bytes.begin(), bytes.end(), buffer.get()));
}

}  // namespace
}  // namespace tessaly

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace tessaly;
  FuzzedDataProvider in(data, size);
  const auto type = in.ConsumeIntegralInRange<std::uint32_t>(0, 12);
  const auto room = in.ConsumeIntegralInRange<std::uint32_t>(0, 2100);
  const std::vector<std::uint8_t> rest = in.ConsumeRemainingBytes<std::uint8_t>();
  const auto value = std::make_unique<std::uint8_t[]>(rest.size());
  std::copy(rest.begin(), rest.end(), value.get());
  const std::span<const std::uint8_t> bytes(value.get(), rest.size());

  CheckAnswer(type, bytes, room);
  const SettingValue read = Read(type, bytes, 0x00);
  FUZZ_CHECK(Read(type, bytes, 0xff) == read);
  FUZZ_CHECK(std::string(rest.begin(), rest.end()).starts_with(read.AsText()));
  if (read.IsBytes()) FUZZ_CHECK(read.AsBytes() == rest);
  return 0;
}
