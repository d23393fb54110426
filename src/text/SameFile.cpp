#include "text/SameFile.h"

#include "text/FileIdentity.h"
#include "text/PlatformFile.h"

namespace scrivanta {

std::filesystem::path AbsolutePath(const std::filesystem::path& path) {
  // Names of pipes and devices, and what is to be taken as it stands.
  if (const std::u16string text = TextOfPath(path); text.starts_with(u"\\\\.\\") || text.starts_with(u"\\\\?\\")) {
    return path;
  }
  std::error_code error;
  const std::filesystem::path absolute = std::filesystem::absolute(path, error);
  return error || path.empty() ? path : absolute.lexically_normal();
}

bool IsSameFile(const std::filesystem::path& one, const std::filesystem::path& other) {
  const auto identity = IdentityOf(one);
  if (const auto otherIdentity = IdentityOf(other); identity || otherIdentity) {
    return identity == otherIdentity;
  }
  const std::filesystem::path first = AbsolutePath(one);
  const std::filesystem::path second = AbsolutePath(other);
  if (first == second) {
    return true;
  }
  return first.has_relative_path() && second.has_relative_path() && AreSameName(first.filename(), second.filename()) &&
         IsSameFile(first.parent_path(), second.parent_path());
}

}  // namespace scrivanta
