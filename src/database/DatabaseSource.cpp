#include "database/DatabaseSource.h"

#include "database/DatabaseError.h"
#include "database/JetDriver.h"
#include "database/JetFile.h"
#include "database/OdbcDatabase.h"
#include "database/PipeDatabase.h"
#include "text/PlatformFile.h"

namespace scrivanta {

namespace {

void RequireFile(const std::filesystem::path& file, MissingFile missing) {
  if (missing == MissingFile::kRefused) {
    throw DatabaseError("no such file", TextOfPath(file) + u"\n文件不存在。");
  }
}

// By a driver of this program's width, or else by one that the companion sees.
std::unique_ptr<Database> OpenJet(const std::filesystem::path& file, std::u16string_view password,
                                  MissingFile missing) {
  const bool isThere = std::filesystem::exists(file);
  if (const auto driver = ChooseJetDriver(OdbcDrivers(), file)) {
    if (!isThere) {
      RequireFile(file, missing);
      MakeJetFile(*driver, file);
    }
    return std::make_unique<OdbcDatabase>(JetConnectionString(*driver, file, password));
  }
  if (const std::filesystem::path companion = CompanionProgram(); std::filesystem::exists(companion)) {
    auto database = std::make_unique<PipeDatabase>(companion);
    if (const auto driver = ChooseJetDriver(database->Drivers(), file)) {
      if (!isThere) {
        RequireFile(file, missing);
        database->MakeJetFile(*driver, file);
      }
      database->Open(JetConnectionString(*driver, file, password));
      return database;
    }
  }
  throw DatabaseError("no driver for .mdb and .accdb files: install the Access Database Engine",
                      u"这台计算机上没有能打开这个文件的ODBC驱动。\n请安装Access数据库引擎（Access Database "
                      u"Engine），它要和已装的Office同为64位或32位。");
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
