// A failure told in both languages of the program: English for the console (what()), Chinese for the message box.
#pragma once

#include <stdexcept>
#include <string>
#include <utility>

namespace scrivanta {

class ExplainedError : public std::runtime_error {
 public:
  ExplainedError(const std::string& english, std::u16string chinese)
      : std::runtime_error(english), chinese_(std::move(chinese)) {}

  // Whole sentences that say what failed and, where there is one, the way out.
  const std::u16string& chinese() const noexcept { return chinese_; }

 private:
  std::u16string chinese_;
};

}  // namespace scrivanta
