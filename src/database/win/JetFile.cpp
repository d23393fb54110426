#include "database/JetFile.h"

#include <windows.h>

#include <odbcinst.h>

#include "database/DatabaseError.h"
#include "text/Encoding.h"
#include "text/PlatformFile.h"

namespace scrivanta {

namespace {

std::u16string InstallerMessage() {
  DWORD code = 0;
  wchar_t message[SQL_MAX_MESSAGE_LENGTH] = {};
  WORD length = 0;
  SQLInstallerErrorW(1, &code, message, SQL_MAX_MESSAGE_LENGTH, &length);
  return reinterpret_cast<const char16_t*>(message);
}

}  // namespace

void MakeJetFile(std::u16string_view driver, const std::filesystem::path& file) {
  const std::wstring name(driver.begin(), driver.end());
  // A list whose texts end with a zero, and itself with another.
  const std::wstring order = L"CREATE_DB=\"" + file.wstring() + L"\" General" + std::wstring(2, L'\0');
  if (SQLConfigDataSourceW(nullptr, ODBC_ADD_DSN, name.c_str(), order.c_str()) == FALSE) {
    const std::u16string reason = InstallerMessage();
    throw DatabaseError("the driver cannot make the file: " + Encode(Encoding::kUtf8, reason),
                        TextOfPath(file) + u"\n驱动不能新建这个文件：" + reason);
  }
}

}  // namespace scrivanta
