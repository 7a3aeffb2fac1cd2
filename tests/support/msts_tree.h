#pragma once
#include <string>
#include <string_view>

namespace rakeyard::test {

// A temporary folder, removed with everything in it when the object goes.
class TempFolder {
public:
    TempFolder();
    ~TempFolder();
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;
    const std::string& path() const { return path_; }
    // The full path of a relative path ("/" separated) inside the folder.
    std::string operator/(std::string_view relative) const;

private:
    std::string path_;
};

// An MSTS installation in a temporary folder, with a program folder ("home") beside it.
// Files are written from readable text.
class MstsTree {
public:
    MstsTree();
    const std::string& root() const { return root_.path(); }  // holds msts/ and home/
    std::string msts() const;                                // the MSTS main folder
    std::string home() const;                                // the program's folder
    std::string trainset() const;
    std::string consists() const;
    // Writes a file under the MSTS folder (relative, "/" separated) as MSTS does: FF FE, the SIMISA header line, CR LF, then the text with its
    // "\n" turned into CR LF, all as UTF-16 LE. Returns the full path.
    std::string write(std::string_view relative, std::string_view text,
                      std::string_view header = "SIMISA@@@@@@@@@@JINX0D0t______");
    // Writes the bytes as they are.
    std::string writeBytes(std::string_view relative, std::string_view bytes);
    // A small program that may be run, as a chosen editor or viewer must be.
    std::string writeProgram(std::string_view relative);
    // Reads a file relative to the tree's root (e.g. "home/Reports/StartErrors.txt").
    std::string read(std::string_view relative) const;
    bool exists(std::string_view relative) const;

private:
    TempFolder root_;
};

// Whether the file system of folder keeps names that differ only in case apart (Linux's do;
// Windows' take them for one name), and whether a rename that changes only a name's case takes
// there (Wine's leave the old name).
bool keepsCaseApart(const std::string& folder);
bool renamesCase(const std::string& folder);

// UTF-16 LE bytes of an ASCII or UTF-8 text, without a mark.
std::string utf16Bytes(std::string_view text);
// The whole file, or "" when it can't be read.
std::string readWholeFile(const std::string& path);

}  // namespace rakeyard::test
