#include "shell/workbench/DialogPlace.h"

#include <algorithm>
#include <string>

#include "shell/workbench/FormKey.h"
#include "text/DecimalText.h"
#include "text/Numbers.h"

namespace scrivanta {

namespace {

constexpr std::u16string_view kLeft = u"Left";
constexpr std::u16string_view kTop = u"Top";
constexpr long long kFarthest = 1'000'000;  // twips: some 17 metres

int Twips(std::u16string_view text) {
  return static_cast<int>(std::clamp(LeadingWholeNumber(text), -kFarthest, kFarthest));
}

}  // namespace

std::optional<DialogPlace> ReadDialogPlace(const Settings& settings, std::u16string_view form) {
  const auto left = settings.Find(FormKey(form, kLeft));
  const auto top = settings.Find(FormKey(form, kTop));
  return left && top ? std::optional(DialogPlace{Twips(*left), Twips(*top)}) : std::nullopt;
}

void SaveDialogPlace(Settings& settings, std::u16string_view form, const DialogPlace& place) {
  settings.Save(FormKey(form, kLeft), DecimalText(place.left));
  settings.Save(FormKey(form, kTop), DecimalText(place.top));
}

}  // namespace scrivanta
