#pragma once
// A VB-style Collection: 1-based, optional keys that ignore case (a duplicate
// key raises 457), insertion before or after a position. A missing key raises
// 5 and an index out of range 9, as Collection does. The empty text is a key
// like any other. Keys are found in constant time; positions are a vector, so
// inserting and removing move the later items.
#include <algorithm>
#include <cstdint>
#include <memory>
#include <optional>
#include <unordered_map>
#include <vector>

#include "vd/automation/error.h"
#include "vd/automation/text.h"

namespace vd::automation {

template <class T>
class Collection {
 public:
  Collection() = default;
  Collection(const Collection& other) { CopyFrom(other); }
  Collection& operator=(const Collection& other) {
    if (this != &other) {
      Collection copy(other);
      *this = std::move(copy);
    }
    return *this;
  }
  Collection(Collection&&) noexcept = default;
  Collection& operator=(Collection&&) noexcept = default;
  ~Collection() = default;

  [[nodiscard]] int32_t Count() const { return static_cast<int32_t>(items_.size()); }

  // Add at the end, or after / before a 1-based position.
  void Add(T item, std::optional<String> key = std::nullopt) { Insert(Count() + 1, std::move(item), std::move(key)); }
  void AddAfter(int32_t position, T item, std::optional<String> key = std::nullopt) {
    CheckIndex(position);
    Insert(position + 1, std::move(item), std::move(key));
  }
  void AddBefore(int32_t position, T item, std::optional<String> key = std::nullopt) {
    CheckIndex(position);
    Insert(position, std::move(item), std::move(key));
  }

  [[nodiscard]] const T& Item(int32_t index) const { return EntryAt(index).value; }
  [[nodiscard]] T& Item(int32_t index) { return EntryAt(index).value; }
  [[nodiscard]] const T& Item(StringView key) const { return EntryOf(key).value; }
  [[nodiscard]] T& Item(StringView key) { return EntryOf(key).value; }
  [[nodiscard]] bool Exists(StringView key) const { return keys_.contains(UCase(key)); }
  // The key an item was added with, as it was written; nullopt for none.
  [[nodiscard]] const std::optional<String>& KeyOf(int32_t index) const { return EntryAt(index).key; }

  void Remove(int32_t index) {
    CheckIndex(index);
    const auto position = items_.begin() + (index - 1);
    if ((*position)->key) keys_.erase(UCase(*(*position)->key));
    items_.erase(position);
  }
  void Remove(StringView key) {
    const Entry* entry = &EntryOf(key);
    const auto position =
        std::find_if(items_.begin(), items_.end(), [entry](const auto& e) { return e.get() == entry; });
    Remove(static_cast<int32_t>(position - items_.begin()) + 1);
  }
  void Clear() {
    items_.clear();
    keys_.clear();
  }

 private:
  // Entries live on the heap so that the key map's pointers survive the moves
  // of the position vector.
  struct Entry {
    T value;
    std::optional<String> key;
  };

  void CheckIndex(int32_t index) const {
    if (index < 1 || index > Count()) Raise(err::kSubscriptOutOfRange);
  }
  Entry& EntryAt(int32_t index) const {
    CheckIndex(index);
    return *items_[static_cast<size_t>(index - 1)];
  }
  Entry& EntryOf(StringView key) const {
    const auto found = keys_.find(UCase(key));
    if (found == keys_.end()) Raise(err::kInvalidProcedureCall);
    return *found->second;
  }
  void Insert(int32_t position, T item, std::optional<String> key) {
    String folded;
    if (key) {
      folded = UCase(*key);
      if (keys_.contains(folded)) Raise(err::kKeyAlreadyInCollection);
    }
    auto entry = std::make_unique<Entry>(Entry{std::move(item), std::move(key)});
    Entry* const raw = entry.get();
    items_.insert(items_.begin() + (position - 1), std::move(entry));
    if (raw->key) {
      try {
        keys_.emplace(std::move(folded), raw);
      } catch (...) {
        items_.erase(items_.begin() + (position - 1));
        throw;
      }
    }
  }
  void CopyFrom(const Collection& other) {
    items_.reserve(other.items_.size());
    for (const auto& entry : other.items_) {
      items_.push_back(std::make_unique<Entry>(*entry));
      if (entry->key) keys_.emplace(UCase(*entry->key), items_.back().get());
    }
  }

  std::vector<std::unique_ptr<Entry>> items_;
  std::unordered_map<String, Entry*> keys_;
};

}  // namespace vd::automation
