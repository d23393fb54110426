#include "shell/workbench/NewInstance.h"

#include "text/PlatformFile.h"

namespace scrivanta {

void StartInstance(Workbench& workbench, const std::filesystem::path& document) {
  std::filesystem::path program = workbench.folders().program / workbench.folders().iniFile.filename();
  // In quotes also when it is empty, for an empty command line would open the file that the options name.
  workbench.desktop().Run(program.replace_extension(u".exe").u16string(), u'"' + TextOfPath(document) + u'"');
}

}  // namespace scrivanta
