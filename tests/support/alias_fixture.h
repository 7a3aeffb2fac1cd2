#pragma once
#include <string>
#include <string_view>

#include "core/alias/alias_lists.h"
#include "core/settings/settings_record.h"
#include "support/fakes.h"
#include "support/msts_tree.h"

namespace rakeyard::test {

// What an alias that went through says.
inline const std::string kAliased =
    "The locomotive has been aliased! Please test it to search for missing files\nand check if "
    "the alias has been sucsessful.";

// An MSTS tree whose engines are catalogued as they are written, for the aliasing routines.
class AliasFixture {
public:
    AliasFixture();
    // Writes TRAINSET/folder/file from text (as MstsTree::write) and catalogues it.
    std::string addEngine(std::string_view folder, std::string_view file, std::string_view text);
    // Writes a file under TRAINSET from text.
    std::string write(std::string_view relative, std::string_view text);
    // The bytes of a file under TRAINSET; "" when absent.
    std::string read(std::string_view relative) const;
    bool exists(std::string_view relative) const;
    // A file under TRAINSET as UTF-8 text without its mark, line ends as in the file.
    std::string text(std::string_view relative) const;
    std::string path(std::string_view relative) const;

    MstsTree msts;
    FakeServices fake;
    PathGlobals paths;
    std::unique_ptr<UnitCatalogue> catalogue = std::make_unique<UnitCatalogue>();
};

// An engine's text with the Sound lines of its two sections and a CabView line; "" leaves one
// out.
std::string engineText(std::string_view name, std::string_view engineSound,
                       std::string_view cabSound, std::string_view cabView);

}  // namespace rakeyard::test
