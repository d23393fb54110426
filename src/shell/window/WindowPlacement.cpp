#include "shell/window/WindowPlacement.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <optional>
#include <string>

#include "text/DecimalText.h"

namespace scrivanta {

namespace {

constexpr double kFarthest = 1'000'000;  // twips: some 17 metres
constexpr double kSmallest = 1'500;      // twips: an inch
constexpr int kCaptionHeight = 300;      // twips
constexpr int kCaptionGrip = 600;        // twips

// The whole text as a number; blanks around it do no harm.
std::optional<double> ParseNumber(std::u16string_view text) {
  std::string digits(text.size(), ' ');
  std::ranges::transform(text, digits.begin(), [](char16_t c) { return c < 0x80 ? static_cast<char>(c) : '?'; });
  const std::size_t begin = digits.find_first_not_of(' ');
  if (begin == std::string::npos) {
    return std::nullopt;
  }
  const char* const last = digits.data() + digits.find_last_not_of(' ') + 1;
  double number = 0;
  const auto [end, error] = std::from_chars(digits.data() + begin, last, number);
  return error == std::errc() && end == last && std::isfinite(number) ? std::optional(number) : std::nullopt;
}

int ReadTwips(const Settings& settings, std::u16string_view key, double least, int preset) {
  const std::optional<double> number = ParseNumber(settings.Get(key, Store::kRegistry, kWindowSection));
  return number && *number >= least && *number <= kFarthest ? static_cast<int>(std::lround(*number)) : preset;
}

void SaveTwips(Settings& settings, std::u16string_view key, int twips) {
  settings.Save(key, DecimalText(twips), Store::kRegistry, kWindowSection);
}

bool HoldsCaption(const TwipRect& area, const TwipRect& window) {
  const int shownWidth =
      std::min(area.left + area.width, window.left + window.width) - std::max(area.left, window.left);
  return shownWidth >= kCaptionGrip && window.top >= area.top && window.top + kCaptionHeight <= area.top + area.height;
}

}  // namespace

TwipRect ReadPlacement(const Settings& settings) {
  return {ReadTwips(settings, u"MainLeft", -kFarthest, kDefaultPlacement.left),
          ReadTwips(settings, u"MainTop", -kFarthest, kDefaultPlacement.top),
          ReadTwips(settings, u"MainWidth", kSmallest, kDefaultPlacement.width),
          ReadTwips(settings, u"MainHeight", kSmallest, kDefaultPlacement.height)};
}

void SavePlacement(Settings& settings, const TwipRect& placement) {
  SaveTwips(settings, u"MainLeft", placement.left);
  SaveTwips(settings, u"MainTop", placement.top);
  SaveTwips(settings, u"MainWidth", placement.width);
  SaveTwips(settings, u"MainHeight", placement.height);
}

std::optional<TwipRect> ReadPlacementBeforeMaximising(const Settings& settings) {
  if (settings.Get(u"MainMaximised", Store::kRegistry, kWindowSection) != u"1") {
    return std::nullopt;
  }
  return TwipRect{ReadTwips(settings, u"NormalLeft", -kFarthest, kDefaultPlacement.left),
                  ReadTwips(settings, u"NormalTop", -kFarthest, kDefaultPlacement.top),
                  ReadTwips(settings, u"NormalWidth", kSmallest, kDefaultPlacement.width),
                  ReadTwips(settings, u"NormalHeight", kSmallest, kDefaultPlacement.height)};
}

void SavePlacementBeforeMaximising(Settings& settings, const std::optional<TwipRect>& placement) {
  SaveTwips(settings, u"MainMaximised", placement ? 1 : 0);
  if (placement) {
    SaveTwips(settings, u"NormalLeft", placement->left);
    SaveTwips(settings, u"NormalTop", placement->top);
    SaveTwips(settings, u"NormalWidth", placement->width);
    SaveTwips(settings, u"NormalHeight", placement->height);
  }
}

TwipRect FitPlacement(const TwipRect& placement, std::span<const TwipRect> workAreas) {
  const bool isSeen =
      std::ranges::any_of(workAreas, [&placement](const TwipRect& area) { return HoldsCaption(area, placement); });
  TwipRect fitted = placement;
  if (!isSeen && !workAreas.empty()) {
    fitted.left = workAreas.front().left;
    fitted.top = workAreas.front().top;
  }
  return fitted;
}

}  // namespace scrivanta
