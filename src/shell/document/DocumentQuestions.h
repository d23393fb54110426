// What is asked about the document's file. Each is one message box; what the answer leads to is DocumentFile's.
#pragma once

#include <filesystem>
#include <set>

#include "rtf/RtfLosses.h"
#include "shell/workbench/Prompts.h"

namespace scrivanta {

// "是否存盘?" with Yes, No and Cancel.
Answer AskToSave(Prompts& prompts);
// A file that is not the document's own stands under the name that was chosen. True when it is to be replaced.
bool AskToReplace(Prompts& prompts, const std::filesystem::path& path);
// What is no text can be opened read-only.
bool AskToOpenReadOnly(Prompts& prompts, const std::filesystem::path& path);
// Characters that GBK lacks: Yes is UTF-8, No the four-byte forms of GB18030.
Answer AskForEncoding(Prompts& prompts);
// What would be read back as another encoding: Yes is UTF-8, No GBK nevertheless.
Answer AskAboutMisreading(Prompts& prompts);
// A formatted document is to be saved as plain text. True when the formats may go.
bool AskToDropFormats(Prompts& prompts, const std::filesystem::path& path);
// A changed document is to be read from its file again in another encoding. True when the changes may go.
bool AskToReopen(Prompts& prompts, const std::filesystem::path& path);
// Another program has changed the file, which the user sees now. True when the document is to become what it holds.
bool AskToReload(Prompts& prompts, const std::filesystem::path& path, bool isChangedHereToo);
// The same before saving: Yes replaces the file, No is another name.
Answer AskToReplaceChanged(Prompts& prompts, const std::filesystem::path& path);
// Saving would take these away from the document's own file. Yes keeps a copy of the file as it is first, under that
// name.
Answer AskAboutLosses(Prompts& prompts, const std::filesystem::path& copy, const std::set<RtfLoss>& losses);
void TellFileIsGone(Prompts& prompts, const std::filesystem::path& path);

}  // namespace scrivanta
