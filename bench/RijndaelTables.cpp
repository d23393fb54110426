// Encrypts a file by the table form, whatever the processor has: RijndaelTables SOURCE TARGET.
#include <cstdio>

#include "crypto/RijndaelStream.h"
#include "crypto/RijndaelText.h"

int main(int argc, char** argv) {
  if (argc != 3) {
    std::fputs("usage: bench_RijndaelTables SOURCE TARGET\n", stderr);
    return 2;
  }
  const scrivanta::RijndaelKey key(scrivanta::PasswordBytes(u"42"), 256);
  scrivanta::FileSource source(argv[1]);
  scrivanta::FileSink sink(argv[2]);
  scrivanta::NoProgress progress;
  scrivanta::EncryptStream(key, scrivanta::RijndaelTables(), source, sink, progress);
  sink.Close();
  return 0;
}
