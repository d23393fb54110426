#include "regexp/ScrivantaRegExpObject.h"

#include <windows.h>

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "win/Automation.h"
#include "win/Handles.h"
#include "win/SystemFolders.h"

namespace scrivanta {

namespace {

constexpr wchar_t kProgId[] = L"vbscript.regexp";
constexpr wchar_t kLibrary[] = L"vbscript.dll";
// Milliseconds. It takes one or two seconds on a busy machine.
constexpr DWORD kLongestRegistration = 10'000;

class ScriptingRegExp final : public RegExpObject {
 public:
  explicit ScriptingRegExp(AutomationObject object) : object_(std::move(object)) {}

  void Execute(std::u16string_view pattern, RegExpOptions options, std::u16string_view text,
               const RegExpVisitor& visit) override {
    object_.Put(L"Pattern", AutomationValue(pattern));
    object_.Put(L"IgnoreCase", AutomationValue(options.ignoreCase));
    object_.Put(L"MultiLine", AutomationValue(options.multiLine));
    object_.Put(L"Global", AutomationValue(true));
    const AutomationObject matches(object_.Call(L"Execute", AutomationValue(text)));
    const long count = matches.Get(L"Count").Number();
    for (long i = 0; i < count; ++i) {
      if (!VisitMatch(AutomationObject(matches.Call(L"Item", AutomationValue(i))), text, visit)) {
        return;
      }
    }
  }

 private:
  static bool VisitMatch(const AutomationObject& found, std::u16string_view text, const RegExpVisitor& visit) {
    RegExpMatch match;
    match.start = static_cast<std::size_t>(found.Get(L"FirstIndex").Number());
    match.value = text.substr(match.start, found.Get(L"Value").Text().size());
    const AutomationObject subMatches(found.Get(L"SubMatches"));
    const long count = subMatches.Get(L"Count").Number();
    std::vector<std::optional<std::u16string>> groups;
    for (long i = 0; i < count; ++i) {
      const AutomationValue group = subMatches.Call(L"Item", AutomationValue(i));
      groups.push_back(group.isEmpty() ? std::nullopt : std::optional(group.Text()));
    }
    match.groups.assign(groups.begin(), groups.end());
    return visit(match);
  }

  AutomationObject object_;
};

}  // namespace

std::unique_ptr<RegExpObject> ScrivantaRegExpObjectSource::Create() {
  AutomationObject object = AutomationObject::Create(kProgId);
  return object.isNull() ? nullptr : std::make_unique<ScriptingRegExp>(std::move(object));
}

void ScrivantaRegExpObjectSource::Register() {
  const std::filesystem::path program = SystemProgram(u"regsvr32.exe");
  std::wstring command = L"regsvr32 /s " + (SystemFolder() / kLibrary).native();
  STARTUPINFOW startup{};
  startup.cb = sizeof(startup);
  startup.dwFlags = STARTF_USESHOWWINDOW;
  startup.wShowWindow = SW_SHOWMINIMIZED;
  PROCESS_INFORMATION started{};
  if (CreateProcessW(program.c_str(), command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup,
                     &started)) {
    const OwnedKernelObject thread(started.hThread);
    const OwnedKernelObject process(started.hProcess);
    WaitForSingleObject(started.hProcess, kLongestRegistration);
  }
}

}  // namespace scrivanta
