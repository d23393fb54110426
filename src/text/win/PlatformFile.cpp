#include "text/PlatformFile.h"

#include <windows.h>

#include <cerrno>
#include <cstdint>
#include <cwchar>
#include <vector>

#include <fcntl.h>
#include <io.h>
#include <winioctl.h>

#include "text/FileIdentity.h"
#include "text/win/Handles.h"
#include "text/win/SystemPath.h"
#include "text/win/WideText.h"

namespace scrivanta {

namespace {

std::error_code SystemError(DWORD code) {
  return {static_cast<int>(code), std::system_category()};
}

std::error_code LastSystemError() {
  return SystemError(GetLastError());
}

int ErrnoOf(DWORD code) {
  if (code == ERROR_INVALID_NAME) {
    return EINVAL;
  }
  const std::error_condition condition = SystemError(code).default_error_condition();
  return condition.category() == std::generic_category() ? condition.value() : EIO;
}

struct OpenParameters {
  DWORD access;
  DWORD share;
  DWORD disposition;
  int flags;  // of the C library's descriptor
  const char* mode;
};

OpenParameters ParametersOf(OpenMode mode) {
  constexpr DWORD kEveryUse = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
  constexpr DWORD kReadAndWrite = GENERIC_READ | GENERIC_WRITE;
  switch (mode) {
    case OpenMode::kRead:
      return {GENERIC_READ, kEveryUse, OPEN_EXISTING, _O_RDONLY | _O_BINARY, "rb"};
    case OpenMode::kReplace:
      return {GENERIC_WRITE, FILE_SHARE_READ, CREATE_ALWAYS, _O_WRONLY | _O_BINARY, "wb"};
    case OpenMode::kUpdate:
      return {kReadAndWrite, FILE_SHARE_READ, OPEN_EXISTING, _O_RDWR | _O_BINARY, "r+b"};
    case OpenMode::kCreate:
      return {kReadAndWrite, FILE_SHARE_READ | FILE_SHARE_DELETE, CREATE_NEW, _O_RDWR | _O_BINARY, "w+b"};
  }
  return {};
}

bool IsFolder(const std::wstring& path) {
  const DWORD attributes = GetFileAttributesW(path.c_str());
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

HANDLE HandleOf(std::FILE* file) {
  return reinterpret_cast<HANDLE>(_get_osfhandle(_fileno(file)));
}

// A file or a folder, not to be read but to be asked about: whoever else has it open does not stand in the way.
OwnedFile OpenToAskAbout(const std::wstring& path) {
  constexpr DWORD kEveryUse = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
  return OwnedFile(
      CreateFileW(path.c_str(), 0, kEveryUse, nullptr, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr));
}

// Where the symbolic links that begin at the path end. Other files than links have such a mark too; they end at
// themselves.
std::filesystem::path EndOfLinks(const std::wstring& path, std::error_code& code) {
  const OwnedFile file = OpenToAskAbout(path);
  if (!file) {
    code = LastSystemError();
    return path;
  }
  std::wstring end(GetFinalPathNameByHandleW(file.get(), nullptr, 0, 0), L'\0');
  end.resize(GetFinalPathNameByHandleW(file.get(), end.data(), static_cast<DWORD>(end.size()), 0));
  if (end.empty()) {
    code = LastSystemError();
    return path;
  }
  return end;
}

void CopyCreationTime(const std::wstring& from, const std::wstring& to) {
  WIN32_FILE_ATTRIBUTE_DATA data = {};
  constexpr DWORD kEveryUse = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
  const OwnedFile file(CreateFileW(to.c_str(), FILE_WRITE_ATTRIBUTES, kEveryUse, nullptr, OPEN_EXISTING, 0, nullptr));
  if (file && GetFileAttributesExW(from.c_str(), GetFileExInfoStandard, &data) != 0) {
    SetFileTime(file.get(), &data.ftCreationTime, nullptr, nullptr);
  }
}

std::vector<unsigned char> Permissions(const std::wstring& path) {
  DWORD size = 0;
  GetFileSecurityW(path.c_str(), DACL_SECURITY_INFORMATION, nullptr, 0, &size);
  std::vector<unsigned char> descriptor(size);
  if (GetFileSecurityW(path.c_str(), DACL_SECURITY_INFORMATION, descriptor.data(), size, &size) == 0) {
    descriptor.clear();
  }
  return descriptor;
}

// Where both files have what their folder gives to every file, that stays inherited.
void CopyPermissions(const std::wstring& from, const std::wstring& to) {
  std::vector<unsigned char> permissions = Permissions(from);
  if (!permissions.empty() && permissions != Permissions(to)) {
    SetFileSecurityW(to.c_str(), DACL_SECURITY_INFORMATION, permissions.data());
  }
}

// A file that cannot be compressed is whole nevertheless.
void Compress(const std::wstring& path) {
  const OwnedFile file(CreateFileW(path.c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, 0, nullptr));
  USHORT format = COMPRESSION_FORMAT_DEFAULT;
  DWORD returned = 0;
  if (file) {
    DeviceIoControl(file.get(), FSCTL_SET_COMPRESSION, &format, sizeof(format), nullptr, 0, &returned, nullptr);
  }
}

struct StreamSearchTraits {
  using Type = HANDLE;
  static HANDLE Invalid() noexcept { return INVALID_HANDLE_VALUE; }
  static void Close(HANDLE handle) noexcept { FindClose(handle); }
};

// What stands under names of its own beside the content, as the zone that a download came from.
std::error_code CopyStreams(const std::wstring& source, const std::wstring& target) {
  constexpr std::wstring_view kContent = L"::$DATA";
  WIN32_FIND_STREAM_DATA stream{};
  const Owner<StreamSearchTraits> search(FindFirstStreamW(source.c_str(), FindStreamInfoStandard, &stream, 0));
  if (!search) {
    return {};  // the file system knows none
  }
  do {
    if (stream.cStreamName == kContent) {
      continue;
    }
    if (CopyFileW((source + stream.cStreamName).c_str(), (target + stream.cStreamName).c_str(), FALSE) == 0) {
      return LastSystemError();
    }
  } while (FindNextStreamW(search.get(), &stream) != 0);
  return {};
}

}  // namespace

std::FILE* OpenFile(const std::filesystem::path& path, OpenMode mode) {
  const std::wstring systemPath = SystemPath(path);
  if (IsFolder(systemPath)) {
    errno = EISDIR;
    return nullptr;
  }
  const OpenParameters parameters = ParametersOf(mode);
  OwnedFile file(CreateFileW(systemPath.c_str(), parameters.access, parameters.share, nullptr, parameters.disposition,
                             FILE_ATTRIBUTE_NORMAL, nullptr));
  if (!file) {
    errno = ErrnoOf(GetLastError());
    return nullptr;
  }
  const int descriptor = _open_osfhandle(reinterpret_cast<std::intptr_t>(file.get()), parameters.flags);
  if (descriptor < 0) {
    return nullptr;
  }
  file.Release();  // the descriptor has it now
  std::FILE* stream = _fdopen(descriptor, parameters.mode);
  if (stream == nullptr) {
    _close(descriptor);
  }
  return stream;
}

std::optional<std::uint64_t> SizeOfFile(std::FILE* file) {
  LARGE_INTEGER size = {};
  if (GetFileType(HandleOf(file)) != FILE_TYPE_DISK || GetFileSizeEx(HandleOf(file), &size) == 0) {
    return std::nullopt;
  }
  return static_cast<std::uint64_t>(size.QuadPart);
}

std::optional<FileStamp> StampOfFile(std::FILE* file) {
  FILETIME time = {};
  const std::optional<std::uint64_t> size = SizeOfFile(file);
  if (!size || GetFileTime(HandleOf(file), nullptr, nullptr, &time) == 0) {
    return std::nullopt;
  }
  const LARGE_INTEGER modified{{.LowPart = time.dwLowDateTime, .HighPart = static_cast<LONG>(time.dwHighDateTime)}};
  return FileStamp{.size = *size, .modified = modified.QuadPart};
}

std::error_code FlushToDisk(std::FILE* file) {
  if (std::fflush(file) != 0) {
    return {errno, std::generic_category()};
  }
  return FlushFileBuffers(HandleOf(file)) != 0 ? std::error_code() : LastSystemError();
}

void RemoveFile(const std::filesystem::path& path) noexcept {
  DeleteFileW(SystemPath(path).c_str());
}

void RemoveUnusedFile(const std::filesystem::path& path) noexcept {
  // Shared with nobody: it is not to be had while anybody has it open.
  const OwnedFile file(CreateFileW(SystemPath(path).c_str(), DELETE, 0, nullptr, OPEN_EXISTING,
                                   FILE_FLAG_DELETE_ON_CLOSE | FILE_FLAG_OPEN_REPARSE_POINT, nullptr));
}

ReplaceTarget InspectReplaceTarget(const std::filesystem::path& path) {
  ReplaceTarget target{.path = path, .exists = false, .refusal = {}};
  DWORD attributes = GetFileAttributesW(SystemPath(path).c_str());
  if (attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0) {
    target.path = EndOfLinks(SystemPath(path), target.refusal);
    attributes = GetFileAttributesW(SystemPath(target.path).c_str());
  }
  if (target.refusal || attributes == INVALID_FILE_ATTRIBUTES) {
    return target;
  }
  target.exists = true;
  if ((attributes & FILE_ATTRIBUTE_DIRECTORY) != 0) {
    target.refusal = std::make_error_code(std::errc::is_a_directory);
  } else if ((attributes & FILE_ATTRIBUTE_READONLY) != 0) {
    target.refusal = SystemError(ERROR_ACCESS_DENIED);
  }
  return target;
}

void CopyAttributes(const std::filesystem::path& from, const std::filesystem::path& to) {
  constexpr DWORD kKept =
      FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM | FILE_ATTRIBUTE_ARCHIVE | FILE_ATTRIBUTE_NOT_CONTENT_INDEXED;
  const std::wstring source = SystemPath(from);
  const std::wstring target = SystemPath(to);
  const DWORD attributes = GetFileAttributesW(source.c_str());
  if (attributes == INVALID_FILE_ATTRIBUTES) {
    return;
  }
  SetFileAttributesW(target.c_str(), attributes & kKept);
  CopyCreationTime(source, target);
  CopyPermissions(source, target);
}

std::error_code CopyCompanions(const std::filesystem::path& from, const std::filesystem::path& to) {
  const std::wstring source = SystemPath(from);
  const std::wstring target = SystemPath(to);
  const DWORD attributes = GetFileAttributesW(source.c_str());
  if (attributes == INVALID_FILE_ATTRIBUTES) {
    return {};  // it has gone meanwhile
  }
  if ((attributes & FILE_ATTRIBUTE_ENCRYPTED) != 0 && EncryptFileW(target.c_str()) == 0) {
    return LastSystemError();
  }
  if ((attributes & FILE_ATTRIBUTE_COMPRESSED) != 0) {
    Compress(target);
  }
  return CopyStreams(source, target);
}

// A scanner or an indexer that looks at the new file just then is gone a moment later.
std::error_code MoveInPlace(const std::filesystem::path& from, const std::filesystem::path& to) {
  constexpr DWORD kLongestPauseMs = 200;
  const std::wstring source = SystemPath(from);
  const std::wstring target = SystemPath(to);
  for (DWORD pauseMs = 10;; pauseMs *= 2) {
    if (MoveFileExW(source.c_str(), target.c_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) != 0) {
      return {};
    }
    const DWORD code = GetLastError();
    if ((code != ERROR_SHARING_VIOLATION && code != ERROR_ACCESS_DENIED) || pauseMs > kLongestPauseMs) {
      return SystemError(code);
    }
    Sleep(pauseMs);
  }
}

std::optional<FileIdentity> IdentityOf(const std::filesystem::path& path) {
  const OwnedFile file = OpenToAskAbout(SystemPath(path));
  BY_HANDLE_FILE_INFORMATION information{};
  if (!file || GetFileInformationByHandle(file.get(), &information) == 0) {
    return std::nullopt;
  }
  constexpr int kHalf = 32;
  return FileIdentity{.volume = information.dwVolumeSerialNumber,
                      .file = std::uint64_t{information.nFileIndexHigh} << kHalf | information.nFileIndexLow};
}

bool AreSameName(const std::filesystem::path& one, const std::filesystem::path& other) {
  return CompareStringOrdinal(one.c_str(), -1, other.c_str(), -1, TRUE) == CSTR_EQUAL;
}

std::u16string TextOfPath(const std::filesystem::path& path) {
  return FromWide(path.native());
}

std::filesystem::path PathOfText(std::u16string_view text) {
  return ToWide(text);
}

}  // namespace scrivanta
