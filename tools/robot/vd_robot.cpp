// The robot: drives the dialogs of another program with real window messages,
// step by step from a script (script/script_parser.h describes the steps).
//   vd_robot [--log FILE] SCRIPT
// Start it before the program under test opens its dialog; every step waits
// for what it needs within the timeout (30000 ms; the script's "timeout"
// step changes it). Prints one line per
// step and "robot: N steps passed, M failed"; with --log, also into FILE.
// Exit code 0 when every step passed, 1 when one failed, 2 for a bad command
// line or script.
#include <windows.h>

#include <shellapi.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "script_parser.h"
#include "step_runner.h"
#include "win32_desktop.h"

namespace {

constexpr uint32_t kDefaultTimeoutMs = 30000;
constexpr char kUsage[] = "usage: vd_robot [--log FILE] SCRIPT";

class TickClock final : public vd::robot::Clock {
 public:
  uint64_t Milliseconds() override { return GetTickCount64(); }
  void Pause() override { Sleep(10); }  // between two looks at the other program's windows
};

struct Options {
  std::wstring log;
  std::wstring script;
};

bool ParseOptions(const std::vector<std::wstring>& words, Options& options) {
  const bool logged = words.size() == 3 && words[0] == L"--log";
  if (words.size() != (logged ? 3u : 1u) || words.back().starts_with(L"--")) return false;
  if (logged) options.log = words[1];
  options.script = words.back();
  return true;
}

bool ReadFile(const std::wstring& path, std::string& text) {
  std::ifstream in(std::filesystem::path(path), std::ios::binary);
  if (!in) return false;
  text.assign(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
  if (text.starts_with("\xEF\xBB\xBF")) text.erase(0, 3);  // a byte order mark
  return true;
}

}  // namespace

int main() {
  int count = 0;
  LPWSTR* argv = CommandLineToArgvW(GetCommandLineW(), &count);
  const std::vector<std::wstring> words(argv + 1, argv + count);
  LocalFree(argv);

  Options options;
  if (!ParseOptions(words, options)) {
    std::puts(kUsage);
    return 2;
  }
  std::ofstream log;
  if (!options.log.empty()) log.open(std::filesystem::path(options.log), std::ios::binary | std::ios::trunc);
  const auto print = [&log](const std::string& line) {
    std::fputs((line + "\n").c_str(), stdout);
    std::fflush(stdout);
    if (log.is_open()) log << line << "\r\n" << std::flush;
  };

  std::string text;
  if (!ReadFile(options.script, text)) {
    print("robot: the script cannot be read");
    return 2;
  }
  const vd::robot::ParsedScript script = vd::robot::ParseScript(text);
  if (!script.errors.empty()) {
    for (const std::string& error : script.errors) print("robot: script " + error);
    print("robot: 0 steps passed, " + std::to_string(script.errors.size()) + " failed");
    return 2;
  }

  vd::win32::robot::Win32Desktop desktop;
  TickClock clock;
  vd::robot::StepRunner runner(desktop, clock, print, kDefaultTimeoutMs);
  return runner.Run(script.steps).Succeeded() ? 0 : 1;
}
