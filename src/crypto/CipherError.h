// What the cipher classes raise when they are used wrongly.
#pragma once

#include <stdexcept>
#include <string>

namespace scrivanta {

class CipherError : public std::runtime_error {
 public:
  CipherError(int number, const std::string& description) : std::runtime_error(description), number_(number) {}

  int number() const noexcept { return number_; }

 private:
  int number_;
};

}  // namespace scrivanta
