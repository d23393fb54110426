// Cards 2.1 as phones take them: plain ASCII where that will do, else QUOTED-PRINTABLE in UTF-8.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "contacts/CardProperty.h"
#include "text/LineWriter.h"

namespace scrivanta {

// A property on one line that a person can read: UTF-8 as it stands where the value allows it. CardParser gives the
// same parts again.
std::string ReadableProperty(const std::string& head, const std::vector<std::string>& parts);

class CardWriter {
 public:
  explicit CardWriter(ByteSink& sink) : out_(sink) {}

  void Begin();
  void End();
  // The head is name and parameters without an encoding; the parts are UTF-8, a value without parts being one.
  void WriteText(const std::string& head, const std::vector<std::string>& parts);
  // A property as it stood in its card: nothing of it changes but the soft breaks.
  void WriteAsItStood(const CardProperty& property);
  void WriteLine(std::string_view line) { out_.WriteLine(line); }
  // To be called at the end of a successful work.
  void Flush() { out_.Flush(); }

 private:
  LineWriter out_;
};

}  // namespace scrivanta
