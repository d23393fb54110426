#include "text/ErrorText.h"

#include <new>
#include <string_view>
#include <utility>

#include "text/Bytes.h"
#include "text/DocumentFormat.h"
#include "text/ExplainedError.h"
#include "text/PlatformFile.h"

namespace scrivanta {

namespace {

// The system speaks the language of the user, in UTF-8 or in the code page.
std::u16string SystemText(std::string_view message) {
  return DecodeDocument(message).text;
}

}  // namespace

std::u16string FileErrorReason(const std::error_code& code) {
  static constexpr std::pair<std::errc, std::u16string_view> kReasons[] = {
      {std::errc::no_such_file_or_directory, u"文件不存在"},
      {std::errc::not_a_directory, u"路径中有一部分不是文件夹"},
      {std::errc::is_a_directory, u"这是一个文件夹，不是文件"},
      {std::errc::permission_denied, u"没有权限，或文件正被其他程序使用"},
      {std::errc::operation_not_permitted, u"没有权限，或文件正被其他程序使用"},
      {std::errc::device_or_resource_busy, u"文件正被其他程序使用"},
      {std::errc::read_only_file_system, u"磁盘只读"},
      {std::errc::no_space_on_device, u"磁盘已满"},
      {std::errc::filename_too_long, u"文件名太长"},
      {std::errc::invalid_argument, u"文件名无效"},
      {std::errc::io_error, u"磁盘读写错误"},
  };
  for (const auto& [condition, reason] : kReasons) {
    if (code == condition) {
      return std::u16string(reason);
    }
  }
  return SystemText(code.message());
}

std::u16string FailureText(const std::exception& error) {
  if (const auto* fileError = dynamic_cast<const FileError*>(&error)) {
    return u"文件读写失败：\n" + TextOfPath(fileError->path()) + u"\n" + FileErrorReason(fileError->code());
  }
  if (const auto* explained = dynamic_cast<const ExplainedError*>(&error)) {
    return explained->chinese();
  }
  if (dynamic_cast<const std::bad_alloc*>(&error) != nullptr) {
    return u"内存不足！";
  }
  return u"出错了！\n" + SystemText(error.what());
}

}  // namespace scrivanta
