#include "system/folders/ScrivantaShortcuts.h"

#include <windows.h>

#include <shlobj.h>
#include <shobjidl.h>

#include <array>
#include <memory>
#include <system_error>

#include <objidl.h>

#include "text/Bytes.h"
#include "text/win/WideText.h"

namespace scrivanta {

namespace {

struct ReleaseInterface {
  void operator()(IUnknown* object) const noexcept { object->Release(); }
};
template <typename Interface>
using Owned = std::unique_ptr<Interface, ReleaseInterface>;

// The texts of a shortcut are longer than paths when they are arguments.
constexpr int kLongest = 2 * INFOTIPSIZE;
using Text = std::array<wchar_t, kLongest>;

void Check(HRESULT result, const std::filesystem::path& file) {
  if (FAILED(result)) {
    constexpr HRESULT kWin32 = 0xFFFF;
    const bool isWin32 = HRESULT_FACILITY(result) == FACILITY_WIN32;
    throw FileError(file, isWin32 ? std::error_code(static_cast<int>(result & kWin32), std::system_category())
                                  : std::make_error_code(std::errc::invalid_argument));
  }
}

// A link object, with what the file says when there is one.
class Link {
 public:
  explicit Link(const std::filesystem::path& file) : file_(file) {
    IShellLinkW* link = nullptr;
    Check(CoCreateInstance(CLSID_ShellLink, nullptr, CLSCTX_INPROC_SERVER, IID_IShellLinkW,
                           reinterpret_cast<void**>(&link)),
          file_);
    link_.reset(link);
    IPersistFile* persist = nullptr;
    Check(link->QueryInterface(IID_IPersistFile, reinterpret_cast<void**>(&persist)), file_);
    persist_.reset(persist);
  }

  IShellLinkW* operator->() const { return link_.get(); }
  void Load() const { Check(persist_->Load(file_.c_str(), STGM_READ | STGM_SHARE_DENY_NONE), file_); }
  void Save() const { Check(persist_->Save(file_.c_str(), TRUE), file_); }

