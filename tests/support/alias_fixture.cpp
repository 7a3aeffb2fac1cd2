#include "support/alias_fixture.h"

#include <filesystem>

#include "core/platform/paths.h"
#include "core/platform/text_utf.h"

namespace rakeyard::test {

AliasFixture::AliasFixture() {
    paths.mstsPath = msts.msts();
    paths.trainsetPath = msts.trainset();
    paths.programFolder = msts.home();
    std::filesystem::create_directories(msts.home());
}

std::string AliasFixture::addEngine(std::string_view folder, std::string_view file,
                                    std::string_view text) {
    const std::string written = write(std::string(folder) + "/" + std::string(file), text);
    EngineRecord& record = catalogue->engines[catalogue->engineCount++];
    record.folderPath = joinPath(msts.trainset(), folder);
    record.folderName = std::string(folder);
    record.fileName = std::string(file);
    return written;
}

std::string AliasFixture::write(std::string_view relative, std::string_view text) {
    return msts.write("TRAINS/TRAINSET/" + std::string(relative), text);
}

std::string AliasFixture::read(std::string_view relative) const {
    return readWholeFile(path(relative));
}

bool AliasFixture::exists(std::string_view relative) const {
    return std::filesystem::exists(path(relative));
}

std::string AliasFixture::text(std::string_view relative) const {
    const std::string bytes = read(relative);
    std::u16string units;
    for (std::size_t i = 2; i + 1 < bytes.size(); i += 2)
        units += static_cast<char16_t>(static_cast<unsigned char>(bytes[i]) |
                                       static_cast<unsigned char>(bytes[i + 1]) << 8);
    return toUtf8(units);
}

std::string AliasFixture::path(std::string_view relative) const {
    return joinPath(msts.trainset(), relative);
}

std::string engineText(std::string_view name, std::string_view engineSound,
                       std::string_view cabSound, std::string_view cabView) {
    std::string text = "Wagon ( " + std::string(name) + "\n\tType ( Engine )\n";
    if (!engineSound.empty()) text += "\tSound ( \"" + std::string(engineSound) + "\" )\n";
    text += ")\nEngine ( " + std::string(name) + "\n";
    if (!cabSound.empty()) text += "\tSound ( \"" + std::string(cabSound) + "\" )\n";
    if (!cabView.empty()) text += "\tCabView ( " + std::string(cabView) + " )\n";
    return text + "\tName ( \"" + std::string(name) + "\" )\n)\n";
}

}  // namespace rakeyard::test
