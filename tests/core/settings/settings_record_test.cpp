#include "core/settings/settings_record.h"

#include <gtest/gtest.h>

#include <set>

#include "core/settings/settings_file.h"
#include "support/fakes.h"
#include "support/msts_tree.h"

namespace rakeyard {
using namespace std::string_literals;
namespace {

// A record where every field holds a value of its own: text fields the letter of their index
// followed by digits, numbers 1000 + index, negated for odd indices so the sign is exercised.
SettingsRecord distinctRecord() {
    SettingsRecord record;
    int index = 0;
    for (const SettingsField& field : settingsFields()) {
        if (field.text) {
            setText(record, field.text, std::string(1, static_cast<char>('A' + index)) + "12345");
        } else {
            const int value = 1000 + index;
            record.*field.number = static_cast<std::int16_t>(index % 2 ? -value : value);
        }
        ++index;
    }
    return record;
}

TEST(SerializeSettings, PutsEveryFieldAtItsOffsetInFileOrder) {
    const std::string bytes = serializeSettings(distinctRecord());
    ASSERT_EQ(bytes.size(), kSettingsRecordSize);

    struct Expected {
        std::size_t offset;
        std::string bytes;
    };
    // Offsets as the file has always had them: packed, no alignment.
    const Expected expected[] = {
        {0, "A12345 "},      {200, "B12345 "},   {400, "C12345 "},     {600, "D12345 "},
        {800, "E12345 "},    {1000, "F12345 "},  {1200, "G12345 "},    {1400, "H12"},
        {1403, "\xF0\x03"},  {1405, "\x0F\xFC"}, {1407, "\xF2\x03"},   {1409, "L12345 "},
        {1609, "\xF4\x03"},  {1611, "\x0B\xFC"}, {1613, "\xF6\x03"},   {1615, "\x09\xFC"},
        {1617, "\xF8\x03"},  {1619, "\x07\xFC"}, {1621, "\xFA\x03"},   {1623, "\x05\xFC"},
        {1625, "\xFC\x03"},  {1627, "V12"},      {1630, "W12345    "}, {1640, "X12345    "},
        {1650, "\x00\x04"s}, {1652, "\xFF\xFB"}, {1654, "\x02\x04"},   {1656, "\xFD\xFB"},
        {1658, "\x04\x04"},  {1660, "\xFB\xFB"}, {1662, "\x06\x04"},
    };
    for (const Expected& e : expected) {
        EXPECT_EQ(bytes.substr(e.offset, e.bytes.size()), e.bytes) << "offset " << e.offset;
    }
    EXPECT_EQ(bytes.substr(206, 194), std::string(194, ' '));
}

TEST(ParseSettings, ReadsBackWhatWasWritten) {
    const SettingsRecord record = distinctRecord();
    EXPECT_EQ(parseSettings(serializeSettings(record)), record);
}

TEST(ParseSettings, ReadsAShortRecordAsFarAsItGoesAndALongOneUpToItsLength) {
    const std::string whole = serializeSettings(distinctRecord());

    const SettingsRecord cut = parseSettings(whole.substr(0, 700));
    EXPECT_EQ(cut.editorPath, distinctRecord().editorPath);
    EXPECT_EQ(cut.mstsPath, std::string("D12345") + std::string(94, ' ') + std::string(100, '\0'));
    EXPECT_EQ(cut.screenshotsPath, std::string(200, '\0'));
    EXPECT_EQ(cut.dependenciesWidth, 0);

    const SettingsRecord halfNumber = parseSettings(whole.substr(0, 1663));
    EXPECT_EQ(halfNumber.dependenciesWidth, 0x06);

    EXPECT_EQ(parseSettings(whole + "\x01\x02"), distinctRecord());
    EXPECT_EQ(parseSettings(""), SettingsRecord{});
}

TEST(SetText, PadsWithBlanksAndCutsToTheFieldWidth) {
    struct Case {
        std::string text;
        std::string stored;
    };
    const std::string path200(200, 'p');
    const Case cases[] = {
        {path200, path200},
        {path200 + "x", path200},
        {"C:\\MSTS", "C:\\MSTS" + std::string(193, ' ')},
        {"", std::string(200, ' ')},
        // A cut never splits a character; its first bytes become blanks.
        {std::string(199, 'p') + "\xC3\xA9", std::string(199, 'p') + " "},
        {std::string(198, 'p') + "\xE2\x82\xAC", std::string(198, 'p') + "  "},
        // Bytes of an old 8-bit record are cut where they are.
        {std::string(199, 'p') + "\xE9\xE9", std::string(199, 'p') + "\xE9"},
    };
    for (const Case& c : cases) {
        SettingsRecord record;
        setText(record, &SettingsRecord::mstsPath, c.text);
        EXPECT_EQ(record.mstsPath, c.stored) << c.text.size();
        EXPECT_EQ(serializeSettings(record).substr(600, 200), c.stored) << c.text.size();
    }
    SettingsRecord record;
    setText(record, &SettingsRecord::showDescription, "off and more");
    EXPECT_EQ(record.showDescription, "off");
}

TEST(SerializeSettings, KeepsZeroBytesOfUnsetFieldsAndRefitsTextsOfAnotherWidth) {
    EXPECT_EQ(serializeSettings(SettingsRecord{}), std::string(kSettingsRecordSize, '\0'));
    SettingsRecord record;
    record.showLocoType = "All";
    EXPECT_EQ(serializeSettings(record).substr(1630, 10), "All       ");
}

TEST(IsUnset, TellsEmptyAndNeverSetFieldsFromSetOnes) {
    struct Case {
        std::string text;
        bool unset;
    };
    const Case cases[] = {
        {std::string(200, '\0'), true},
        {std::string(200, ' '), true},
        {"", true},
        {"   \0abc"s, true},
        {"\0C:\\MSTS"s, true},
        {"C:\\MSTS" + std::string(193, ' '), false},
        {"  x  ", false},
        {"NO", false},
        {"x\0"s, false},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(isUnset(c.text), c.unset) << '"' << c.text << '"';
        EXPECT_EQ(isUnset(trimmedValue(c.text)), c.unset) << '"' << c.text << '"';
    }
}

TEST(RefreshPathGlobals, TrimsEachFieldIntoItsGlobalAndKeepsTheProgramFolder) {
    SettingsRecord record;
    setText(record, &SettingsRecord::mstsPath, "  /msts ");
    setText(record, &SettingsRecord::showWagonType, "Tender");
    PathGlobals paths;
    paths.programFolder = "/home";
    refreshPathGlobals(record, paths);
    EXPECT_EQ(paths.programFolder, "/home");
    EXPECT_EQ(paths.mstsPath, "/msts");
    EXPECT_EQ(paths.wagonFilter, "Tender");
    // A field never set still begins with character 0, so the global says so.
    EXPECT_TRUE(isUnset(paths.editorPath));
    EXPECT_EQ(paths.editorPath.front(), '\0');
}

class SettingsFile : public ::testing::Test {
protected:
    test::TempFolder home;
    test::FakeServices fake;
    std::string file() const { return home / "settings.bin"; }
};

TEST_F(SettingsFile, MissingFileIsCreatedEmptyAndReadsAsZeros) {
    EXPECT_EQ(readSettings(fake.fs, home.path()), SettingsRecord{});
    ASSERT_TRUE(fake.fs.isFile(file()));
    EXPECT_EQ(test::readWholeFile(file()), "");
    EXPECT_EQ(readSettings(fake.fs, home.path()), SettingsRecord{});
}

TEST_F(SettingsFile, RecordOf1666BytesIsReadAsFarAsItGoesAndWrittenBackAs1664) {
    const std::string whole = serializeSettings(distinctRecord());
    ASSERT_TRUE(fake.fs.writeFile(file(), whole + "\x7F\x7F"));

    const SettingsRecord record = readSettings(fake.fs, home.path());
    EXPECT_EQ(record, distinctRecord());
    ASSERT_TRUE(writeSettings(fake.fs, home.path(), record));
    EXPECT_EQ(test::readWholeFile(file()), whole);
}

TEST_F(SettingsFile, FailedWriteKeepsTheOldRecordAndTellsTheUser) {
    ASSERT_TRUE(writeSettings(fake.fs, home.path(), distinctRecord()));
    fake.fs.failAfterBytes = 1000;
    PathGlobals paths;
    paths.programFolder = home.path();
    EXPECT_FALSE(saveSettings(SettingsRecord{}, paths, fake.services));
    EXPECT_EQ(test::readWholeFile(file()), serializeSettings(distinctRecord()));
    ASSERT_EQ(fake.dialogs.shown.size(), 1u);
    EXPECT_NE(fake.dialogs.shown[0].text.find("No space left on device"), std::string::npos);
    EXPECT_EQ(fake.dialogs.shown[0].icon, Icon::Stop);
}

}  // namespace
}  // namespace rakeyard
