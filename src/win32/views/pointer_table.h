#pragma once
// A table from pointers to pointers with constant-time find, insert and erase,
// and no allocation per entry: open addressing with linear probing, entries
// moved back on erase (no tombstones). The tree mirror keeps one per
// direction (node to item, item handle to item) for trees of 100,000 nodes.
#include <cstddef>
#include <cstdint>
#include <vector>

namespace vd::win32::views {

template <class Key, class Value>
class PointerTable {
 public:
  [[nodiscard]] Value* Find(const Key* key) const {
    if (slots_.empty() || key == nullptr) return nullptr;
    for (size_t i = Home(key);; i = Next(i)) {
      if (slots_[i].key == key) return slots_[i].value;
      if (slots_[i].key == nullptr) return nullptr;
    }
  }

  // key must not be in the table yet.
  void Insert(const Key* key, Value* value) {
    if ((size_ + 1) * 4 > slots_.size() * 3) Rehash(slots_.empty() ? 16 : slots_.size() * 2);
    size_t i = Home(key);
    while (slots_[i].key != nullptr) i = Next(i);
    slots_[i] = {key, value};
    ++size_;
  }

  void Erase(const Key* key) {
    if (slots_.empty() || key == nullptr) return;
    size_t hole = Home(key);
    while (slots_[hole].key != key) {
      if (slots_[hole].key == nullptr) return;
      hole = Next(hole);
    }
    slots_[hole] = {};
    --size_;
    // Close the hole: move back every later entry of the run whose home does
    // not lie (cyclically) after the hole.
    for (size_t i = Next(hole); slots_[i].key != nullptr; i = Next(i)) {
      const size_t home = Home(slots_[i].key);
      const bool homeAfterHole = hole < i ? (home > hole && home <= i) : (home > hole || home <= i);
      if (homeAfterHole) continue;
      slots_[hole] = slots_[i];
      slots_[i] = {};
      hole = i;
    }
  }

  void Clear() {
    slots_.clear();
    size_ = 0;
  }

  void Reserve(size_t count) {
    size_t capacity = 16;
    while (capacity * 3 < count * 4) capacity *= 2;
    if (capacity > slots_.size()) Rehash(capacity);
  }

  [[nodiscard]] size_t Size() const { return size_; }

 private:
  struct Slot {
    const Key* key = nullptr;
    Value* value = nullptr;
  };

  [[nodiscard]] size_t Home(const Key* key) const {
    // Heap addresses share their low bits: mix them all into the top ones.
    auto bits = static_cast<uint64_t>(reinterpret_cast<uintptr_t>(key));
    bits ^= bits >> 29;
    bits *= 0x9E3779B97F4A7C15ull;
    return static_cast<size_t>(bits >> 32) & (slots_.size() - 1);
  }
  [[nodiscard]] size_t Next(size_t i) const { return (i + 1) & (slots_.size() - 1); }

  void Rehash(size_t capacity) {
    std::vector<Slot> old(capacity);
    old.swap(slots_);
    size_ = 0;
    for (const Slot& slot : old)
      if (slot.key != nullptr) Insert(slot.key, slot.value);
  }

  std::vector<Slot> slots_;  // a power of two long, at most three quarters full
  size_t size_ = 0;
};

}  // namespace vd::win32::views
