#include "window/driver/TestFiles.h"

#include <windows.h>

#include <array>
#include <fstream>
#include <iterator>

#include <gtest/gtest.h>

#include "text/win/WideText.h"
#include "window/driver/Wait.h"

namespace scrivanta {

namespace {

constexpr wchar_t kAnyLength[] = L"\\\\?\\";

std::string Convert(std::u16string_view text, UINT codePage, BOOL* lacking) {
  const std::wstring wide = ToWide(text);
  const int length = static_cast<int>(wide.size());
  std::string bytes(
      static_cast<std::size_t>(WideCharToMultiByte(codePage, 0, wide.data(), length, nullptr, 0, nullptr, nullptr)),
      '\0');
  WideCharToMultiByte(codePage, 0, wide.data(), length, bytes.data(), static_cast<int>(bytes.size()), nullptr, lacking);
  return bytes;
}

// Removes what stands at the path, which begins with the prefix for paths of any length: read-only files and deep
// folders too, which the standard library does not manage here.
void RemoveTree(const std::wstring& path) {
  const DWORD attributes = GetFileAttributesW(path.c_str());
  if (attributes == INVALID_FILE_ATTRIBUTES) {
    return;
  }
  SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_NORMAL);
  if ((attributes & FILE_ATTRIBUTE_DIRECTORY) == 0) {
    DeleteFileW(path.c_str());
    return;
  }
  WIN32_FIND_DATAW entry{};
  const HANDLE search = FindFirstFileW((path + L"\\*").c_str(), &entry);
  for (BOOL found = search != INVALID_HANDLE_VALUE ? TRUE : FALSE; found != FALSE;
       found = FindNextFileW(search, &entry)) {
    const std::wstring_view name = entry.cFileName;
    if (name != L"." && name != L"..") {
      RemoveTree(path + L'\\' + entry.cFileName);
    }
  }
  FindClose(search);
  RemoveDirectoryW(path.c_str());
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
  const auto* const running = ::testing::UnitTest::GetInstance()->current_test_info();
  const std::string test = running == nullptr ? "without a test" : running->name();
  path_ = std::filesystem::path(temporaryBefore_) / (L"文本 工作台 " + std::wstring(test.begin(), test.end()));
  RemoveTree(kAnyLength + path_.native());
  std::filesystem::create_directories(path_);
  SetEnvironmentVariableW(L"TMP", path_.c_str());
}

TestFolder::~TestFolder() {
  SetEnvironmentVariableW(L"TMP", temporaryBefore_.c_str());
  RemoveTree(kAnyLength + path_.native());  // what a failed test holds open stays
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
