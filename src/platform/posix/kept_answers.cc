#include "platform/posix/kept_answers.h"

#include <algorithm>
#include <limits>

#include "platform/posix/path_resolver.h"

namespace tessaly {

namespace {

using State = ResolvedPath::State;

constexpr std::size_t kMaxLength = std::numeric_limits<std::uint16_t>::max();

// Where the name of `native` begins: behind its last "/".
std::size_t NameStart(std::string_view native) {
  const std::size_t slash = native.find_last_of('/');
  return slash == std::string_view::npos ? 0 : slash + 1;
}

}  // namespace

std::uint32_t KeptAnswers::Find(std::size_t hash, std::string_view asked) const {
  if (buckets_.empty()) return kNone;
  const auto low = static_cast<std::uint32_t>(hash);
  for (std::uint32_t i = buckets_[BucketOf(low)]; i != kNone; i = records_[i].next) {
    if (records_[i].hash == low && Answers(i, asked)) return i;
  }
  return kNone;
}

bool KeptAnswers::Answers(std::uint32_t index, std::string_view asked) const {
  const Record& record = records_[index];
  if (record.askedLength != 0) {
    return asked == std::string_view(bytes_.begin() + record.nameAt + record.nameLength, record.askedLength);
  }
  const std::string& folder = folders_[record.folder];
  return asked.size() == folder.size() + record.nameLength && asked.starts_with(folder) &&
         asked.substr(folder.size()) == Name(record);
}

void KeptAnswers::Recall(std::uint32_t index, ResolvedPath& answer) const {
  const Record& record = records_[index];
  answer.state = static_cast<State>(record.state);
  answer.info = record.info;
  answer.native.assign(folders_[record.folder]);
  answer.native.append(Name(record));
}

std::uint32_t KeptAnswers::FolderIndex(std::string_view folder) {
  // A list's answers mostly share one folder.
  if (lastFolder_ != kNone && folders_[lastFolder_] == folder) return lastFolder_;
  const auto [kept, added] =
      folderIndex_.try_emplace(std::string(folder), static_cast<std::uint32_t>(folders_.size()));
  if (added) folders_.emplace_back(folder);
  lastFolder_ = kept->second;
  return lastFolder_;
}

std::uint32_t KeptAnswers::Keep(std::size_t hash, std::string_view asked, const ResolvedPath& answer) {
  const std::string_view native = answer.native;
  const std::size_t nameStart = NameStart(native);
  const std::string_view name = native.substr(nameStart);
  const bool askedOther = asked != native;
  if (name.size() > kMaxLength || asked.size() > kMaxLength || records_.size() >= kNone - 1) {
    return kNone;
  }
  if (records_.size() >= buckets_.size()) Rechain(buckets_.empty() ? 64 : buckets_.size() * 2);
  const auto low = static_cast<std::uint32_t>(hash);
  std::uint32_t& head = buckets_[BucketOf(low)];
  const auto index = static_cast<std::uint32_t>(records_.size());
  records_.push_back(Record{answer.info, low, head, FolderIndex(native.substr(0, nameStart)),
                            static_cast<std::uint32_t>(bytes_.size()),
                            static_cast<std::uint16_t>(name.size()),
                            static_cast<std::uint16_t>(askedOther ? asked.size() : 0),
                            static_cast<std::uint8_t>(answer.state), false});
  bytes_.Append(name.data(), name.size());
  if (askedOther) bytes_.Append(asked.data(), asked.size());
  head = index;
  return index;
}

void KeptAnswers::Drop(std::size_t hash) {
  if (buckets_.empty()) return;
  const auto low = static_cast<std::uint32_t>(hash);
  std::uint32_t* link = &buckets_[BucketOf(low)];
  while (*link != kNone) {
    Record& record = records_[*link];
    if (record.hash == low) {
      record.dropped = true;
      ++dropped_;
      *link = record.next;
    } else {
      link = &record.next;
    }
  }
  if (dropped_ > 64 && dropped_ > size()) Compact();
}

void KeptAnswers::Compact() {
  // In place, front to back: a record and its bytes only ever move towards
  // the front, and no second copy raises the peak of a long run's memory;
  // the room behind goes back.
  std::size_t records = 0;
  std::size_t bytes = 0;
  for (const Record& record : records_) {
    if (record.dropped) continue;
    Record& moved = records_[records++];
    moved = record;
    const std::size_t length = moved.nameLength + moved.askedLength;
    std::copy_n(bytes_.begin() + moved.nameAt, length, bytes_.begin() + bytes);
    moved.nameAt = static_cast<std::uint32_t>(bytes);
    bytes += length;
  }
  records_.Truncate(records);
  bytes_.Truncate(bytes);
  dropped_ = 0;
  Rechain(buckets_.size());
}

void KeptAnswers::Rechain(std::size_t bucketCount) {
  buckets_.assign(bucketCount, kNone);
  shift_ = 32;
  for (std::size_t count = bucketCount; count > 1; count /= 2) --shift_;
  for (std::uint32_t i = 0; i < records_.size(); ++i) {
    Record& record = records_[i];
    if (record.dropped) continue;
    std::uint32_t& head = buckets_[BucketOf(record.hash)];
    record.next = head;
    head = i;
  }
}

void KeptAnswers::Clear() {
  // Emptied to the last byte: the table of a large list is megabytes.
  records_.Clear();
  bytes_.Clear();
  std::vector<std::uint32_t>().swap(buckets_);
  shift_ = 32;
  dropped_ = 0;
  folders_.clear();
  folderIndex_.clear();
  lastFolder_ = kNone;
}

}  // namespace tessaly
