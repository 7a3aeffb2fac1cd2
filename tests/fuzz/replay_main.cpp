// Replays every file under the folders or files named on the command line through the fuzz
// target, as libFuzzer would with a corpus. Used where libFuzzer isn't linked in.
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

void replayFile(const std::filesystem::path& path) {
    std::ifstream in(path, std::ios::binary);
    std::vector<char> bytes((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
}

}  // namespace

int main(int argc, char** argv) {
    int files = 0;
    for (int i = 1; i < argc; ++i) {
        std::error_code ec;
        const std::filesystem::path root(argv[i]);
        if (std::filesystem::is_regular_file(root, ec)) {
            replayFile(root);
            ++files;
            continue;
        }
        for (auto it = std::filesystem::recursive_directory_iterator(root, ec);
             !ec && it != std::filesystem::recursive_directory_iterator(); it.increment(ec)) {
            if (it->is_regular_file(ec) && it->file_size(ec) < (8u << 20)) {
                replayFile(it->path());
                ++files;
            }
        }
    }
    std::printf("replayed %d files\n", files);
    return 0;
}
