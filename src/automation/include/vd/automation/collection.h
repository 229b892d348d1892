#pragma once
// A VB-style Collection: 1-based, optional keys that ignore case (a duplicate
// key raises 457), insertion before or after a position. A missing key or an
// index out of range raises 5 / 9 as Collection does.
#include <cstdint>
#include <optional>
#include <unordered_map>
#include <vector>

#include "vd/automation/error.h"
#include "vd/automation/text.h"

namespace vd::automation {

template <class T>
class Collection {
 public:
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

  [[nodiscard]] const T& Item(int32_t index) const { CheckIndex(index); return items_[index - 1].value; }
  [[nodiscard]] T& Item(int32_t index) { CheckIndex(index); return items_[index - 1].value; }
  [[nodiscard]] const T& Item(StringView key) const { return items_[IndexOfKey(key) - 1].value; }
  [[nodiscard]] bool Exists(StringView key) const { return keys_.contains(UCase(key)); }

  void Remove(int32_t index) {
    CheckIndex(index);
    if (items_[index - 1].key) keys_.erase(UCase(*items_[index - 1].key));
    items_.erase(items_.begin() + (index - 1));
  }
  void Remove(StringView key) { Remove(IndexOfKey(key)); }
  void Clear() { items_.clear(); keys_.clear(); }

 private:
  struct Entry {
    T value;
    std::optional<String> key;
  };
  void CheckIndex(int32_t index) const {
    if (index < 1 || index > Count()) Raise(err::kSubscriptOutOfRange);
  }
  int32_t IndexOfKey(StringView key) const {
    if (!keys_.contains(UCase(key))) Raise(err::kInvalidProcedureCall);
    for (int32_t i = 0; i < Count(); ++i)
      if (items_[i].key && EqualsIgnoreCase(*items_[i].key, key)) return i + 1;
    Raise(err::kInvalidProcedureCall);
  }
  void Insert(int32_t position, T item, std::optional<String> key) {
    if (key) {
      String folded = UCase(*key);
      if (keys_.contains(folded)) Raise(err::kKeyAlreadyInCollection);
      keys_.emplace(std::move(folded), true);
    }
    items_.insert(items_.begin() + (position - 1), Entry{std::move(item), std::move(key)});
  }

  std::vector<Entry> items_;
  std::unordered_map<String, bool> keys_;
};

}  // namespace vd::automation
