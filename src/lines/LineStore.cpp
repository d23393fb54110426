#include "lines/LineStore.h"

namespace scrivanta {

LineStore::LineStore(LineReader& in) {
  bytes_.reserve(static_cast<std::size_t>(in.sourceSize().value_or(0)));
  while (in.Next()) {
    bytes_ += in.line();
    ends_.push_back(bytes_.size());
  }
}

}  // namespace scrivanta
