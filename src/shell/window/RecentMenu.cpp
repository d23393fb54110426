#include "shell/window/RecentMenu.h"

#include <algorithm>
#include <system_error>

#include "text/DecimalText.h"
#include "text/PlatformFile.h"

namespace scrivanta {

namespace {

// In characters; what is in the middle of a longer path is left out.
constexpr std::size_t kLongestShown = 60;
constexpr std::u16string_view kLeftOut = u"……";

// For a menu, where "&" marks the access key.
std::u16string Shown(const std::filesystem::path& path) {
  std::u16string text = TextOfPath(path);
  if (text.size() > kLongestShown) {
    constexpr std::size_t kHalf = kLongestShown / 2;
    text = text.substr(0, kHalf) + std::u16string(kLeftOut) + text.substr(text.size() - kHalf);
  }
  for (std::size_t at = text.find(u'&'); at != std::u16string::npos; at = text.find(u'&', at + 2)) {
    text.insert(at, 1, u'&');
  }
  return text;
}

// Another computer may take seconds to answer, and a menu must not wait for it.
bool IsKnownToBeMissing(const std::filesystem::path& path) {
  std::error_code error;
  const bool isElsewhere = TextOfPath(path).starts_with(u"\\\\");
  return !isElsewhere && !std::filesystem::exists(path, error) && !error;
}

void OpenRecent(RecentDocuments& recent, DocumentFile& document, Prompts& prompts, const std::filesystem::path& path) {
  if (!IsKnownToBeMissing(path)) {
    document.OpenNamed(path);
  } else if (prompts.Ask({.text = u"文件不在了：\n" + TextOfPath(path) + u"\n是否从最近用过的文档中去掉？",
                          .buttons = Buttons::kYesNo,
                          .icon = Icon::kQuestion}) == Answer::kYes) {
    recent.Remove(path);
  }
}

}  // namespace

std::vector<MenuChoice> RecentChoices(RecentDocuments& recent, DocumentFile& document, Prompts& prompts) {
  const std::vector<RecentDocument> list = recent.List();
  if (list.empty()) {
    return {};
  }
  std::vector<MenuChoice> choices = {{.caption = u"-"}};
  for (std::size_t i = 0; i < list.size(); ++i) {
    const auto& [path, isPinned] = list[i];
    choices.push_back({.caption = u"&" + DecimalText((i + 1) % RecentDocuments::kMost) + u" " + Shown(path) +
                                  (isPinned ? u"（已固定）" : u"") +
                                  (IsKnownToBeMissing(path) ? u"（文件不在了）" : u""),
                       .run = [&recent, &document, &prompts, path] { OpenRecent(recent, document, prompts, path); }});
  }
  const auto own = std::ranges::find(list, document.Path(), &RecentDocument::path);
  const bool isPinned = own != list.end() && own->isPinned;
  choices.push_back({.caption = u"&K 固定这个文档",
                     .run = [&recent, path = document.Path(), isPinned] { recent.Pin(path, !isPinned); },
                     .isAvailable = own != list.end(),
                     .isChecked = isPinned});
  return choices;
}

}  // namespace scrivanta
