#include <stdexcept>

#include <gtest/gtest.h>

#include "shell/workbench/FailureMessage.h"
#include "text/Bytes.h"

namespace scrivanta {
namespace {

TEST(FailureMessage, ReadsWhatTheSystemSaysInEitherEncoding) {
  EXPECT_EQ(FailureMessage(std::runtime_error("\xC4\xDA\xB2\xBF\xB4\xED\xCE\xF3")).text, u"出错了！\n内部错误");
  EXPECT_EQ(FailureMessage(std::runtime_error("内部错误")).text, u"出错了！\n内部错误");
}

TEST(FailureMessage, NamesFileAndReason) {
  const FileError error("a.txt", std::make_error_code(std::errc::no_space_on_device));
  const Message message = FailureMessage(error);
  EXPECT_EQ(message.text, u"文件读写失败：\na.txt\n磁盘已满");
  EXPECT_EQ(message.icon, Icon::kCritical);
}

}  // namespace
}  // namespace scrivanta
