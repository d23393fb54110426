#include "window/driver/TestFiles.h"

#include <windows.h>

#include <array>
#include <fstream>
#include <iterator>
#include <system_error>

#include <gtest/gtest.h>

#include "win/WideText.h"
#include "window/driver/Wait.h"

namespace scrivanta {

namespace {

std::string Convert(std::u16string_view text, UINT codePage, BOOL* lacking) {
  const std::wstring wide = ToWide(text);
  const int length = static_cast<int>(wide.size());
  std::string bytes(
      static_cast<std::size_t>(WideCharToMultiByte(codePage, 0, wide.data(), length, nullptr, 0, nullptr, nullptr)),
      '\0');
  WideCharToMultiByte(codePage, 0, wide.data(), length, bytes.data(), static_cast<int>(bytes.size()), nullptr, lacking);
  return bytes;
}

std::wstring TemporaryVariable() {
  std::array<wchar_t, MAX_PATH> value{};
  return {value.data(), GetEnvironmentVariableW(L"TMP", value.data(), static_cast<DWORD>(value.size()))};
}

}  // namespace

std::filesystem::path TestProgramFolder() {
  std::array<wchar_t, 1024> name{};
  const DWORD length = GetModuleFileNameW(nullptr, name.data(), static_cast<DWORD>(name.size()));
  return std::filesystem::path(std::wstring_view(name.data(), length)).parent_path();
}

TestFolder::TestFolder() : temporaryBefore_(TemporaryVariable()) {
  const std::string test = ::testing::UnitTest::GetInstance()->current_test_info()->name();
  path_ = std::filesystem::path(temporaryBefore_) / (L"文本 工作台 " + std::wstring(test.begin(), test.end()));
  std::filesystem::remove_all(path_);
  std::filesystem::create_directories(path_);
  SetEnvironmentVariableW(L"TMP", path_.c_str());
}

TestFolder::~TestFolder() {
  SetEnvironmentVariableW(L"TMP", temporaryBefore_.c_str());
  std::error_code ignored;  // what a failed test still holds open
  std::filesystem::remove_all(path_, ignored);
}

std::filesystem::path TestFolder::Write(const std::filesystem::path& name, std::string_view bytes) const {
  WriteBytes(path_ / name, bytes);
  return path_ / name;
}

void WriteBytes(const std::filesystem::path& file, std::string_view bytes) {
  std::ofstream stream(file, std::ios::binary);
  stream.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  if (!stream.flush()) {
    throw DriverFailure("the test could not write " + Utf8(file.u16string()));
  }
}

std::string ReadBytes(const std::filesystem::path& file) {
  std::ifstream stream(file, std::ios::binary);
  if (!stream) {
    throw DriverFailure("there is no file " + Utf8(file.u16string()));
  }
  return {std::istreambuf_iterator<char>(stream), {}};
}

std::string Gbk(std::u16string_view text) {
  constexpr UINT kCodePage = 936;
  BOOL lacking = FALSE;
  std::string bytes = Convert(text, kCodePage, &lacking);
  if (lacking != FALSE) {
    throw DriverFailure("not in code page 936: " + Utf8(text));
  }
  return bytes;
}

std::string Utf8(std::u16string_view text) {
  return Convert(text, CP_UTF8, nullptr);
}

}  // namespace scrivanta
