#include "lines/LineStore.h"

namespace scrivanta {

LineStore::LineStore(LineReader& in, std::optional<std::uint64_t> size) {
  bytes_.reserve(static_cast<std::size_t>(size.value_or(0)));
  while (in.Next()) {
    bytes_ += in.line();
    ends_.push_back(bytes_.size());
  }
}

}  // namespace scrivanta
