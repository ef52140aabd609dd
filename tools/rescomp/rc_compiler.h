// The resource compiler: reads a resource script (UTF-8) and produces the
// bytes of each resource in the layouts described in platform/core/resources.h,
// with all text converted to GBK.
//
// Resource script:
//   // comment to the end of the line, /* block comment */
//   MENU 20001
//   {                                   (BEGIN ... END may stand for { ... })
//       POPUP "text"
//       {
//           MENUITEM "text", 32056      options may follow: , GRAYED / INACTIVE / CHECKED
//           MENUITEM SEPARATOR
//           POPUP "nested" { ... }
//       }
//   }
//   STRINGTABLE
//   {
//       32014 "text"                    (a comma after the id is optional)
//   }
//   BITMAP 599 "art/file.art"           art file: see art.h; the path is
//   ICON 20006 "art/other.art"          relative to the script's folder
//   TOOLBAR 599 18 17                   id, button width, button height
//   {
//       BUTTON 33296
//       SEPARATOR
//   }
// Numbers are decimal or 0x hexadecimal; ids run from 1 to 65535 (a menu item
// may have 0). Quoted strings take the escapes \t (tab), \n (line feed), \"
// (a double quote) and \\ (a backslash); '&' is kept as it is, the menu shows
// the character after it as the access key. Text must exist in GBK. A toolbar
// whose id is also a bitmap's must have one button image in that strip per
// button. Any error stops compilation with file:line.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/core/resources.h"
#include "tools/rescomp/compile_error.h"

namespace rescomp {

struct CompiledResource {
    ResourceType type;
    unsigned id = 0;
    std::vector<unsigned char> data;
    std::string file;  // where it was declared, for messages and the generated comments
    int line = 0;
};

struct CompileResult {
    std::vector<CompiledResource> resources;  // sorted by type, then id
    std::vector<std::string> inputs;          // the script and every art file it read
};

// Reads a file named by the script (already resolved against the script's
// folder); nothing when it cannot be read.
using FileReader = std::function<std::optional<std::string>(const std::string& path)>;

// Throws CompileError.
CompileResult CompileScript(std::string_view text, const std::string& path, const FileReader& read);
CompileResult CompileScriptFile(const std::string& path);

// UTF-8 to GBK; throws CompileError when the text is not UTF-8 or has a
// character GBK lacks.
std::string ToGbk(std::string_view utf8, const std::string& file, int line);

}  // namespace rescomp
