#include "printing/PageSetup.h"

#include <string>

#include "text/DecimalText.h"
#include "text/Numbers.h"

namespace scrivanta {

namespace {

constexpr int kWidestMargin = 100'000;  // a metre
constexpr int kHighestPaper = 32'767;

int ReadNumber(const Settings& settings, std::u16string_view key, int highest, int preset) {
  const auto text = settings.Find(key, Store::kRegistry, kWindowSection);
  const long long number = text && !text->empty() ? LeadingWholeNumber(*text) : preset;
  return number >= 0 && number <= highest ? static_cast<int>(number) : preset;
}

void SaveNumber(Settings& settings, std::u16string_view key, int number) {
  settings.Save(key, DecimalText(number), Store::kRegistry, kWindowSection);
}

}  // namespace

PageSetup ReadPageSetup(const Settings& settings) {
  const PageSetup preset;
  return {.margins = {.left = ReadNumber(settings, u"PrintMarginLeft", kWidestMargin, preset.margins.left),
                      .top = ReadNumber(settings, u"PrintMarginTop", kWidestMargin, preset.margins.top),
                      .right = ReadNumber(settings, u"PrintMarginRight", kWidestMargin, preset.margins.right),
                      .bottom = ReadNumber(settings, u"PrintMarginBottom", kWidestMargin, preset.margins.bottom)},
          .landscape = ReadNumber(settings, u"PrintLandscape", 1, 0) != 0,
          .paper = ReadNumber(settings, u"PrintPaper", kHighestPaper, preset.paper)};
}

void SavePageSetup(const PageSetup& setup, Settings& settings) {
  SaveNumber(settings, u"PrintMarginLeft", setup.margins.left);
  SaveNumber(settings, u"PrintMarginTop", setup.margins.top);
  SaveNumber(settings, u"PrintMarginRight", setup.margins.right);
  SaveNumber(settings, u"PrintMarginBottom", setup.margins.bottom);
  SaveNumber(settings, u"PrintLandscape", setup.landscape ? 1 : 0);
  SaveNumber(settings, u"PrintPaper", setup.paper);
}

}  // namespace scrivanta
