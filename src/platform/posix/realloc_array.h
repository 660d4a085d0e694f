#ifndef TESSALY_PLATFORM_POSIX_REALLOC_ARRAY_H_
#define TESSALY_PLATFORM_POSIX_REALLOC_ARRAY_H_

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <new>
#include <type_traits>

namespace tessaly {

// Values that copy as bytes, in one block of the C heap that realloc grows
// and shrinks. The C library changes a large block's size in place, by
// mapping pages, so a table of megabytes neither holds a second copy of
// itself for a moment nor keeps the pages it no longer needs, as a vector
// would.
template <typename T>
class ReallocArray {
  static_assert(std::is_trivially_copyable_v<T>);

 public:
  ReallocArray() = default;
  ReallocArray(const ReallocArray&) = delete;
  ReallocArray& operator=(const ReallocArray&) = delete;
  ~ReallocArray() { std::free(data_); }

  std::size_t size() const { return size_; }
  T& operator[](std::size_t index) { return data_[index]; }
  const T& operator[](std::size_t index) const { return data_[index]; }
  T* begin() { return data_; }
  T* end() { return data_ + size_; }
  const T* begin() const { return data_; }
  const T* end() const { return data_ + size_; }

  void Append(const T* values, std::size_t count) {
    if (size_ + count > capacity_) Resize(std::max(size_ + count, capacity_ * 2));
    if (count > 0) std::memcpy(data_ + size_, values, count * sizeof(T));
    size_ += count;
  }
  void push_back(const T& value) { Append(&value, 1); }
  // Keeps the first `size` values, and gives back the room of the rest
  // once it is most of the block.
  void Truncate(std::size_t size) {
    size_ = std::min(size, size_);
    if (size_ < capacity_ / 2) Resize(size_);
  }
  void Clear() {
    std::free(data_);
    data_ = nullptr;
    size_ = capacity_ = 0;
  }

 private:
  void Resize(std::size_t capacity) {
    if (capacity == 0) return Clear();
    void* resized = std::realloc(data_, capacity * sizeof(T));
    if (resized == nullptr) throw std::bad_alloc();
    data_ = static_cast<T*>(resized);
    capacity_ = capacity;
  }

  T* data_ = nullptr;
  std::size_t size_ = 0;
  std::size_t capacity_ = 0;
};

}  // namespace tessaly

#endif  // TESSALY_PLATFORM_POSIX_REALLOC_ARRAY_H_
