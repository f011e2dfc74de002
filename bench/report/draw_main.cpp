// zolt-bench-draw JSON FOLDER: draws the result of a measurement.
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <stdexcept>

#include "bench/report/json_report.h"
#include "bench/report/pictures.h"

namespace {

std::string contentOf(const std::string& path) {
    std::ifstream file(path);
    if (!file) throw std::runtime_error(path + " cannot be read");
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

void drawInto(const std::filesystem::path& folder, const bench::Report& report) {
    for (const bench::Picture& picture : bench::pictures(report)) {
        const auto path = folder / picture.fileName;
        std::ofstream file(path, std::ios::trunc);
        file << picture.svg;
        if (!file.flush()) throw std::runtime_error(path.string() + " cannot be written");
        std::cout << path.string() << "\n";
    }
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 3) {
        std::cerr << "usage: zolt-bench-draw JSON FOLDER\n";
        return 2;
    }
    try {
        drawInto(argv[2], bench::fromJson(contentOf(argv[1])));
        return 0;
    } catch (const std::exception& error) {
        std::cerr << "zolt-bench-draw: " << error.what() << "\n";
        return 1;
    }
}
