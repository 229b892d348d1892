#include "vd/sample/simulated_scada.h"

#include <algorithm>

#include "scada_texts.h"
#include "vd/automation/error.h"
#include "vd/automation/text.h"

namespace vd::sample {

using automation::Raise;
using automation::ToDecimal;
using automation::UCase;

namespace {

char16_t UpperLetter(char16_t c) { return UCase(String(1, c)).front(); }

String WithTrailingSeparator(String directory) {
  if (directory.empty() || (directory.back() != u'/' && directory.back() != u'\\')) directory += kPathSeparator;
  return directory;
}

[[noreturn]] void RaiseUnknownItem(const String& itemId, const String& why) {
  Raise(scada_err::kUnknownItem, u"Item " + itemId + u": " + why);
}

}  // namespace

// --- the communication interface ---

void SimulatedScada::GetApplications(Variant& names, Variant& numbers) {
  Enter(ScadaCall::kGetApplications, 0, String());
  automation::Array nameArray;
  automation::Array numberArray;
  for (const auto& application : applications_) {
    nameArray.items.emplace_back(application.name);
    numberArray.items.emplace_back(application.number);
  }
  names = Variant(std::move(nameArray));
  numbers = Variant(std::move(numberArray));
}

void SimulatedScada::ExecuteKorl(const String& request, Variant& result) {
  Enter(ScadaCall::kExecuteKorl, current_, request);
  result = Run(current_, request);
}

void SimulatedScada::ExecuteKorlInApp(int16_t applicationNr, const String& request, Variant& result) {
  Enter(ScadaCall::kExecuteKorlInApp, applicationNr, request);
  result = Run(applicationNr, request);
}

void SimulatedScada::ScriptFileChanged(const String& path) {
  Enter(ScadaCall::kScriptFileChanged, 0, path);
  notices_.push_back(path);
}

void SimulatedScada::ValidateItem(const String& itemId, Variant& value) {
  Enter(ScadaCall::kValidateItem, 0, itemId);
  auto address = detail::ParseItemId(itemId);
  if (!address) RaiseUnknownItem(itemId, u"not an item id");
  if (address->attribute.empty()) RaiseUnknownItem(itemId, u"names no attribute");
  int32_t application = 0;
  if (address->application) {
    application = *address->application;
    Application(application);  // raises for an unknown application
  }
  auto found = objectIndex_.find(ObjectKey{application, address->name, address->kind, address->index});
  if (found == objectIndex_.end()) RaiseUnknownItem(itemId, u"no such object");
  const auto& attributes = objects_[found->second].attributes;
  auto attribute = std::find_if(attributes.begin(), attributes.end(), [&](const ScadaAttribute& a) {
    return automation::EqualsIgnoreCase(a.name, address->attribute);
  });
  if (attribute == attributes.end()) RaiseUnknownItem(itemId, u"no attribute " + address->attribute);
  value = attribute->value;
}

// --- requests ---

Variant SimulatedScada::Run(int32_t application, const String& request) const {
  const ScadaApplication& app = Application(application);
  if (auto answer = answers_.find(request); answer != answers_.end()) return answer->second;
  if (detail::IsApplicationPathRequest(request)) {
    const String listed = WithTrailingSeparator(app.directory) + u"APL" + kPathSeparator;  // path("APL_")(1)
    return Variant(listed.substr(0, listed.size() - 4));
  }
  if (auto offsets = detail::ParseOffsetsRequest(request))
    return Offsets(application, offsets->objectName, offsets->index);
  const String firstLine = request.substr(0, request.find(u'\n'));
  Raise(scada_err::kRequestNotUnderstood, u"KORL request not understood: " + firstLine);
}

Variant SimulatedScada::Offsets(int32_t application, const String& name, int32_t index) const {
  auto found = offsetsIndex_.find(OffsetsKey{application, UCase(name), index});
  if (found == offsetsIndex_.end()) return Variant(kOffsetsUnknownObject);
  const ScadaObject& object = objects_[found->second];
  if (object.offsetsFail) Raise(scada_err::kInjectedFault, u"The offsets of " + object.name + u" cannot be read");
  if (object.offsetsStatus) return Variant(*object.offsetsStatus);
  return Variant(object.offsets.value_or(String()));
}

const ScadaApplication& SimulatedScada::Application(int32_t number) const {
  auto found = std::find_if(applications_.begin(), applications_.end(),
                            [number](const ScadaApplication& a) { return a.number == number; });
  if (found == applications_.end()) {
    Raise(scada_err::kUnknownApplication, u"Application " + ToDecimal(number) + u" does not exist");
  }
  return *found;
}

void SimulatedScada::Enter(ScadaCall call, int32_t application, const String& text) {
  calls_.push_back(ScadaCallRecord{call, application, text});
  if (down_) Raise(scada_err::kSystemDown, u"The SCADA system is not running");
  if (std::find(failing_.begin(), failing_.end(), call) != failing_.end()) {
    Raise(scada_err::kInjectedFault, u"The SCADA system failed the call");
  }
}

// --- configuration, faults and log ---

void SimulatedScada::AddApplication(ScadaApplication application) {
  const int32_t number = application.number;
  if (std::any_of(applications_.begin(), applications_.end(),
                  [number](const ScadaApplication& a) { return a.number == number; })) {
    Raise(automation::err::kKeyAlreadyInCollection, u"Application " + ToDecimal(number) + u" exists already");
  }
  applications_.push_back(std::move(application));
  if (!chosenCurrent_ && applications_.size() == 1) current_ = number;
}

void SimulatedScada::AddObject(ScadaObject object) {
  object.kind = UpperLetter(object.kind);
  if (object.kind == u'B') object.application = 0;
  const String name = UCase(object.name);
  const ObjectKey key{object.application, name, object.kind, object.index};
  if (objectIndex_.contains(key)) {
    Raise(automation::err::kKeyAlreadyInCollection, u"Object " + object.name + u" (" + String(1, object.kind) +
                                                        u", index " + ToDecimal(object.index) + u") exists already");
  }
  objectIndex_.emplace(key, objects_.size());
  offsetsIndex_.emplace(OffsetsKey{object.application, name, object.index}, objects_.size());  // first one wins
  objects_.push_back(std::move(object));
}

void SimulatedScada::SetAttribute(int32_t application, const String& name, char16_t kind, int32_t index,
                                  const String& attribute, Variant value) {
  kind = UpperLetter(kind);
  if (kind == u'B') application = 0;
  auto found = objectIndex_.find(ObjectKey{application, UCase(name), kind, index});
  if (found == objectIndex_.end()) {
    Raise(automation::err::kInvalidProcedureCall, u"Object " + name + u" is not in the object table");
  }
  auto& attributes = objects_[found->second].attributes;
  auto existing = std::find_if(attributes.begin(), attributes.end(), [&](const ScadaAttribute& a) {
    return automation::EqualsIgnoreCase(a.name, attribute);
  });
  if (existing != attributes.end()) {
    existing->value = std::move(value);
  } else {
    attributes.push_back(ScadaAttribute{attribute, std::move(value)});
  }
}

void SimulatedScada::SetCurrentApplication(int32_t number) {
  chosenCurrent_ = number;
  current_ = number;
}

void SimulatedScada::SetApplicationDirectory(int32_t number, String directory) {
  auto found = std::find_if(applications_.begin(), applications_.end(),
                            [number](const ScadaApplication& a) { return a.number == number; });
  if (found == applications_.end()) {
    Raise(automation::err::kInvalidProcedureCall, u"Application " + ToDecimal(number) + u" does not exist");
  }
  found->directory = std::move(directory);
}

void SimulatedScada::SetAnswer(const String& request, Variant answer) { answers_[request] = std::move(answer); }

void SimulatedScada::SetCallFails(ScadaCall call, bool fails) {
  std::erase(failing_, call);
  if (fails) failing_.push_back(call);
}

void SimulatedScada::ClearLog() {
  notices_.clear();
  calls_.clear();
}

}  // namespace vd::sample
