#include "window/driver/Keyboard.h"

#include <algorithm>
#include <cctype>
#include <map>
#include <string>
#include <vector>

#include "window/driver/Wait.h"

namespace scrivanta {

namespace {

// The keys that the number pad has too, without it.
bool IsExtended(WORD virtualKey) {
  return (virtualKey >= VK_PRIOR && virtualKey <= VK_DOWN) || virtualKey == VK_INSERT || virtualKey == VK_DELETE;
}

INPUT Key(WORD virtualKey, bool up) {
  INPUT input{};
  input.type = INPUT_KEYBOARD;
  input.ki.wVk = virtualKey;
  input.ki.wScan = static_cast<WORD>(MapVirtualKeyW(virtualKey, MAPVK_VK_TO_VSC));
  input.ki.dwFlags = (up ? KEYEVENTF_KEYUP : 0U) | (IsExtended(virtualKey) ? KEYEVENTF_EXTENDEDKEY : 0U);
  return input;
}

void Enter(std::vector<INPUT>& inputs) {
  SendInput(static_cast<UINT>(inputs.size()), inputs.data(), sizeof(INPUT));
}

WORD VirtualKey(std::string_view name) {
  static const std::map<std::string_view, WORD> kNames = {
      {"Ctrl", VK_CONTROL},  {"Shift", VK_SHIFT},   {"Alt", VK_MENU},  {"Tab", VK_TAB},   {"Enter", VK_RETURN},
      {"Esc", VK_ESCAPE},    {"Delete", VK_DELETE}, {"Back", VK_BACK}, {"Home", VK_HOME}, {"End", VK_END},
      {"Left", VK_LEFT},     {"Right", VK_RIGHT},   {"Up", VK_UP},     {"Down", VK_DOWN}, {"Space", VK_SPACE},
      {"Insert", VK_INSERT}, {";", VK_OEM_1},       {"F1", VK_F1},     {"F2", VK_F2},     {"F3", VK_F3},
      {"F4", VK_F4},
  };
  if (const auto found = kNames.find(name); found != kNames.end()) {
    return found->second;
  }
  if (name.size() == 1 && std::isalnum(static_cast<unsigned char>(name.front())) != 0) {
    return static_cast<WORD>(std::toupper(static_cast<unsigned char>(name.front())));
  }
  throw DriverFailure("no key of this name: " + std::string(name));
}

}  // namespace

void PressKey(WORD virtualKey) {
  std::vector<INPUT> inputs = {Key(virtualKey, false), Key(virtualKey, true)};
  Enter(inputs);
}

void ReleaseKey(WORD virtualKey) {
  std::vector<INPUT> inputs = {Key(virtualKey, true)};
  Enter(inputs);
}

void PressKeys(std::string_view keys) {
  std::vector<WORD> pressed;
  for (std::size_t begin = 0; begin <= keys.size();) {
    const std::size_t end = std::min(keys.find('+', begin), keys.size());
    pressed.push_back(VirtualKey(keys.substr(begin, end - begin)));
    begin = end + 1;
  }
  std::vector<INPUT> inputs;
  for (const WORD key : pressed) {
    inputs.push_back(Key(key, false));
  }
  for (auto key = pressed.rbegin(); key != pressed.rend(); ++key) {
    inputs.push_back(Key(*key, true));
  }
  Enter(inputs);
}

void TypeText(std::u16string_view text) {
  std::vector<INPUT> inputs;
  for (const char16_t character : text) {
    for (const bool up : {false, true}) {
      INPUT input{};
      input.type = INPUT_KEYBOARD;
      input.ki.wScan = character;
      input.ki.dwFlags = KEYEVENTF_UNICODE | (up ? KEYEVENTF_KEYUP : 0U);
      inputs.push_back(input);
    }
  }
  Enter(inputs);
}

}  // namespace scrivanta
