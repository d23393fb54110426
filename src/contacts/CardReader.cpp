#include "contacts/CardReader.h"

namespace scrivanta {

std::optional<Card> CardReader::Next() {
  for (;;) {
    if (std::optional<Card> card = parser_.Next()) {
      return card;
    }
    if (atEnd_) {
      return std::nullopt;
    }
    if (lines_.Next()) {
      parser_.TakeLine(lines_.line(), lines_.number());
    } else {
      parser_.End();
      atEnd_ = true;
    }
  }
}

}  // namespace scrivanta
