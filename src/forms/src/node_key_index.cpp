#include "vd/forms/detail/node_key_index.h"

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

Node* NodeKeyIndex::Find(StringView key, uint32_t hash) const {
  if (size_ == 0) return nullptr;
  for (size_t i = hash & Mask(); slots_[i].node != nullptr; i = (i + 1) & Mask()) {
    if (slots_[i].hash == hash && SameKey(slots_[i].node->key_, key)) return slots_[i].node;
  }
  return nullptr;
}

void NodeKeyIndex::Insert(Node* node, uint32_t hash) {
  // At most half full: a probe for a key that is not there (every Add makes
  // one) then ends after two or three slots on average.
  if ((size_ + 1) * 2 > slots_.size()) Grow();
  size_t i = hash & Mask();
  while (slots_[i].node != nullptr) i = (i + 1) & Mask();
  slots_[i] = Slot{node, hash};
  ++size_;
}

void NodeKeyIndex::Erase(const Node* node) {
  if (size_ == 0) return;
  size_t i = Hash(node->key_) & Mask();
  while (slots_[i].node != node) {
    if (slots_[i].node == nullptr) return;
    i = (i + 1) & Mask();
  }
  // Shift later members of the probe run back so that no run has a hole.
  for (size_t j = (i + 1) & Mask(); slots_[j].node != nullptr; j = (j + 1) & Mask()) {
    const size_t home = slots_[j].hash & Mask();
    const bool staysPut = i <= j ? (i < home && home <= j) : (i < home || home <= j);
    if (!staysPut) {
      slots_[i] = slots_[j];
      i = j;
    }
  }
  slots_[i] = Slot{};
  --size_;
}

void NodeKeyIndex::Clear() {
  slots_.clear();
  size_ = 0;
}

void NodeKeyIndex::Grow() {
  std::vector<Slot> old = std::move(slots_);
  slots_.assign(old.empty() ? 16 : old.size() * 2, Slot{});
  for (const Slot& slot : old) {
    if (slot.node == nullptr) continue;
    size_t i = slot.hash & Mask();
    while (slots_[i].node != nullptr) i = (i + 1) & Mask();
    slots_[i] = slot;
  }
}

}  // namespace vd::forms::detail
