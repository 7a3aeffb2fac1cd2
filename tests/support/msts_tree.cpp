#include "support/msts_tree.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <mutex>
#include <random>
#include <stdexcept>

#include "core/platform/text_utf.h"

namespace fs = std::filesystem;

namespace rakeyard::test {

TempFolder::TempFolder() {
    static std::mt19937_64 random{std::random_device{}()};
    static std::mutex randomMutex;
    const fs::path temp = fs::temp_directory_path();
    for (int attempt = 0; attempt < 100 && path_.empty(); ++attempt) {
        std::unique_lock lock(randomMutex);
        const std::string name = "rakeyard-test-" + std::to_string(random() % 1000000000);
        lock.unlock();
        std::error_code ec;
        // Made only when it was not there: another test's folder is never shared.
        if (fs::create_directory(temp / name, ec)) path_ = (temp / name).string();
    }
    if (path_.empty()) throw std::runtime_error("cannot make a temporary folder");
}

TempFolder::~TempFolder() {
    std::error_code ec;
    fs::permissions(path_, fs::perms::owner_all, fs::perm_options::add, ec);
    fs::remove_all(path_, ec);
}

std::string TempFolder::operator/(std::string_view relative) const {
    return (fs::path(path_) / fs::path(relative)).make_preferred().string();
}

MstsTree::MstsTree() {
    fs::create_directories(root_ / "msts/TRAINS/TRAINSET");
    fs::create_directories(root_ / "msts/TRAINS/CONSISTS");
    fs::create_directories(root_ / "msts/SOUND");
    fs::create_directories(root_ / "msts/ROUTES");
    fs::create_directories(root_ / "home");
}

std::string MstsTree::msts() const { return root_ / "msts"; }
std::string MstsTree::home() const { return root_ / "home"; }
std::string MstsTree::trainset() const { return root_ / "msts/TRAINS/TRAINSET"; }
std::string MstsTree::consists() const { return root_ / "msts/TRAINS/CONSISTS"; }

std::string utf16Bytes(std::string_view text) {
    std::string bytes;
    for (char16_t c : toUtf16(text)) {
        bytes.push_back(static_cast<char>(c & 0xFF));
        bytes.push_back(static_cast<char>(c >> 8));
    }
    return bytes;
}

std::string MstsTree::write(std::string_view relative, std::string_view text,
                            std::string_view header) {
    std::string crlf;
    for (char c : text) {
        if (c == '\n') crlf += "\r\n";
        else crlf += c;
    }
    std::string bytes = "\xFF\xFE" + utf16Bytes(header);
    if (!header.empty()) bytes += utf16Bytes("\r\n");
    bytes += utf16Bytes(crlf);
    return writeBytes(relative, bytes);
}

std::string MstsTree::writeBytes(std::string_view relative, std::string_view bytes) {
    const fs::path path = fs::path(root_.path()) / "msts" / fs::path(relative);
    fs::create_directories(path.parent_path());
    std::ofstream out(path, std::ios::binary | std::ios::trunc);
    out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    return fs::path(path).make_preferred().string();
}

std::string MstsTree::writeProgram(std::string_view relative) {
    const std::string path = writeBytes(relative, "#!/bin/sh\n");
    fs::permissions(path, fs::perms::owner_exec, fs::perm_options::add);
    return path;
}

bool keepsCaseApart(const std::string& folder) {
    const fs::path probe = fs::path(folder) / "case-probe";
    std::ofstream{probe};
    const bool apart = !fs::exists(fs::path(folder) / "CASE-PROBE");
    fs::remove(probe);
    return apart;
}

bool renamesCase(const std::string& folder) {
    std::ofstream{fs::path(folder) / "case-probe"};
    fs::rename(fs::path(folder) / "case-probe", fs::path(folder) / "CASE-PROBE");
    bool renamed = false;
    for (const auto& entry : fs::directory_iterator(folder))
        renamed = renamed || entry.path().filename() == "CASE-PROBE";
    fs::remove(fs::path(folder) / "CASE-PROBE");
    return renamed;
}

std::string readWholeFile(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    return std::string((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
}

std::string MstsTree::read(std::string_view relative) const {
    return readWholeFile(root_ / relative);
}

bool MstsTree::exists(std::string_view relative) const {
    std::error_code ec;
    return fs::exists(fs::path(root_.path()) / fs::path(relative), ec);
}

}  // namespace rakeyard::test
