#include "vd/forms/detail/node_key_index.h"

#include <algorithm>

#include "vd/automation/text.h"
#include "vd/forms/node.h"

namespace vd::forms::detail {
namespace {
using vd::automation::StringView;

uint32_t Finish(uint64_t h) {
  h ^= h >> 33;
  h *= 0xff51afd7ed558ccdULL;
  h ^= h >> 33;
  return static_cast<uint32_t>(h);
}

// FNV-1a over the code units of a key whose letters are already upper case.
uint32_t HashUpper(StringView key) {
  uint64_t h = 0xcbf29ce484222325ULL;
  for (const char16_t c : key) h = (h ^ c) * 0x100000001b3ULL;
  return Finish(h);
}

// Equal ignoring case; ASCII letters are folded here, anything else by the text helpers.
bool SameKey(StringView a, StringView b) {
  if (a.size() != b.size()) return false;
  for (size_t i = 0; i < a.size(); ++i) {
    char16_t x = a[i];
    char16_t y = b[i];
    if (x == y) continue;
    if (x >= 0x80 || y >= 0x80) return vd::automation::EqualsIgnoreCase(a.substr(i), b.substr(i));
    if (x >= u'a' && x <= u'z') x = static_cast<char16_t>(x - 0x20);
    if (y >= u'a' && y <= u'z') y = static_cast<char16_t>(y - 0x20);
    if (x != y) return false;
  }
  return true;
}
}  // namespace

uint32_t NodeKeyIndex::Hash(StringView key) {
  // Keys are nearly always ASCII: fold those here without a copy, and leave
  // other letters to the text helpers so that the hash agrees with EqualsIgnoreCase.
  uint64_t h = 0xcbf29ce484222325ULL;
  for (char16_t c : key) {
    if (c >= 0x80) return HashUpper(vd::automation::UCase(key));
    if (c >= u'a' && c <= u'z') c = static_cast<char16_t>(c - 0x20);
    h = (h ^ c) * 0x100000001b3ULL;
  }
  return Finish(h);
}

const Node& NodeKeyIndex::NodeAt(const Entry& entry) const { return *(*nodes_)[entry.place - 1]; }

Node* NodeKeyIndex::Find(StringView key, uint32_t hash) const {
  if (size_ == 0) return nullptr;
  for (size_t i = hash & Mask(); entries_[i].place != 0; i = (i + 1) & Mask()) {
    if (entries_[i].hash == hash && SameKey(NodeAt(entries_[i]).key_, key)) {
      return (*nodes_)[entries_[i].place - 1].get();
    }
  }
  return nullptr;
}

Node* NodeKeyIndex::FindForInsert(StringView key, uint32_t hash, size_t& at) {
  // At most four fifths full, eight bytes an entry: a probe for a key that is
  // not there (every Add makes one) mostly stays within a cache line or two.
  Reserve(size_ + 1);
  size_t i = hash & Mask();
  for (; entries_[i].place != 0; i = (i + 1) & Mask()) {
    if (entries_[i].hash == hash && SameKey(NodeAt(entries_[i]).key_, key)) {
      return (*nodes_)[entries_[i].place - 1].get();
    }
  }
  at = i;
  return nullptr;
}

void NodeKeyIndex::InsertAt(size_t at, const Node& node, uint32_t hash) {
  entries_[at] = Entry{hash, static_cast<uint32_t>(node.slot_ + 1)};
  ++size_;
}

void NodeKeyIndex::Erase(const Node& node) {
  if (size_ == 0) return;
  const auto place = static_cast<uint32_t>(node.slot_ + 1);
  size_t i = Hash(node.key_) & Mask();
  while (entries_[i].place != place) {
    if (entries_[i].place == 0) return;
    i = (i + 1) & Mask();
  }
  // Shift later members of the probe run back so that no run has a hole.
  for (size_t j = (i + 1) & Mask(); entries_[j].place != 0; j = (j + 1) & Mask()) {
    const size_t home = entries_[j].hash & Mask();
    const bool staysPut = i <= j ? (i < home && home <= j) : (i < home || home <= j);
    if (!staysPut) {
      entries_[i] = entries_[j];
      i = j;
    }
  }
  entries_[i] = Entry{};
  --size_;
}

void NodeKeyIndex::Clear() {
  // Keeps its size: a tree that is cleared is most often built again as large.
  std::fill(entries_.begin(), entries_.end(), Entry{});
  size_ = 0;
}

void NodeKeyIndex::Reserve(size_t keys) {
  if (Fits(keys)) return;
  size_t count = entries_.empty() ? 16 : entries_.size();
  while (keys * 5 > count * 4) count *= 2;
  Rehash(count);
}

void NodeKeyIndex::Rebuild() {
  std::fill(entries_.begin(), entries_.end(), Entry{});
  size_ = 0;
  for (const auto& node : *nodes_) {
    if (!node || node->key_.empty()) continue;
    const uint32_t hash = Hash(node->key_);
    size_t at = 0;
    if (FindForInsert(node->key_, hash, at) == nullptr) InsertAt(at, *node, hash);
  }
}

void NodeKeyIndex::Rehash(size_t entryCount) {
  std::vector<Entry> old = std::move(entries_);
  entries_.assign(entryCount, Entry{});
  for (const Entry& entry : old) {
    if (entry.place == 0) continue;
    size_t i = entry.hash & Mask();
    while (entries_[i].place != 0) i = (i + 1) & Mask();
    entries_[i] = entry;
  }
}

}  // namespace vd::forms::detail
