#pragma once
// The texts the simulated SCADA system understands: the request texts the
// component sends and the OPC item ids it generates.
#include <cstdint>
#include <optional>

#include "vd/automation/string.h"

namespace vd::sample::detail {

using automation::String;
using automation::StringView;

bool IsApplicationPathRequest(StringView request);

struct OffsetsRequest {
  String objectName;
  int32_t index = 0;
};
// #return do(BGU_CONTROL:CCP, ("<name>",<index>),"GET_OFFSETS")
std::optional<OffsetsRequest> ParseOffsetsRequest(StringView request);

struct ItemAddress {
  std::optional<int32_t> application;  // none for the application-free (B) form
  char16_t kind = u'B';
  String name;
  int32_t index = 0;
  String attribute;  // may be empty
};
std::optional<ItemAddress> ParseItemId(StringView itemId);

}  // namespace vd::sample::detail
