#ifndef TESSALY_PLATFORM_POSIX_KEPT_ANSWERS_H_
#define TESSALY_PLATFORM_POSIX_KEPT_ANSWERS_H_

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "platform/posix/posix_attributes.h"
#include "platform/posix/realloc_array.h"

namespace tessaly {

struct ResolvedPath;

// The answers a PathResolver keeps about names, one for each of tens of
// thousands of listed files, packed: an answer's facts sit in one flat
// record, its path as a folder that the folder's other answers share plus a
// name in one common buffer, and records are chained by index under the
// hash of their name. Nodes of a standard hash table, each with a string or
// two, took three times the memory. A run drops the answer of each file it
// renames, and the room of dropped answers goes back as it goes.
//
// Indexes stay valid until the next Drop or Clear.
class KeptAnswers {
 public:
  static constexpr std::uint32_t kNone = UINT32_MAX;

  // The answer kept to `asked`, whose name hashes to `hash`, or kNone.
  std::uint32_t Find(std::size_t hash, std::string_view asked) const;
  // Keeps `answer` to `asked`; kNone when either is too long to keep.
  std::uint32_t Keep(std::size_t hash, std::string_view asked, const ResolvedPath& answer);
  bool Answers(std::uint32_t index, std::string_view asked) const;
  // Puts answer `index` into `answer`.
  void Recall(std::uint32_t index, ResolvedPath& answer) const;
  // Drops every answer whose name hashes to `hash`.
  void Drop(std::size_t hash);
  void Clear();
  std::size_t size() const { return records_.size() - dropped_; }

 private:
  struct Record {
    EntryFacts info;
    std::uint32_t hash;    // the low half of the name's hash
    std::uint32_t next;    // the next record in its bucket's chain, or kNone
    std::uint32_t folder;  // in folders_
    std::uint32_t nameAt;  // in bytes_, followed by the asked path if it differs
    std::uint16_t nameLength;
    std::uint16_t askedLength;  // 0: the path asked is the answer's own
    std::uint8_t state;
    bool dropped;
  };

  std::string_view Name(const Record& record) const {
    return std::string_view(bytes_.begin() + record.nameAt, record.nameLength);
  }
  std::size_t BucketOf(std::uint32_t hash) const {
    return (hash * 0x9E3779B9u) >> shift_;  // the top bits mix every byte of the name
  }
  std::uint32_t FolderIndex(std::string_view folder);
  void Rechain(std::size_t bucketCount);
  // Moves the kept records together once more are dropped than kept.
  void Compact();

  ReallocArray<Record> records_;
  ReallocArray<char> bytes_;
  std::vector<std::uint32_t> buckets_;
  unsigned shift_ = 32;
  std::size_t dropped_ = 0;
  // The part of each answer's path up to its last "/", once each.
  std::vector<std::string> folders_;
  std::unordered_map<std::string, std::uint32_t> folderIndex_;
  std::uint32_t lastFolder_ = kNone;
};

}  // namespace tessaly

#endif  // TESSALY_PLATFORM_POSIX_KEPT_ANSWERS_H_
