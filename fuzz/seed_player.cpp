/// Gives a fuzzer the files named on its command line, one after the other, where libFuzzer does not.
#include <cstdint>
#include <cstdio>
#include <fstream>
#include <iterator>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

int main(int argc, char** argv) {
    for (int i = 1; i < argc; ++i) {
        std::ifstream file(argv[i], std::ios::binary);
        const std::string input(std::istreambuf_iterator<char>(file), {});
        if (!file) return std::perror(argv[i]), 1;
        LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(input.data()), input.size());
    }
    return argc > 1 ? 0 : 1;
}
