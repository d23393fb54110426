#include "database/DatabaseSource.h"

#include "database/DatabaseError.h"
#include "database/JetDriver.h"
#include "database/JetFile.h"
#include "database/OdbcDatabase.h"
#include "text/PlatformFile.h"

namespace scrivanta {

namespace {

std::unique_ptr<Database> OpenJet(const std::filesystem::path& file, std::u16string_view password,
                                  MissingFile missing) {
  const auto driver = ChooseJetDriver(OdbcDrivers(), file);
  if (!driver) {
    throw DatabaseError(
        "no driver for .mdb and .accdb files: install the 64-bit Access Database Engine",
        u"这台计算机上没有能打开.mdb、.accdb文件的64位ODBC驱动。\n请安装64位的Access数据库引擎（Access Database "
        u"Engine），它要和已装的Office同为64位。");
  }
  if (!std::filesystem::exists(file)) {
    if (missing == MissingFile::kRefused) {
      throw DatabaseError("no such file", TextOfPath(file) + u"\n文件不存在。");
    }
    MakeJetFile(*driver, file);
  }
  return std::make_unique<OdbcDatabase>(JetConnectionString(*driver, file, password));
}

}  // namespace

std::unique_ptr<Database> ConnectTo(const DatabaseSource& source, MissingFile missing) {
  if (source.file.empty()) {
    return std::make_unique<OdbcDatabase>(source.connection);
  }
  const std::filesystem::path file = PathOfText(source.file);
  if (IsJetFile(file)) {
    return OpenJet(file, source.password, missing);
  }
  return std::make_unique<SqliteDatabase>(file, missing);
}

}  // namespace scrivanta
