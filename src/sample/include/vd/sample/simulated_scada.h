#pragma once
// A simulated SCADA system behind the communication interface: applications
// with their directories, an object table, answers to the request texts the
// component sends, item validation, a log of what was asked, and fault
// switches for tests.
//
// Requests (ExecuteKorl runs in the current application, ExecuteKorlInApp in
// the given one; both raise kUnknownApplication for a number the system does
// not have):
// - The application path request (three lines joined by LF:
//   @path1=path("APL_") / @path1 =%path1(1) /
//   #return substr(%path1,1,length(%path1)-4)). path("APL_") lists
//   "<directory><sep>APL<sep>" first; the substr drops its last four
//   characters, so the answer is the application's directory with one trailing
//   separator. The separator is kPathSeparator: "\" on Windows, "/" elsewhere,
//   so that the answer names a real directory on the machine the code runs on.
// - The offsets request
//   #return do(BGU_CONTROL:CCP, ("<name>",<index>),"GET_OFFSETS") answers the
//   offsets text of the object with that logical name and index in the
//   application (any kind letter, first in table order); "" when that object
//   has no offsets; the Long kOffsetsUnknownObject when there is no such object;
//   the object's own status (a Long) when it has one; it raises
//   kInjectedFault for an object whose offsets cannot be read.
// - A text registered with SetAnswer gets its registered answer.
// - Any other text raises kRequestNotUnderstood.
//
// Item ids (ValidateItem): "\\APL\<app>\<K>\<LN>[\<index>][:<attr>[(<index>)]]"
// and the application-free form "\\<LN>[\<digits>][:<attr>]" (kind B). The
// value answered is the named attribute of the matching object (logical name,
// kind and attribute compared ignoring case; index 0 = none). An id that does
// not parse, names no attribute, or names no object or attribute of the table
// raises kUnknownItem; an unknown application kUnknownApplication.
//
// Faults: with the system down every call raises kSystemDown; a call switched
// to fail raises kInjectedFault. Every call is logged before it is answered,
// also one that then fails.
#include <cstdint>
#include <map>
#include <optional>
#include <tuple>
#include <vector>

#include "vd/automation/string.h"
#include "vd/automation/variant.h"
#include "vd/toolkit/communication.h"

namespace vd::sample {

using automation::String;
using automation::Variant;

// Error numbers of the simulated system: its own errors as vbObjectError + n,
// as a COM server's errors reach an Automation client; "server unavailable"
// when it is down.
namespace scada_err {
inline constexpr int32_t kObjectErrorBase = static_cast<int32_t>(0x80040000u);
inline constexpr int32_t kSystemDown = static_cast<int32_t>(0x800706BAu);
inline constexpr int32_t kUnknownApplication = kObjectErrorBase + 1001;
inline constexpr int32_t kRequestNotUnderstood = kObjectErrorBase + 1002;
inline constexpr int32_t kUnknownItem = kObjectErrorBase + 1003;
inline constexpr int32_t kInjectedFault = kObjectErrorBase + 1004;
}  // namespace scada_err

// The status (a Long) that the offsets request answers for an unknown object.
inline constexpr int32_t kOffsetsUnknownObject = 2;

#ifdef _WIN32
inline constexpr char16_t kPathSeparator = u'\\';
#else
inline constexpr char16_t kPathSeparator = u'/';
#endif

struct ScadaApplication {
  int32_t number = 0;
  String name;
  String directory;  // on disk; a trailing separator is optional
};

struct ScadaAttribute {
  String name;
  Variant value;
};

struct ScadaObject {
  int32_t application = 0;  // always 0 for kind B, which belongs to no application
  String name;              // logical name
  char16_t kind = u'P';     // object kind letter, upper case
  int32_t index = 0;        // 0: the object has no index
  std::vector<ScadaAttribute> attributes;
  std::optional<String> offsets;                        // the offsets request's answer
  std::optional<int32_t> offsetsStatus = std::nullopt;  // a status (Long) answered instead of offsets text
  bool offsetsFail = false;                             // the offsets request raises kInjectedFault
};

enum class ScadaCall { kGetApplications, kExecuteKorl, kScriptFileChanged, kExecuteKorlInApp, kValidateItem };

struct ScadaCallRecord {
  ScadaCall call;
  int32_t application;  // the application a request ran in (current one for ExecuteKorl); else 0
  String text;          // request text, item id or script path; empty for GetApplications
};

class SimulatedScada final : public toolkit::Communication {
 public:
  void GetApplications(Variant& names, Variant& numbers) override;
  void ExecuteKorl(const String& request, Variant& result) override;
  void ScriptFileChanged(const String& path) override;
  void ExecuteKorlInApp(int16_t applicationNr, const String& request, Variant& result) override;
  void ValidateItem(const String& itemId, Variant& value) override;

  // Configuration. Duplicates (an application number; an object's application,
  // name, kind and index) raise error 457. The first application added becomes
  // the current one unless one was chosen.
  void AddApplication(ScadaApplication application);
  void AddObject(ScadaObject object);
  // Changes one attribute's value (adds the attribute when missing); error 5
  // when the object is not in the table.
  void SetAttribute(int32_t application, const String& name, char16_t kind, int32_t index, const String& attribute,
                    Variant value);
  void SetCurrentApplication(int32_t number);
  // Moves an application to another directory; error 5 for an unknown number.
  void SetApplicationDirectory(int32_t number, String directory);
  [[nodiscard]] int32_t CurrentApplication() const { return current_; }
  void SetAnswer(const String& request, Variant answer);
  [[nodiscard]] const std::vector<ScadaApplication>& Applications() const { return applications_; }
  [[nodiscard]] const std::vector<ScadaObject>& Objects() const { return objects_; }

  // Faults.
  void SetSystemDown(bool down) { down_ = down; }
  void SetCallFails(ScadaCall call, bool fails);

  // What the component asked.
  [[nodiscard]] const std::vector<String>& ScriptFileNotices() const { return notices_; }
  [[nodiscard]] const std::vector<ScadaCallRecord>& Calls() const { return calls_; }
  void ClearLog();

 private:
  using ObjectKey = std::tuple<int32_t, String, char16_t, int32_t>;  // application, upper-case name, kind, index
  using OffsetsKey = std::tuple<int32_t, String, int32_t>;           // application, upper-case name, index

  void Enter(ScadaCall call, int32_t application, const String& text);
  const ScadaApplication& Application(int32_t number) const;
  Variant Run(int32_t application, const String& request) const;
  Variant Offsets(int32_t application, const String& name, int32_t index) const;

  std::vector<ScadaApplication> applications_;
  std::vector<ScadaObject> objects_;
  std::map<ObjectKey, size_t> objectIndex_;
  std::map<OffsetsKey, size_t> offsetsIndex_;
  std::map<String, Variant> answers_;
  std::optional<int32_t> chosenCurrent_;
  int32_t current_ = 0;
  bool down_ = false;
  std::vector<ScadaCall> failing_;
  std::vector<String> notices_;
  std::vector<ScadaCallRecord> calls_;
};

}  // namespace vd::sample
