// The offsets request of the rescan: one KORL request per status colour
// variable, run in the application its item id names.
#include <exception>
#include <vector>

#include "scada/sa_data_sources.h"
#include "vd/automation/conversions.h"
#include "vd/automation/error.h"

namespace vd::scada::modSADataSources {
namespace {

constexpr int16_t kItemIdParam = 2;
constexpr int16_t kMappingCodeParam = 3;
constexpr int16_t kOffsetsParam = 4;
constexpr int32_t kSignalTypeBits = 15;
constexpr int32_t kStatusColor = 1;
// Parts of an item id after its leading "\\", split at "\".
constexpr size_t kApplicationPart = 1;
constexpr size_t kNamePart = 3;
constexpr size_t kIndexPart = 4;

template <class T>
T& Obj(const std::shared_ptr<T>& ref) {
  if (!ref) automation::Raise(automation::err::kObjectNotSet);
  return *ref;
}

// As Split(text, "\"): nothing for an empty text.
std::vector<String> SplitAtBackslash(const String& text) {
  std::vector<String> parts;
  if (text.empty()) return parts;
  size_t start = 0;
  for (;;) {
    const size_t slash = text.find(u'\\', start);
    parts.push_back(text.substr(start, slash == String::npos ? String::npos : slash - start));
    if (slash == String::npos) return parts;
    start = slash + 1;
  }
}

const String& Part(const std::vector<String>& parts, size_t index) {
  if (index >= parts.size()) automation::Raise(automation::err::kSubscriptOutOfRange);
  return parts[index];
}

}  // namespace

int16_t RunKorlRequestInApp(const toolkit::CommunicationRef& comm, int16_t applicationNr, const String& request,
                            Variant& result) noexcept {
  try {
    result = Variant();
    Obj(comm).ExecuteKorlInApp(applicationNr, request, result);
    return 0;
  } catch (...) {
    return 1;
  }
}

String OffsetsRequest(const String& objectName, int32_t index) {
  return String(u"#return do(") + kOffsetsControlObject + u", (\"" + objectName + u"\"," +
         automation::ToDecimal(index) + u"),\"GET_OFFSETS\")";
}

void UpdateDsvOffsets(const toolkit::CommunicationRef& comm, const toolkit::DsvRef& dsv) {
  if (!comm) return;
  const toolkit::CustomDsvRef custom = Obj(dsv).AsCustom();
  if (!custom) automation::Raise(automation::err::kTypeMismatch);
  const toolkit::ParamListRef params = custom->GetParams();
  for (int32_t k = Obj(params).ParamCount() + 1; k <= kOffsetsParam; ++k) params->AddParam();
  const int32_t code = automation::CLng(Obj(params->ParamItem(kMappingCodeParam)).GetParamValue());
  if ((code & kSignalTypeBits) != kStatusColor) return;

  // The item id is read before the trap: one that does not parse ends the whole rescan.
  const String itemId = automation::CStr(Obj(params->ParamItem(kItemIdParam)).GetParamValue());
  const std::vector<String> parts = SplitAtBackslash(itemId.size() > 2 ? itemId.substr(2) : String());
  const int16_t applicationNr = automation::CInt(Variant(Part(parts, kApplicationPart)));
  const String& name = Part(parts, kNamePart);
  String indexText = Part(parts, kIndexPart);
  if (const size_t colon = indexText.rfind(u':'); colon != String::npos) indexText.erase(colon);
  const int32_t index = automation::CLng(Variant(indexText));

  try {
    Variant result;
    String offsets;
    if (RunKorlRequestInApp(comm, applicationNr, OffsetsRequest(name, index), result) == 0) {
      // A number is a status, never offsets.
      if (result.Type() != automation::VarType::kLong) offsets = automation::CStr(result);
      if (offsets.empty()) offsets = kNoOffsets;
    }
    Obj(params->ParamItem(kOffsetsParam)).SetParamValue(toolkit::paramtype::kText, offsets);
  } catch (const std::exception&) {
    // Ends the work on this variable without a message.
  }
}

}  // namespace vd::scada::modSADataSources
