// Stands in for libFuzzer where the compiler has none: runs a fuzz target over every kept input,
// then over inputs made from them by simple changes, by seed.
//
//   <target>_fuzz CORPUS_FOLDER RUNS SEED

#include "support/dice.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

using partwright::test::Dice;

constexpr std::size_t longestInput = 4096;

std::vector<std::string> readCorpus(const std::filesystem::path& folder) {
    std::vector<std::filesystem::path> files;
    for (const auto& entry : std::filesystem::directory_iterator(folder))
        files.push_back(entry.path());
    std::sort(files.begin(), files.end());
    std::vector<std::string> inputs;
    for (const auto& file : files) {
        std::ifstream in(file, std::ios::binary);
        inputs.emplace_back(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
    }
    return inputs;
}

std::string changed(const std::vector<std::string>& corpus, Dice& dice) {
    static constexpr char marks[] = "\",;<>*-\\\n\r\t #=|.0123456789";
    std::string input = dice.pick(corpus);
    for (std::size_t n = 1 + dice.roll(8); n > 0; --n) {
        const std::size_t at = dice.roll(input.size() + 1);
        const std::string& other = dice.pick(corpus);
        const std::size_t from = dice.roll(other.size() + 1);
        switch (dice.roll(5)) {
        case 0:
            input.insert(at, 1, static_cast<char>(dice.roll(256)));
            break;
        case 1:
            input.insert(at, 1, marks[dice.roll(sizeof marks - 1)]);
            break;
        case 2:
            input.erase(at, dice.roll(32));
            break;
        case 3:
            input.insert(at, other, from, dice.roll(64));
            break;
        default:
            input.replace(at, dice.roll(8), 1 + dice.roll(300), static_cast<char>(dice.roll(256)));
        }
    }
    input.resize(std::min(input.size(), longestInput));
    return input;
}

void run(const std::string& input) {
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(input.data()), input.size());
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 4)
        return 2;
    const auto corpus = readCorpus(argv[1]);
    if (corpus.empty())
        return 2;
    for (const std::string& input : corpus)
        run(input);
    Dice dice(std::strtoull(argv[3], nullptr, 10));
    const unsigned long runs = std::strtoul(argv[2], nullptr, 10);
    for (unsigned long i = 0; i < runs; ++i)
        run(changed(corpus, dice));
    std::printf("%zu kept inputs and %lu further runs\n", corpus.size(), runs);
    return 0;
}
