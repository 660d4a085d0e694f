#ifndef TESSALY_PLATFORM_REGISTRY_H_
#define TESSALY_PLATFORM_REGISTRY_H_

#include <cstdint>
#include <string_view>

namespace tessaly {

// The two trees the program reads and writes: HKEY_CURRENT_USER and
// HKEY_LOCAL_MACHINE.
enum class Hive { kCurrentUser, kLocalMachine };

// A handle to an open key; 0 is never one.
using RegistryKey = std::uint32_t;

namespace reg {

// Result codes, as the desktop platform numbers them.
inline constexpr long kSuccess = 0;
inline constexpr long kNotFound = 2;       // no such key or value
inline constexpr long kAccessDenied = 5;   // the hive or handle forbids it
inline constexpr long kInvalidHandle = 6;  // not an open key
inline constexpr long kInvalidParameter = 87;
inline constexpr long kBadPathname = 161;   // a key path with an empty name in it
inline constexpr long kMoreData = 234;      // buffer too small; size says what is needed
inline constexpr long kBadDatabase = 1009;  // the hive's storage is damaged
inline constexpr long kIoFailed = 1016;     // the hive's storage could not be read or written

// Value types.
inline constexpr std::uint32_t kNone = 0;
inline constexpr std::uint32_t kText = 1;        // REG_SZ
inline constexpr std::uint32_t kExpandText = 2;  // REG_EXPAND_SZ
inline constexpr std::uint32_t kBinary = 3;      // REG_BINARY
inline constexpr std::uint32_t kDword = 4;       // REG_DWORD, little-endian
inline constexpr std::uint32_t kDwordBigEndian = 5;
inline constexpr std::uint32_t kLink = 6;
inline constexpr std::uint32_t kMultiText = 7;  // REG_MULTI_SZ
inline constexpr std::uint32_t kQword = 11;

// Access rights of a key handle.
inline constexpr std::uint32_t kQueryValue = 0x0001;
inline constexpr std::uint32_t kSetValue = 0x0002;
inline constexpr std::uint32_t kCreateSubKey = 0x0004;
inline constexpr std::uint32_t kRead = 0x20019;   // KEY_READ
inline constexpr std::uint32_t kWrite = 0x20006;  // KEY_WRITE

// What CreateKey reports about the key.
inline constexpr std::uint32_t kCreatedNewKey = 1;
inline constexpr std::uint32_t kOpenedExistingKey = 2;

}  // namespace reg

// The registry calls the settings store relies on, with the desktop
// platform's behaviour. Key paths are relative to a hive and use the
// backslash; key and value names are compared ignoring letter case and kept
// in the case they were first written in. The empty value name is the key's
// default value. Abstract so it can be replaced in tests; the real one on
// POSIX is SqliteRegistry.
class Registry {
 public:
  virtual ~Registry() = default;

  // Opens the existing key `path` of `hive` with `access` into `*key`.
  // Returns kNotFound for a missing key, kAccessDenied for write access to a
  // hive that forbids writing, or another failure code; `*key` is then unset.
  virtual long OpenKey(Hive hive, std::string_view path, std::uint32_t access,
                       RegistryKey* key) = 0;

  // Reads the value `name`. With `data` null, reports only type and size.
  // Otherwise `*size` is the buffer's size on entry and the value's size on
  // return; a buffer too small gives kMoreData with the size needed and the
  // type. A text's size counts the terminator it was stored with. Returns
  // kNotFound for a missing value, leaving `*type` and `*size` alone.
  virtual long QueryValue(RegistryKey key, std::string_view name, std::uint32_t* type,
                          std::uint8_t* data, std::uint32_t* size) = 0;

  // Stores `size` bytes of `data` as value `name` of `type`, replacing any
  // value of that name. For the text types, as on the desktop platform, a
  // terminator that `size` leaves out is counted in when the byte at
  // data[size] is zero, as it is behind a std::string's characters. Returns
  // kAccessDenied when the handle or hive forbids writing, or another failure.
  virtual long SetValue(RegistryKey key, std::string_view name, std::uint32_t type,
                        const std::uint8_t* data, std::uint32_t size) = 0;

  // Opens `path`, creating it and any missing parents, into `*key`, and sets
  // `*disposition` to kCreatedNewKey or kOpenedExistingKey. The class text and
  // options are accepted and not kept. Returns kAccessDenied when a missing
  // key cannot be made in a hive that forbids writing, or another failure.
  virtual long CreateKey(Hive hive, std::string_view path, std::string_view keyClass,
                         std::uint32_t options, std::uint32_t access, RegistryKey* key,
                         std::uint32_t* disposition) = 0;

  // Closes an open key. Returns kInvalidHandle for anything else.
  virtual long CloseKey(RegistryKey key) = 0;
};

}  // namespace tessaly

#endif  // TESSALY_PLATFORM_REGISTRY_H_
