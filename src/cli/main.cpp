#include "cli/program.h"
#include "core/signal_guard.h"

#include <cstdio>
#include <iostream>
#include <new>

int main(int argc, char** argv) {
    partwright::ignoreWriteSignals();
    std::ios::sync_with_stdio(false);
    std::cin.tie(nullptr);
    try {
        return partwright::cli::run({argv + 1, argv + argc}, std::cin, std::cout, std::cerr);
    } catch (const std::bad_alloc&) {
        std::fputs("There is not enough memory.\n", stderr);
        return 2;
    }
}
