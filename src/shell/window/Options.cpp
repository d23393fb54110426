#include "shell/window/Options.h"

#include "text/PlatformFile.h"

namespace scrivanta {
namespace {

constexpr std::u16string_view kNoWrapping = u"LineReturn";
constexpr std::u16string_view kAllEnglish = u"AllEnglish";
constexpr std::u16string_view kDefaultFile = u"DefaultFile";
constexpr std::u16string_view kRegExpObject = u"RegExpObject";
constexpr std::u16string_view kDarkColours = u"DarkColours";  // absent: as the system has them
constexpr std::u16string_view kOn = u"1";
constexpr std::u16string_view kOff = u"0";

bool IsOn(const Settings& settings, std::u16string_view key, std::u16string_view otherwise) {
  return settings.Find(key, Store::kRegistry, kWindowSection).value_or(std::u16string(otherwise)) == kOn;
}

ColourChoice ReadColours(const Settings& settings) {
  const std::u16string text = settings.Get(kDarkColours, Store::kRegistry, kWindowSection);
  return text == kOn ? ColourChoice::kDark : text == kOff ? ColourChoice::kLight : ColourChoice::kLikeSystem;
}

std::u16string TextOf(ColourChoice colours) {
  return std::u16string(colours == ColourChoice::kDark    ? kOn
                        : colours == ColourChoice::kLight ? kOff
                                                          : std::u16string_view());
}

}  // namespace

Options ReadOptions(const Settings& settings) {
  return {.wraps = !IsOn(settings, kNoWrapping, kOn),
          .allEnglish = IsOn(settings, kAllEnglish, kOn),
          .usesRegExpObject = IsOn(settings, kRegExpObject, kOff),
          .defaultFile = PathOfText(settings.Get(kDefaultFile, Store::kRegistry, kWindowSection)),
          .colours = ReadColours(settings),
          .keys = {}};
}

void SaveOptions(const Options& options, Settings& settings) {
  const auto flag = [](bool on) { return std::u16string(on ? kOn : kOff); };
  settings.SaveAll({{std::u16string(kNoWrapping), flag(!options.wraps)},
                    {std::u16string(kAllEnglish), flag(options.allEnglish)},
                    {std::u16string(kRegExpObject), flag(options.usesRegExpObject)},
                    {std::u16string(kDefaultFile), TextOfPath(options.defaultFile)},
                    {std::u16string(kDarkColours), TextOf(options.colours)}},
                   Store::kRegistry, kWindowSection);
}

namespace {

void mnuOptions(Workbench& workbench, MainWindow& window, OptionsDialog& dialog) {
  Options present = ReadOptions(workbench.settings());
  present.keys = KeyMap(workbench.settings());
  if (const std::optional<Options> options = dialog.Ask(workbench, present)) {
    SaveOptions(*options, workbench.settings());
    window.SetWordWrap(options->wraps);
    window.SetColours(options->colours);
    options->keys.Save(workbench.settings());
    window.SetKeys(options->keys);
  }
}

}  // namespace

void RegisterOptionsCommand(CommandTable& table, MainWindow& window, OptionsDialog& dialog) {
  table.Add("mnuOptions", {[&window, &dialog](Workbench& workbench) { mnuOptions(workbench, window, dialog); }});
}

}  // namespace scrivanta
