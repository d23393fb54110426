// The base of a class that others implement: it is neither copied nor moved, and deleted through its own type.
#pragma once

namespace scrivanta {

class Interface {
 public:
  Interface() = default;
  Interface(const Interface&) = delete;
  Interface& operator=(const Interface&) = delete;
  virtual ~Interface() = default;
};

}  // namespace scrivanta
