// The results of the kernels over a large corpus, as one hash for each expression. The hashes of
// different kinds of processors are compared through a file, since no single run can use both.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "expr/kernels.h"

namespace kalvex::testing_support {

struct KernelResult {
    std::string text;
    std::uint64_t hash = 0;
};

/// The expressions of the corpus: each array operation alone, then random ones.
std::vector<std::string> KernelCorpus();

/// The hash of all values and error codes of the expression over some thousand arguments. All
/// not-a-numbers count as equal, because processors give them different signs.
std::uint64_t HashOfResults(const std::string& text, const KernelTable& kernels);

/// tests/data/kernel_results.tsv, made by scripts/make-kernel-results with AVX2 and SLEEF 3.5; with
/// SLEEF from 3.6 on, whose erf has other last bits at some arguments, the rows of
/// kernel_results_sleef_3.6.tsv take the place of those of the same texts.
std::vector<KernelResult> ReadKernelResults();

}  // namespace kalvex::testing_support
