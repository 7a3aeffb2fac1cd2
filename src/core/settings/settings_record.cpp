#include "core/settings/settings_record.h"

#include <algorithm>

#include "core/platform/text_utf.h"

namespace rakeyard {

namespace {

using R = SettingsRecord;

constexpr SettingsField text(std::string_view name, std::size_t offset, std::size_t width,
                             std::string R::*field) {
    return {name, offset, width, field, nullptr};
}

constexpr SettingsField number(std::string_view name, std::size_t offset, std::int16_t R::*field) {
    return {name, offset, 2, nullptr, field};
}

// The names are the users' names of the fields, misspelling included.
constexpr std::array<SettingsField, kSettingsFieldCount> kFields{{
    text("3D viewer path", 0, 200, &R::viewerPath),
    text("Consists path", 200, 200, &R::consistsPath),
    text("Editor path", 400, 200, &R::editorPath),
    text("MSTS path", 600, 200, &R::mstsPath),
    text("Screenshots path", 800, 200, &R::screenshotsPath),
    text("Sound path", 1000, 200, &R::soundPath),
    text("Trainset path", 1200, 200, &R::trainsetPath),
    text("Not used", 1400, 3, &R::notUsed1),
    number("Description form left", 1403, &R::descriptionLeft),
    number("Descripton form top", 1405, &R::descriptionTop),
    number("Main form width", 1407, &R::mainWidth),
    text("Last consist loaded", 1409, 200, &R::lastConsist),
    number("Loose consists form left", 1609, &R::looseLeft),
    number("Loose consists form top", 1611, &R::looseTop),
    number("Main form height", 1613, &R::mainHeight),
    number("Main form left", 1615, &R::mainLeft),
    number("Main form top", 1617, &R::mainTop),
    number("Preview form left", 1619, &R::previewLeft),
    number("Preview form top", 1621, &R::previewTop),
    number("Randomize consists form left", 1623, &R::randomLeft),
    number("Randomize consists form top", 1625, &R::randomTop),
    text("Show description on/off", 1627, 3, &R::showDescription),
    text("Show locomotive type", 1630, 10, &R::showLocoType),
    text("Show wagon type", 1640, 10, &R::showWagonType),
    number("Show alias warning", 1650, &R::showAliasWarning),
    number("Picture Horizontal size for description", 1652, &R::pictureWidth),
    number("Picture Vertical size for description", 1654, &R::pictureHeight),
    number("Picture size for description", 1656, &R::dependenciesHeight),
    number("Dependencies form left", 1658, &R::dependenciesLeft),
    number("Dependencies form top", 1660, &R::dependenciesTop),
    number("Dependencies form width", 1662, &R::dependenciesWidth),
}};

static_assert(kFields.back().offset + kFields.back().width == kSettingsRecordSize);

// Text cut to width bytes, never inside a UTF-8 character, then padded with blanks.
std::string fixedWidth(std::string_view text, std::size_t width) {
    std::size_t keep = std::min(text.size(), width);
    if (keep < text.size()) {
        const auto at = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
        std::size_t start = keep;
        while (start > 0 && keep - start < 3 && (at(start) & 0xC0) == 0x80)
            --start;
        if (start < keep && at(start) >= 0xC0) keep = start;
    }
    std::string out(text.substr(0, keep));
    out.resize(width, ' ');
    return out;
}

}  // namespace

const std::array<SettingsField, kSettingsFieldCount>& settingsFields() {
    return kFields;
}

SettingsRecord parseSettings(std::string_view bytes) {
    std::string whole(bytes.substr(0, std::min(bytes.size(), kSettingsRecordSize)));
    whole.resize(kSettingsRecordSize, '\0');
    SettingsRecord record;
    for (const SettingsField& field : kFields) {
        if (field.text) {
            record.*field.text = whole.substr(field.offset, field.width);
        } else {
            const auto low = static_cast<unsigned char>(whole[field.offset]);
            const auto high = static_cast<unsigned char>(whole[field.offset + 1]);
            record.*field.number = static_cast<std::int16_t>(low | (high << 8));
        }
    }
    return record;
}

std::string serializeSettings(const SettingsRecord& record) {
    std::string bytes(kSettingsRecordSize, '\0');
    for (const SettingsField& field : kFields) {
        if (field.text) {
            const std::string& value = record.*field.text;
            // A field as read keeps its bytes, zeros included; only other widths are refitted.
            const std::string fitted =
                value.size() == field.width ? value : fixedWidth(value, field.width);
            bytes.replace(field.offset, field.width, fitted);
        } else {
            const auto value = static_cast<std::uint16_t>(record.*field.number);
            bytes[field.offset] = static_cast<char>(value & 0xFF);
            bytes[field.offset + 1] = static_cast<char>(value >> 8);
        }
    }
    return bytes;
}

std::size_t textWidth(std::string SettingsRecord::*field) {
    for (const SettingsField& f : kFields) {
        if (f.text == field) return f.width;
    }
    return 0;
}

void setText(SettingsRecord& record, std::string SettingsRecord::*field, std::string_view text) {
    record.*field = fixedWidth(text, textWidth(field));
}

bool isUnset(std::string_view text) {
    const std::string trimmed = trimBlanks(text);
    return trimmed.empty() || trimmed.front() == '\0';
}

std::string trimmedValue(std::string_view field) {
    return trimBlanks(field);
}

void refreshPathGlobals(const SettingsRecord& record, PathGlobals& paths) {
    paths.mstsPath = trimmedValue(record.mstsPath);
    paths.consistsPath = trimmedValue(record.consistsPath);
    paths.trainsetPath = trimmedValue(record.trainsetPath);
    paths.soundPath = trimmedValue(record.soundPath);
    paths.editorPath = trimmedValue(record.editorPath);
    paths.viewerPath = trimmedValue(record.viewerPath);
    paths.screenshotsPath = trimmedValue(record.screenshotsPath);
    paths.engineFilter = trimmedValue(record.showLocoType);
    paths.wagonFilter = trimmedValue(record.showWagonType);
}

}  // namespace rakeyard
