// Encoding and line ends of the document: their names, and the menus that change them.
#pragma once

#include <string>
#include <vector>

#include "shell/document/DocumentFile.h"
#include "shell/window/MenuChoice.h"

namespace scrivanta {

std::u16string EncodingName(const DocumentFile& document);
// Empty for documents that are no plain text.
std::u16string LineEndsName(const DocumentFile& document);

// What is chosen runs on the document, which outlives the menu. Opening again in an encoding, and saving in one.
std::vector<MenuChoice> EncodingChoices(DocumentFile& document);
std::vector<MenuChoice> LineEndChoices(DocumentFile& document);

}  // namespace scrivanta
