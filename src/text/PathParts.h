// Parts of paths that stand in text: in a line of a document, in the status bar, in a dialog. All views point into the
// path that was given.
#pragma once

#include <string>
#include <string_view>

namespace scrivanta {

// For a line that holds a path: what follows its last "\"; the whole line when there is none.
std::u16string_view FileNamePart(std::u16string_view line);

// For the path of a document. Both "\" and "/" separate.
std::u16string_view FileNameOf(std::u16string_view path);
// With its final separator, so that folder and file name make the path; empty when there is none.
std::u16string_view FolderOf(std::u16string_view path);
// From the last "." of the file name on; empty when there is none or nothing follows it. A name may be all extension.
std::u16string_view ExtensionOf(std::u16string_view path);

// Whether the name ends in ".RTF" in any letter case: the document is rich text.
bool IsRichTextPath(std::u16string_view path);
// The path, with ".Txt" appended when it has no extension.
std::u16string WithTextExtension(std::u16string_view path);

}  // namespace scrivanta
