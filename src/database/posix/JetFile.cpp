#include "database/JetFile.h"

#include "database/DatabaseError.h"

namespace scrivanta {

void MakeJetFile(std::u16string_view, const std::filesystem::path&) {
  throw DatabaseError("no driver of this system makes .mdb and .accdb files",
                      u"这个系统上没有能新建.mdb、.accdb文件的驱动。");
}

}  // namespace scrivanta
