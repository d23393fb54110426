#include "text/PlatformFile.h"

#include <algorithm>
#include <cerrno>
#include <string>
#include <string_view>

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include "text/Bytes.h"
#include "text/Encoding.h"
#include "text/FileIdentity.h"

namespace scrivanta {

namespace {

constexpr int kMostLinks = 40;

const char* ModeText(OpenMode mode) {
  switch (mode) {
    case OpenMode::kRead:
      return "rb";
    case OpenMode::kReplace:
      return "wb";
    case OpenMode::kUpdate:
      return "r+b";
    case OpenMode::kCreate:
      return "w+bx";
  }
  return "";
}

std::filesystem::path FolderOfFile(const std::filesystem::path& path) {
  return path.has_parent_path() ? path.parent_path() : std::filesystem::path(".");
}

// A file that nobody may write is refused to the superuser too: somebody wants it to stay as it is.
std::error_code WhyNotReplaced(const std::filesystem::path& path, const struct stat& status) {
  if (S_ISDIR(status.st_mode)) {
    return std::make_error_code(std::errc::is_a_directory);
  }
  if (!S_ISREG(status.st_mode)) {
    return std::make_error_code(std::errc::operation_not_supported);
  }
  constexpr mode_t kWritable = S_IWUSR | S_IWGRP | S_IWOTH;
  if ((status.st_mode & kWritable) == 0) {
    return std::make_error_code(std::errc::permission_denied);
  }
  return access(path.c_str(), W_OK) == 0 ? std::error_code() : LastFileError();
}

// The name itself must reach the disk too. Some file systems cannot flush a folder; the file is in place all the same.
void FlushFolder(const std::filesystem::path& folder) {
  const int descriptor = open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (descriptor >= 0) {
    fsync(descriptor);
    close(descriptor);
  }
}

}  // namespace

std::FILE* OpenFile(const std::filesystem::path& path, OpenMode mode) {
  std::error_code ignored;
  if (std::filesystem::is_directory(path, ignored)) {
    errno = EISDIR;
    return nullptr;
  }
  return std::fopen(path.c_str(), ModeText(mode));
}

std::optional<std::uint64_t> SizeOfFile(std::FILE* file) {
  struct stat status = {};
  if (fstat(fileno(file), &status) != 0 || !S_ISREG(status.st_mode)) {
    return std::nullopt;
  }
  return static_cast<std::uint64_t>(status.st_size);
}

std::optional<FileStamp> StampOfFile(std::FILE* file) {
  struct stat status = {};
  if (fstat(fileno(file), &status) != 0 || !S_ISREG(status.st_mode)) {
    return std::nullopt;
  }
  constexpr std::int64_t kNanoseconds = 1'000'000'000;
  return FileStamp{.size = static_cast<std::uint64_t>(status.st_size),
                   .modified = status.st_mtim.tv_sec * kNanoseconds + status.st_mtim.tv_nsec};
}

std::error_code FlushToDisk(std::FILE* file) {
  return std::fflush(file) == 0 && fsync(fileno(file)) == 0 ? std::error_code() : LastFileError();
}

void RemoveFile(const std::filesystem::path& path) noexcept {
  unlink(path.c_str());
}

void RemoveUnusedFile(const std::filesystem::path& path) noexcept {
  RemoveFile(path);
}

ReplaceTarget InspectReplaceTarget(const std::filesystem::path& path) {
  ReplaceTarget target{.path = path, .exists = false, .refusal = {}};
  for (int links = 0; links < kMostLinks; ++links) {
    struct stat status = {};
    if (lstat(target.path.c_str(), &status) != 0) {
      if (errno != ENOENT) {
        target.refusal = LastFileError();
      }
      return target;
    }
    if (!S_ISLNK(status.st_mode)) {
      target.exists = true;
      target.refusal = WhyNotReplaced(target.path, status);
      return target;
    }
    const std::filesystem::path next = std::filesystem::read_symlink(target.path, target.refusal);
    if (target.refusal) {
      return target;
    }
    target.path = FolderOfFile(target.path) / next;
  }
  target.refusal = std::make_error_code(std::errc::too_many_symbolic_link_levels);
  return target;
}

void CopyAttributes(const std::filesystem::path& from, const std::filesystem::path& to) {
  struct stat status = {};
  if (stat(from.c_str(), &status) != 0) {
    return;
  }
  constexpr mode_t kPermissions = S_IRWXU | S_IRWXG | S_IRWXO;
  // Only the superuser may give the owner away; a group that cannot be kept must not pass its rights to another one.
  const bool ownerKept = chown(to.c_str(), status.st_uid, status.st_gid) == 0 ||
                         chown(to.c_str(), static_cast<uid_t>(-1), status.st_gid) == 0;
  chmod(to.c_str(), status.st_mode & (ownerKept ? kPermissions : kPermissions & ~static_cast<mode_t>(S_IRWXG)));
}

std::error_code CopyCompanions(const std::filesystem::path& from, const std::filesystem::path& to) {
  const ssize_t size = listxattr(from.c_str(), nullptr, 0);
  if (size <= 0) {
    return {};  // none, or none can be there
  }
  std::string names(static_cast<std::size_t>(size), '\0');
  names.resize(static_cast<std::size_t>(std::max<ssize_t>(listxattr(from.c_str(), names.data(), names.size()), 0)));
  for (std::string_view rest = names; !rest.empty(); rest.remove_prefix(rest.find('\0') + 1)) {
    // The others are the system's, as its access lists.
    const std::string name(rest.substr(0, rest.find('\0')));
    if (!name.starts_with("user.")) {
      continue;
    }
    std::string value(static_cast<std::size_t>(std::max<ssize_t>(getxattr(from.c_str(), name.c_str(), nullptr, 0), 0)),
                      '\0');
    if (getxattr(from.c_str(), name.c_str(), value.data(), value.size()) < 0 ||
        setxattr(to.c_str(), name.c_str(), value.data(), value.size(), 0) != 0) {
      return LastFileError();
    }
  }
  return {};
}

std::error_code MoveInPlace(const std::filesystem::path& from, const std::filesystem::path& to) {
  if (rename(from.c_str(), to.c_str()) != 0) {
    return LastFileError();
  }
  FlushFolder(FolderOfFile(to));
  return {};
}

std::optional<FileIdentity> IdentityOf(const std::filesystem::path& path) {
  struct stat status = {};
  if (stat(path.c_str(), &status) != 0) {
    return std::nullopt;
  }
  return FileIdentity{.volume = status.st_dev, .file = status.st_ino};
}

bool AreSameName(const std::filesystem::path& one, const std::filesystem::path& other) {
  return one == other;
}

// Names are bytes, by custom UTF-8; what is none comes back all the same.
std::u16string TextOfPath(const std::filesystem::path& path) {
  return Decode(Encoding::kUtf8, path.native());
}

std::filesystem::path PathOfText(std::u16string_view text) {
  return Encode(Encoding::kUtf8, text);
}

}  // namespace scrivanta
