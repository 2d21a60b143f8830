#include <exception>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <string>

#include "FuzzInput.h"

namespace tidewright::fuzz {
namespace {

std::string contentOf(const std::filesystem::path& file) {
    std::ifstream input(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(input), {}};
}

/// How many inputs `folder` holds; names each before it is tried, so that the last one is to blame.
int replay(const std::filesystem::path& folder) {
    int count = 0;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        std::cout << entry.path().filename().string() << std::endl;
        tryInput(FuzzInput(contentOf(entry.path())));
        ++count;
    }
    return count;
}

}  // namespace
}  // namespace tidewright::fuzz

int main(int argumentCount, char** arguments) {
    try {
        const int count = argumentCount == 2 ? tidewright::fuzz::replay(arguments[1]) : 0;
        std::cout << count << " inputs tried\n";
        return count > 0 ? 0 : 1;
    } catch (const std::exception& error) {
        std::cout << error.what() << '\n';
        return 1;
    }
}
