#include "shell/Options.h"

#include "text/PlatformFile.h"

namespace scrivanta {
namespace {

constexpr std::u16string_view kNoWrapping = u"LineReturn";
constexpr std::u16string_view kAllEnglish = u"AllEnglish";
constexpr std::u16string_view kDefaultFile = u"DefaultFile";
constexpr std::u16string_view kOn = u"1";
constexpr std::u16string_view kOff = u"0";

bool IsOn(const Settings& settings, std::u16string_view key) {
  return settings.Find(key, Store::kRegistry, kWindowSection).value_or(std::u16string(kOn)) == kOn;
}

}  // namespace

Options ReadOptions(const Settings& settings) {
  return {.noWrapping = IsOn(settings, kNoWrapping),
          .allEnglish = IsOn(settings, kAllEnglish),
          .defaultFile = PathOfText(settings.Get(kDefaultFile, Store::kRegistry, kWindowSection))};
}

void SaveOptions(const Options& options, Settings& settings) {
  settings.Save(kNoWrapping, options.noWrapping ? kOn : kOff, Store::kRegistry, kWindowSection);
  settings.Save(kAllEnglish, options.allEnglish ? kOn : kOff, Store::kRegistry, kWindowSection);
  settings.Save(kDefaultFile, TextOfPath(options.defaultFile), Store::kRegistry, kWindowSection);
}

void mnuOptions(Workbench& workbench, MainWindow& window, OptionsDialog& dialog) {
  if (const std::optional<Options> options = dialog.Ask(workbench, ReadOptions(workbench.settings()))) {
    SaveOptions(*options, workbench.settings());
    window.SetWordWrap(!options->noWrapping);
  }
}

void RegisterOptionsCommand(CommandTable& table, MainWindow& window, OptionsDialog& dialog) {
  table.Add("mnuOptions", {[&window, &dialog](Workbench& workbench) { mnuOptions(workbench, window, dialog); }});
}

}  // namespace scrivanta
