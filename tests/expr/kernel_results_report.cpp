// Writes the bits of the kernels over the corpus, a line for each expression.
#include <iomanip>
#include <iostream>

#include "kernel_results.h"

int main() {
    using namespace kalvex;
    const KernelTables available = AvailableKernelTables();
    for (const std::string& text : testing_support::KernelCorpus()) {
        std::cout << std::hex << std::setw(16) << std::setfill('0')
                  << testing_support::HashOfResults(text, *available.tables[0]) << '\t' << text
                  << '\n';
    }
}
