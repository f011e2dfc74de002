#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "fuzz/support/target.h"

namespace {

std::vector<std::filesystem::path> filesIn(const std::filesystem::path& path) {
    if (!std::filesystem::is_directory(path)) {
        return {path};
    }
    std::vector<std::filesystem::path> files;
    for (const auto& entry : std::filesystem::directory_iterator(path)) {
        files.push_back(entry.path());
    }
    std::sort(files.begin(), files.end());
    return files;
}

bool replay(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    if (!file) {
        std::fprintf(stderr, "%s cannot be read\n", path.c_str());
        return false;
    }
    const std::vector<char> bytes{std::istreambuf_iterator<char>(file), {}};
    // The name comes first, so that it is the last line if the run ends the process.
    std::fprintf(stderr, "%s\n", path.c_str());
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
    return true;
}

}  // namespace

/// Runs the target once with each file that an argument names, and with each file of a
/// folder that an argument names.
int main(int count, char** arguments) {
    std::size_t replayed = 0;
    for (int i = 1; i < count; ++i) {
        for (const std::filesystem::path& file : filesIn(arguments[i])) {
            if (!replay(file)) {
                return 1;
            }
            ++replayed;
        }
    }
    std::fprintf(stderr, "%zu inputs replayed\n", replayed);
    return replayed == 0 ? 1 : 0;
}