 private:
  const std::filesystem::path& file_;
  Owned<IShellLinkW> link_;
  Owned<IPersistFile> persist_;
};

struct NamedFolder {
  const KNOWNFOLDERID* id;
  const char16_t* name;
};

const std::array kNamedFolders = {NamedFolder{&FOLDERID_Desktop, u"桌面"},
                                  NamedFolder{&FOLDERID_Documents, u"文档"},
                                  NamedFolder{&FOLDERID_Downloads, u"下载"},
                                  NamedFolder{&FOLDERID_Pictures, u"图片"},
                                  NamedFolder{&FOLDERID_Music, u"音乐"},
                                  NamedFolder{&FOLDERID_Videos, u"视频"},
                                  NamedFolder{&FOLDERID_Favorites, u"收藏夹"},
                                  NamedFolder{&FOLDERID_Profile, u"用户文件夹"},
                                  NamedFolder{&FOLDERID_StartMenu, u"开始菜单"},
                                  NamedFolder{&FOLDERID_Programs, u"开始菜单的程序"},
                                  NamedFolder{&FOLDERID_Startup, u"启动"},
                                  NamedFolder{&FOLDERID_SendTo, u"发送到"},
                                  NamedFolder{&FOLDERID_Recent, u"最近使用的文档"},
                                  NamedFolder{&FOLDERID_QuickLaunch, u"快速启动"},
                                  NamedFolder{&FOLDERID_Templates, u"模板"},
                                  NamedFolder{&FOLDERID_RoamingAppData, u"应用程序数据（漫游）"},
                                  NamedFolder{&FOLDERID_LocalAppData, u"应用程序数据（本机）"},
                                  NamedFolder{&FOLDERID_LocalAppDataLow, u"应用程序数据（低权限）"},
                                  NamedFolder{&FOLDERID_InternetCache, u"网页缓存"},
                                  NamedFolder{&FOLDERID_Cookies, u"网页Cookie"},
                                  NamedFolder{&FOLDERID_History, u"网页历史"},
                                  NamedFolder{&FOLDERID_PublicDesktop, u"公用桌面"},
                                  NamedFolder{&FOLDERID_PublicDocuments, u"公用文档"},
                                  NamedFolder{&FOLDERID_CommonStartMenu, u"所有用户的开始菜单"},
                                  NamedFolder{&FOLDERID_CommonPrograms, u"所有用户的程序"},
                                  NamedFolder{&FOLDERID_CommonStartup, u"所有用户的启动"},
                                  NamedFolder{&FOLDERID_ProgramData, u"所有用户的应用程序数据"},
                                  NamedFolder{&FOLDERID_ProgramFiles, u"程序文件"},
                                  NamedFolder{&FOLDERID_ProgramFilesX86, u"程序文件（32位）"},
                                  NamedFolder{&FOLDERID_ProgramFilesCommon, u"公用程序文件"},
                                  NamedFolder{&FOLDERID_Windows, u"Windows文件夹"},
                                  NamedFolder{&FOLDERID_System, u"系统文件夹"},
                                  NamedFolder{&FOLDERID_SystemX86, u"系统文件夹（32位）"},
                                  NamedFolder{&FOLDERID_Fonts, u"字体"}};

}  // namespace

Shortcut ScrivantaShortcuts::Read(const std::filesystem::path& file) const {
  const Link link(file);
  link.Load();
  Shortcut shortcut;
  Text text{};
  const auto taken = [&text] { return FromWide(text.data()); };
  if (link->GetPath(text.data(), kLongest, nullptr, SLGP_RAWPATH) == S_OK) {
    shortcut.target = taken();
  }
  Check(link->GetArguments(text.data(), kLongest), file);
  shortcut.arguments = taken();
  Check(link->GetWorkingDirectory(text.data(), kLongest), file);
  shortcut.folder = taken();
  Check(link->GetIconLocation(text.data(), kLongest, &shortcut.iconIndex), file);
  shortcut.iconFile = taken();
  Check(link->GetDescription(text.data(), kLongest), file);
  shortcut.description = taken();
  WORD hotKey = 0;
  Check(link->GetHotkey(&hotKey), file);
  shortcut.hotKey = hotKey;
  int window = 0;
  Check(link->GetShowCmd(&window), file);
  shortcut.window = static_cast<ShortcutWindow>(window);
  return shortcut;
}

void ScrivantaShortcuts::Write(const std::filesystem::path& file, const Shortcut& shortcut) const {
  const Link link(file);
  std::error_code error;
  const bool isThere = std::filesystem::exists(file, error);
  if (isThere) {
    link.Load();
  }
  // What stays is not set: a target that is written is looked up anew.
  const Shortcut old = isThere ? Read(file) : Shortcut();
  if (!isThere || old.target != shortcut.target) {
    Check(link->SetPath(ToWide(shortcut.target).c_str()), file);
  }
  Check(link->SetArguments(ToWide(shortcut.arguments).c_str()), file);
  Check(link->SetWorkingDirectory(ToWide(shortcut.folder).c_str()), file);
  Check(link->SetIconLocation(ToWide(shortcut.iconFile).c_str(), shortcut.iconIndex), file);
  Check(link->SetDescription(ToWide(shortcut.description).c_str()), file);
  Check(link->SetHotkey(shortcut.hotKey), file);
  Check(link->SetShowCmd(static_cast<int>(shortcut.window)), file);
  link.Save();
}

std::vector<SpecialFolder> ScrivantaSpecialFolders::List() const {
  std::vector<SpecialFolder> folders;
  for (const NamedFolder& named : kNamedFolders) {
    PWSTR path = nullptr;
    SpecialFolder folder{.name = named.name, .path = {}};
    if (SUCCEEDED(SHGetKnownFolderPath(*named.id, KF_FLAG_DONT_VERIFY, nullptr, &path))) {
      folder.path = path;
    }
    CoTaskMemFree(path);
    folders.push_back(std::move(folder));
  }
  return folders;
}

}  // namespace scrivanta
