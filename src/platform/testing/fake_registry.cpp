#include "platform/testing/fake_registry.h"

#include <algorithm>
#include <cctype>

namespace vd::platform::testing {

std::string FakeRegistry::Fold(std::string_view text) {
  std::string folded(text);
  for (char& c : folded) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
  return folded;
}

void FakeRegistry::AddKey(RegHandle hive, const std::string& path) { keys_[{hive, Fold(path)}]; }

void FakeRegistry::SetValue(RegHandle hive, const std::string& path, const std::string& name, StoredValue value) {
  keys_[{hive, Fold(path)}][Fold(name)] = std::move(value);
}

RegOpenResult FakeRegistry::OpenKey(RegHandle parent, std::string_view subKey, uint32_t options, uint32_t access) {
  opens_.push_back({parent, std::string(subKey), options, access});
  const auto key = keys_.find({parent, Fold(subKey)});
  if (key == keys_.end()) return {reg::kErrorFileNotFound, 0};
  const RegHandle handle = nextHandle_++;
  handles_[handle] = &key->second;
  return {reg::kErrorSuccess, handle};
}

RegQueryResult FakeRegistry::QueryValue(RegHandle key, std::string_view valueName, std::span<char> buffer) {
  queries_.push_back({key, std::string(valueName), buffer.size(),
                      std::all_of(buffer.begin(), buffer.end(), [](char c) { return c == '\0'; })});
  const auto handle = handles_.find(key);
  if (handle == handles_.end()) return {reg::kErrorInvalidHandle, 0, 0};
  const auto value = handle->second->find(Fold(valueName));
  if (value == handle->second->end()) return {reg::kErrorFileNotFound, 0, 0};
  const StoredValue& stored = value->second;
  const auto size = static_cast<uint32_t>(stored.bytes.size());
  if (stored.bytes.size() > buffer.size()) return {reg::kErrorMoreData, stored.type, size};
  std::copy(stored.bytes.begin(), stored.bytes.end(), buffer.begin());
  return {reg::kErrorSuccess, stored.type, size};
}

int32_t FakeRegistry::CloseKey(RegHandle key) {
  closes_.push_back(key);
  return handles_.erase(key) == 1 ? reg::kErrorSuccess : reg::kErrorInvalidHandle;
}

}  // namespace vd::platform::testing
