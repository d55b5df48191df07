#include "cli/program.h"

#include <iostream>

int main(int argc, char** argv) {
    std::ios::sync_with_stdio(false);
    std::cin.tie(nullptr);
    return partwright::cli::run({argv + 1, argv + argc}, std::cin, std::cout, std::cerr);
}
