#include "shell/workbench/NewInstance.h"

#include "text/DecimalText.h"
#include "text/PlatformFile.h"

namespace scrivanta {

void StartInstance(Workbench& workbench, const std::filesystem::path& document, long long line) {
  std::filesystem::path program = workbench.folders().program / workbench.folders().iniFile.filename();
  // In quotes also when it is empty, for an empty command line would open the file that the options name.
  std::u16string arguments = u'"' + TextOfPath(document) + u'"';
  if (line > 1) {
    arguments += u" /line:" + DecimalText(line);
  }
  workbench.desktop().Run(program.replace_extension(u".exe").u16string(), arguments);
}

}  // namespace scrivanta
